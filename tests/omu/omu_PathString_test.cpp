// Path texts and shortcuts: splitting, keys, quoting, chains, traces.

#include <omu_PathFunctions.h>
#include <omu_PathString.h>
#include <omu_SimpleDictShortcutImpl.h>
#include <omu_SimpleMemShortcutImpl.h>
#include <omu_SimpleSeqShortcutImpl.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <random>
#include <testing/ChildTrace.h>
#include <testing/ValueTesting.h>

namespace
{
std::string Joined(const cow_List<cow_String>& parts, const char* between)
{
    std::string text;
    for (const cow_String& part : parts)
        text.append(text.empty() ? "" : between).append(part.View());
    return text;
}

TEST(PathString, SplitsAndWrites)
{
    const struct
    {
        const char* path;
        const char* parts; // with "|" between
        const char* dotted;
        const char* generic;
        bool inModel = false;
    } plain[] = {{"mdb", "mdb", "mdb", "mdb", true},
                 {"mdbx", "mdbx", "mdbx", "mdbx"},
                 {"mdb.models['M1']", "mdb|.models|['M1']", "mdb.models.M1", "mdb.models[name]", true},
                 {"_a[3][-1].b", "_a|[3]|[-1]|.b", "_a.3.-1.b", "_a[i][i].b"},
                 {"a['x]y'].b[\"q[\"]", "a|['x]y']|.b|[\"q[\"]", "a.x]y.b.q[", "a[name].b[name]"},
                 {"a['it\\'s]'].b", "a|['it\\'s]']|.b", "a.it's].b", "a[name].b"},
                 {"a[b['k']].c", "a|[b['k']]|.c", "a.b['k'].c", "a[i].c"},
                 {"f(g(1), ')').x()", "f|(g(1), ')')|.x|()", "f.g(1), ')'.x", "f(g(1), ')').x()"},
                 {"session.openOdb('a.odb').s", "session|.openOdb|('a.odb')|.s", "session.openOdb.a.odb.s",
                  "session.openOdb('a.odb').s", true},
                 {"session.odbs['+']", "session|.odbs|['+']", "session.odbs.+", "session.odbs[name]", true},
                 {"session.Odb(1)", "session|.Odb|(1)", "session.Odb.1", "session.Odb(1)", true},
                 {"session.viewports", "session|.viewports", "session.viewports", "session.viewports"},
                 {"session['odbs']", "session|['odbs']", "session.odbs", "session[name]"},
                 // From here on one part.
                 {"a.getSequenceFromMask(('[#1 ]', ), )[0]", "a|.getSequenceFromMask(('[#1 ]', ), )[0]",
                  "a.getSequenceFromMask(('[#1 ]', ), )[0]", "a.getSequenceFromMask(('[#1 ]', ), )[0]"},
                 {"a.getSequenceFromMaskX(1).b", "a|.getSequenceFromMaskX|(1)|.b",
                  "a.getSequenceFromMaskX.1.b", "a.getSequenceFromMaskX(1).b"}};
    for (const auto& row : plain)
    {
        const omu_PathString path(row.path);
        EXPECT_EQ(Joined(path.GetPathAsList(), "|"), row.parts);
        EXPECT_EQ(Joined(path.GetPathAsList(), ""), row.path);
        EXPECT_EQ(path.AsDottedString(), row.dotted);
        EXPECT_EQ(path.AsGenericString(), row.generic);
        EXPECT_EQ(path.InObjectModel(), row.inModel) << row.path;
        EXPECT_TRUE(path.IsPlain()) << row.path;
    }
    // Not plain: nothing, or what stands before the place.
    for (const auto& [text, parts] : {std::pair("", ""),
                                      {"1a", ""},
                                      {"'a'", ""},
                                      {"[1]", ""},
                                      {"a+b.c", ""},
                                      {"mdb.a+b", "mdb"},
                                      {"mdb.b[1]+c", "mdb|.b|[1]"},
                                      {"a['x'", "a"},
                                      {"a(1", "a"},
                                      {"a[1]b", "a|[1]"}})
    {
        const omu_PathString path(text);
        EXPECT_EQ(Joined(path.GetPathAsList(), "|"), parts) << text;
        EXPECT_EQ(path.AsGenericString(), text);
        EXPECT_FALSE(path.IsPlain() || path.InObjectModel()) << text;
    }
}

// Steps write their path, and it comes apart into those steps.
TEST(PathString, PartsAreTheStepsThatBuiltIt)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round)
    {
        omu_Shortcut shortcut = omu_SimpleTermShortcutImpl("mdb", true);
        std::string parts = "mdb";
        for (std::size_t step = random() % 6; step > 0; --step)
        {
            std::string key;
            for (std::size_t length = random() % 5; length > 0; --length)
                key += "a'\"[](+.\\ "[random() % 10];
            const int index = static_cast<int>(random() % 9) - 4;
            switch (random() % 4)
            {
            case 0:
                shortcut = omu_SimpleMemShortcutImpl(shortcut, "member");
                parts += "|.member";
                break;
            case 1:
                shortcut = omu_SimpleDictShortcutImpl<cow_String>(shortcut, "", cow_String(key));
                parts += "|[" + Text(omu_PrimString(cow_String(key))) + "]";
                break;
            case 2:
                shortcut = omu_SimpleDictShortcutImpl<int>(shortcut, "jobs", index);
                parts += "|.jobs|[" + std::to_string(index) + "]";
                break;
            default:
                shortcut = omu_SimpleSeqShortcutImpl(shortcut, index, 0);
                parts += "|[" + std::to_string(index) + "]";
            }
        }
        const omu_PathString path(shortcut.Path());
        EXPECT_EQ(Joined(path.GetPathAsList(), "|"), parts);
        EXPECT_EQ(shortcut.PythonPath(), path.AsString());
        EXPECT_TRUE(path.IsPlain() && path.InObjectModel() && shortcut.InModel()) << parts;
    }
}

