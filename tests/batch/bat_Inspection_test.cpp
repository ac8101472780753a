// `orvex doctor`, `orvex classes` and `orvex path`, run inside this process.

#include <bat_ClassTree.h>
#include <bat_CodeName.h>
#include <bat_DoctorCommand.h>
#include <cls_MetadataRegistrar.h>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <idb_MementoLimits.h>
#include <nlohmann/json.hpp>
#include <omu_EnvSwitches.h>
#include <set>
#include <stdexcept>
#include <testing/DriverOutcome.h>
#include <testing/LibraryGuard.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{
using Json = nlohmann::ordered_json;

Json Answer(std::vector<std::string> words)
{
    words.push_back("--json");
    return Json::parse(DriverOutcome(words).substr(2));
}

TEST(Doctor, TellsWhatIsInForceHereAndThatAllIsWell)
{
    setenv(omu_EnvSwitches::DBG_CMDHISTORYADD, "a\033", 1);
    const Json json = Answer({"doctor"});
    const std::string text = DriverOutcome({"doctor"});
    unsetenv(omu_EnvSwitches::DBG_CMDHISTORYADD);

    const Json& environment = json["environment"];
    EXPECT_EQ(environment["ORX_DBG_CMDHISTORYADD"], "a\033");
    for (const omu_EnvSwitches::Switch& one : omu_EnvSwitches::All())
        EXPECT_TRUE(environment.contains(one.name)) << one.name;
    EXPECT_TRUE(environment["ORX_DBG_SYMCONST"].is_null());
    EXPECT_EQ(json["limits"]["mementoBudgetBase"], idb_MementoLimits().budgetBase);
    EXPECT_EQ(json["tolerances"]["linear"], 1e-6);
    EXPECT_TRUE(json["machine"].contains("cLocale") && json["machine"].contains("cppLocale"));
    EXPECT_THAT(json["versions"]["library"].get<std::string>(), HasSubstr("libKTLOxuGeom.so"));
    EXPECT_GE(json["selfTest"].size(), 4u);
    for (const Json& test : json["selfTest"])
        EXPECT_TRUE(test["passed"]) << test.dump();

    EXPECT_THAT(text, StartsWith("0\nversions\n  orvex "));
    EXPECT_THAT(text, HasSubstr("\n  ORX_DBG_CMDHISTORYADD    a?  (traces "));
    EXPECT_THAT(text, HasSubstr("\n  memento bytes            1 073 741 824\n"));
    EXPECT_THAT(text, HasSubstr("\n  contact travel           passed\n"));
}

TEST(Doctor, AWrongAnswerIsAFault)
{
    const bat_SelfTest::Check checks[] = {{"sum", [] { throw std::runtime_error("1 + 1 = 3"); }},
                                          {"rest", [] {}}};
    bat_DoctorCommand doctor(checks);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(doctor.Run(bat_Console{out, err}), bat_ExitCode::INTERNAL);
    EXPECT_THAT(out.str(), HasSubstr("\nself-test\n"
                                     "  sum                      failed: 1 + 1 = 3\n"
                                     "  rest                     passed\n"));
}

// Each class once, behind its parent, whatever the registrar knows.
TEST(Classes, TheTreeHoldsTheRegistry)
{
    const LibraryGuard library;
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    const bat_ClassTree tree = bat_ClassTree::All();
    EXPECT_EQ(static_cast<int>(tree.Classes().size()), registrar.TypeIds().Length());
    std::vector<std::string> line;
    std::set<std::string> seen;
    for (const bat_ClassTree::Class& one : tree.Classes())
    {
        EXPECT_TRUE(seen.insert(one.name).second) << one.name;
        ASSERT_LE(one.depth, static_cast<int>(line.size())) << one.name;
        line.resize(static_cast<std::size_t>(one.depth));
        EXPECT_EQ(one.parent, line.empty() ? "" : line.back());
        line.push_back(one.name);
        for (const bat_ClassTree::Attribute& attribute : one.attributes)
            EXPECT_TRUE(bat_CodeName(static_cast<cls_AttributeType>(attribute.type)) != nullptr &&
                        bat_CodeName(static_cast<cls_CollectionType>(attribute.collection)) != nullptr)
                << one.name << ' ' << attribute.name;
    }
}