TEST(PathFunctions, FindKeys)
{
    const struct
    {
        const char* path;
        int from; // from the end for the last key
        int opening;
        int closing;
        const char* first;
        const char* last;
    } rows[] = {{"a['x'].b[\"y\"]", 0, 1, 5, "'x'", "\"y\""},
                {"a[\"x\"].b['y']", 0, 1, 5, "\"x\"", "'y'"},
                {"a['x'].b[\"y\"]", 6, 8, 12, "\"y\"", "'x'"},
                {"a['x'].b['y']", 99, -1, -1, "", "'y'"},
                {"a['x']", -1, 1, 5, "'x'", "'x'"},
                {"a['']", 0, 1, 4, "''", "''"},
                {"a[3]", 0, -1, -1, "", ""},
                {"a['x", 0, 1, -1, "", ""},
                {"", 0, -1, -1, "", ""}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(omu_GetBracketKeyPos(row.path, '[', row.from), row.opening) << row.path;
        EXPECT_EQ(omu_GetBracketKeyPos(row.path, ']', row.from), row.closing) << row.path;
        EXPECT_EQ(omu_GetBracketKeyPos(row.path, '(', row.from), -1);
        EXPECT_EQ(omu_GetFirstKeyInPath(row.path, row.from), row.first) << row.path;
        EXPECT_EQ(omu_GetLastKeyInPath(row.path, row.from), row.last) << row.path;
    }
}

// Doubled backslashes stay, and double quotes escape nothing, on purpose.
TEST(PathFunctions, Unquote)
{
    constexpr const char* SHORT = "QuotedString length < 2.\n";
    const char* const rows[][3] = {
        {"'a b'", "a b", ""},
        {"\"it's\"", "it's", ""},
        {"''", "", ""},
        {"'it\\'s'", "it's", ""},
        {"'a\\\\b'", "a\\\\b", ""},
        {"\"a\\'\"", "a\\'", ""},
        {"'", "'", SHORT},
        {"", "", SHORT},
        {"'a\"", "'a\"", "omu_StringFromQString('a\")  QuotedString does not use ' or \".\n"}};
    for (const auto& [quoted, plain, told] : rows)
    {
        testing::internal::CaptureStderr();
        EXPECT_EQ(omu_StringFromQString(quoted), plain);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), told);
    }
}

TEST(PathFunctions, OpenOdbBecomesAKey)
{
    const char* const rows[][2] = {{"session.openOdb('a.odb').steps[0]", "session.odbs['a.odb'].steps[0]"},
                                   {"session.openOdb( 'a,b).odb' , True)", "session.odbs['a,b).odb']"},
                                   {"session.openOdb(name='a=b', readOnly=ON).x", "session.odbs['a=b'].x"},
                                   {"session.openOdb(f(1, 2), 3)", "session.odbs[f(1, 2)]"},
                                   {"session.openOdb()", "session.openOdb()"},
                                   {"session.openOdb('a'", "session.openOdb('a'"},
                                   {"session.openOdbs('a')", "session.openOdbs('a')"},
                                   {"x.session.openOdb('a')", "x.session.openOdb('a')"}};
    for (const auto& [path, fixed] : rows)
        EXPECT_EQ(omu_fixOpenOdb(path), fixed);
    EXPECT_EQ(omu_NameString("it's"), "\"it's\"");
}

TEST(Shortcut, StepsWriteThePath)
{
    const omu_Shortcut mdb = omu_SimpleTermShortcutImpl("mdb", true, false, false);
    const omu_Shortcut member = omu_SimpleMemShortcutImpl(mdb, "models");
    const omu_Shortcut useId = omu_SimpleDictShortcutImpl(mdb, "models", "omu_SimpleShortcut_USE_ID");
    const omu_Shortcut unnamed = omu_SimpleSeqShortcutImpl(member, omu_SimpleSeqShortcutImpl::NO_INDEX, 12);
    const omu_Shortcut named = omu_SimpleSeqShortcutImpl(mdb, "models");
    for (const omu_Shortcut& same : {member, useId, unnamed, named})
    {
        EXPECT_EQ(same.Path(), "mdb.models");
        EXPECT_TRUE(same == member) << "the same path by another kind of step";
        EXPECT_FALSE(same == mdb || same.InOdb() || same.InSession());
    }
    EXPECT_EQ(mdb.Name(), "mdb");
    EXPECT_EQ(useId.Name(), "models");
    EXPECT_EQ(unnamed.Name(), "");
    EXPECT_EQ(omu_Shortcut(omu_SimpleSeqShortcutImpl(member, 3, 12)).Name(), "[3]");
    EXPECT_EQ(omu_Shortcut(omu_SimpleDictShortcutImpl(mdb, "m", "it's")).Name(), "m[\"it's\"]");
    const omu_Shortcut odb =
        omu_SimpleMemShortcutImpl(omu_SimpleTermShortcutImpl("session", false, true, true), "x");
    EXPECT_TRUE(!odb.InModel() && odb.InOdb() && odb.InSession());
    const omu_Shortcut empty;
    EXPECT_TRUE(!empty.HasValue() && empty.Path().IsEmpty() && !empty.InModel() && empty == omu_Shortcut());
    EXPECT_FALSE(empty == mdb);
}

TEST(Shortcut, LongChainsNeedNoStack)
{
    constexpr int STEPS = 200000;
    omu_Shortcut chain = omu_SimpleTermShortcutImpl("a", true);
    omu_Shortcut twin = chain;
    for (int i = 0; i < STEPS; ++i)
    {
        chain = omu_SimpleMemShortcutImpl(chain, "b");
        twin = omu_SimpleMemShortcutImpl(twin, "b");
    }
    EXPECT_TRUE(chain.InModel() && chain == twin);
    EXPECT_EQ(omu_PathString(chain.Path()).GetPathAsList().Length(), STEPS + 1);
    twin = omu_SimpleMemShortcutImpl(twin, "b");
    EXPECT_FALSE(chain == twin);
    chain = omu_Shortcut();
    EXPECT_EQ(twin.Path().Length(), 1 + 2 * (STEPS + 1));
}

TEST(ChildTraceDeathTest, PathStringTellsEachPass)
{
    EXPECT_CHILD_TRACE(
        "ORX_DBG_OMUPATHSTRING", "1", omu_PathString("a.b['k']").GetPathAsList(),
        "omu_PathString::GetPathAsList: pos1:1  pos2:-1  pos3:3  pos4:-1\n"
        "omu_PathString::GetPathAsList: lastPos:0  pos:1  lastSep:''  sep:'.' nextPart:\"a\"\n"
        "omu_PathString::GetPathAsList: pos1:-1  pos2:-1  pos3:3  pos4:-1\n"
        "omu_PathString::GetPathAsList: lastPos:1  pos:3  lastSep:'.'  sep:'[' nextPart:\".b\"\n"
        "omu_PathString::GetPathAsList: pos1:-1  pos2:-1  pos3:-1  pos4:-1\n"
        "omu_PathString::GetPathAsList: lastPos:3  pos:8  lastSep:'['  sep:'' nextPart:\"['k']\"\n");
}

TEST(ChildTraceDeathTest, ShortcutsTellTheirPaths)
{
    const auto chain = [] {
        const omu_Shortcut term = omu_SimpleTermShortcutImpl("a");
        const omu_Shortcut member = omu_SimpleMemShortcutImpl(term, "b");
        const omu_Shortcut text = omu_SimpleDictShortcutImpl(member, "", "k");
        const omu_Shortcut number = omu_SimpleDictShortcutImpl<int>(text, "", 4);
        return omu_Shortcut(omu_SimpleSeqShortcutImpl(number, 5, 0));
    };
    EXPECT_CHILD_TRACE("ORX_PATHREPR_SIMPLEPATH", "", chain().Path(),
                       "omu_SimpleTermShortcutImpl. Path: a\n"
                       "omu_SimpleMemShortcut. Path: a.b\n"
                       "omu_SimpleDictShortcut(cow_String). Path: a.b['k']\n"
                       "omu_SimpleDictShortcut(int). Path: a.b['k'][4]\n"
                       "omu_SimpleSeqShortcut. Path: a.b['k'][4][5]\n");
    EXPECT_CHILD_TRACE("ORX_OTHER", "1", chain().Path(), "");
}
}