TEST(Classes, WhatIsShown)
{
    EXPECT_EQ(DriverOutcome({"classes", "omu_PrimEnumBase"}),
              "0\n"
              "  omu_Primitive       0x00130011   514  abstract\n"
              "      .type  CHAR 1\n"
              ">   omu_PrimEnum      0x0013001B   514  concrete, in its table omu_PrimEnumBase\n"
              "        .stringValue  STRING 11\n"
              "      omu_OnOffConst  0x00130025   800  concrete\n");
    EXPECT_EQ(DriverOutcome({"classes", "omu_PrimEnum"}), DriverOutcome({"classes", "omu_PrimEnumBase"}));
    EXPECT_THAT(DriverOutcome({"classes", "mdl_Prop1DArrayListFloat"}),
                HasSubstr("\n      .lengths  OBJECT 15, LIST_INT 54, cow_List\n"));
    EXPECT_EQ(DriverOutcome({"classes", "omu_TrueFalseConst", "--brief"}),
              "0\n"
              "  omu_Primitive           0x00130011   514  abstract\n"
              "    omu_PrimEnum          0x0013001B   514  concrete, in its table omu_PrimEnumBase\n"
              ">     omu_TrueFalseConst  0x00130026     0  no metadata\n");
    const Json json = Answer({"classes", "gsl_Dot"});
    EXPECT_EQ(json["asked"], "gsl_Dot");
    EXPECT_EQ(json["classes"][0]["attributes"][0].dump(),
              R"({"name":"_point","type":"OBJECT","typeCode":15,"class":"gsl_Point",)"
              R"("collection":"SINGLE","collectionCode":0})");
}

TEST(Classes, AnUnknownNameIsRefusedWithTheNearest)
{
    EXPECT_EQ(DriverOutcome({"classes", "primnumbr"}),
              "3\norvex: there is no class primnumbr. Did you mean \"omu_PrimNumber\"?\n");
    EXPECT_EQ(DriverOutcome({"classes", "g3d_Pointt"}),
              "3\norvex: there is no class g3d_Pointt. Did you mean \"g3d_Point\"?\n");
    EXPECT_EQ(DriverOutcome({"classes", "x"}), "3\norvex: there is no class x.\n");
}

TEST(Path, WhatIsShown)
{
    EXPECT_EQ(DriverOutcome({"path", "session.openOdb('a.odb').steps['S-1']"}),
              "0\n"
              "canonical session.odbs['a.odb'].steps['S-1']\n"
              "generic   session.openOdb('a.odb').steps[name]\n"
              "dotted    session.openOdb.a.odb.steps.S-1\n"
              "in model  yes\n"
              "root      session\n"
              "member    .openOdb\n"
              "call      ('a.odb')\n"
              "member    .steps\n"
              "key       ['S-1']\n");
    EXPECT_EQ(Answer({"path", "a[ 'k' ]"})["parts"].dump(),
              R"([{"kind":"root","text":"a"},{"kind":"index","text":"[ 'k' ]"}])");
}

TEST(Path, WhatIsNoneIsRefusedAtItsPlace)
{
    const struct
    {
        const char* path;
        const char* fault;
    } rows[] = {{"1a", "character 1: a path begins with a letter or \"_\""},
                {"", "character 1: a path begins with a letter or \"_\""},
                {"a+b", "character 2: an expression is no path"},
                {"mdb.\303\274['k'].b+c.d", "character 13: an expression is no path"},
                {"a.b['x'", "character 4: the \"[\" is never closed"},
                {"f(g(1)", "character 2: the \"(\" is never closed"},
                {"a[1]b", "character 5: \".\", \"[\" or \"(\" is missing"},
                {"\303\274", "character 1: a path begins with a letter or \"_\""},
                {"a.\303\274..b", "character 5: a name is missing"},
                {"a.", "character 3: a name is missing"},
                {"a.b-c", "character 4: no name holds \"-\""}};
    for (const auto& [path, fault] : rows)
        EXPECT_EQ(DriverOutcome({"path", path}), std::string("3\norvex: ") + path + ", " + fault + "\n");
}
}
