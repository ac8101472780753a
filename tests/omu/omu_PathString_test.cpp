// Path texts and shortcuts: splitting, keys, quoting, chains, traces.

#include <gtest/gtest.h>
#include <omu_PathFunctions.h>
#include <omu_PathString.h>
#include <omu_SimpleDictShortcutImpl.h>
#include <omu_SimpleMemShortcutImpl.h>
#include <omu_SimpleSeqShortcutImpl.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <ostream>
#include <random>
#include <string>
#include <testing/ChildTrace.h>

namespace
{
std::string Joined(const cow_List<cow_String>& parts, const char* between)
{
    std::string text;
    for (const cow_String& part : parts)
        text.append(text.empty() ? "" : between).append(part.View());
    return text;
}

struct PathRow
{
    const char* path;
    const char* parts; // with "|" between
    const char* dotted;
    const char* generic;
    bool plain = true;
    bool inModel = false;

    friend void PrintTo(const PathRow& row, std::ostream* out) { *out << row.path; }
};
class PathTable : public testing::TestWithParam<PathRow>
{};

TEST_P(PathTable, Splits)
{
    const PathRow& row = GetParam();
    const omu_PathString path(row.path);
    EXPECT_EQ(path.InObjectModel(), row.inModel);
    EXPECT_EQ(Joined(path.GetPathAsList(), "|"), row.parts);
    EXPECT_EQ(path.IsPlain(), row.plain);
    EXPECT_EQ(path.AsDottedString(), row.dotted);
    EXPECT_EQ(path.AsGenericString(), row.generic);
    EXPECT_EQ(path.AsString(), row.path);
    if (row.plain)
    {
        EXPECT_EQ(Joined(path.GetPathAsList(), ""), row.path);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PathTable,
    testing::Values(
        PathRow{"mdb", "mdb", "mdb", "mdb", true, true}, PathRow{"mdbx", "mdbx", "mdbx", "mdbx"},
        PathRow{"mdb.models['M1']", "mdb|.models|['M1']", "mdb.models.M1", "mdb.models[name]", true, true},
        PathRow{"_a[3][-1].b", "_a|[3]|[-1]|.b", "_a.3.-1.b", "_a[i][i].b"},
        PathRow{"a['x]y'].b[\"q[\"]", "a|['x]y']|.b|[\"q[\"]", "a.x]y.b.q[", "a[name].b[name]"},
        PathRow{"a['it\\'s]'].b", "a|['it\\'s]']|.b", "a.it's].b", "a[name].b"},
        PathRow{"a[b['k']].c", "a|[b['k']]|.c", "a.b['k'].c", "a[i].c"},
        PathRow{"f(g(1), ')').x()", "f|(g(1), ')')|.x|()", "f.g(1), ')'.x", "f(g(1), ')').x()"},
        PathRow{"session.openOdb('a.odb').steps", "session|.openOdb|('a.odb')|.steps",
                "session.openOdb.a.odb.steps", "session.openOdb('a.odb').steps", true, true},
        PathRow{"session.odbs['a']", "session|.odbs|['a']", "session.odbs.a", "session.odbs[name]", true,
                true},
        PathRow{"session.Odb(1)", "session|.Odb|(1)", "session.Odb.1", "session.Odb(1)", true, true},
        PathRow{"session.viewports", "session|.viewports", "session.viewports", "session.viewports"},
        PathRow{"session", "session", "session", "session"},
        PathRow{"session['odbs']", "session|['odbs']", "session.odbs", "session[name]"},
        PathRow{"a.v.getSequenceFromMask(('[#1 ]', ), )[0]", "a|.v|.getSequenceFromMask(('[#1 ]', ), )[0]",
                "a.v.getSequenceFromMask(('[#1 ]', ), )[0]", "a.v.getSequenceFromMask(('[#1 ]', ), )[0]"},
        PathRow{"a.getSequenceFromMaskX(1).b", "a|.getSequenceFromMaskX|(1)|.b", "a.getSequenceFromMaskX.1.b",
                "a.getSequenceFromMaskX(1).b"},
        // Not plain: nothing, or what stands before the place.
        PathRow{"", "", "", "", false}, PathRow{"1a", "", "", "1a", false},
        PathRow{"'a'", "", "", "'a'", false}, PathRow{"[1]", "", "", "[1]", false},
        PathRow{"a+b.c", "", "", "a+b.c", false}, PathRow{"mdb.a+b", "mdb", "mdb", "mdb.a+b", false},
        PathRow{"a['+']", "a|['+']", "a.+", "a[name]"},
        PathRow{"mdb.b[1]+c", "mdb|.b|[1]", "mdb.b.1", "mdb.b[1]+c", false},
        PathRow{"a['x'", "a", "a", "a['x'", false}, PathRow{"a(1", "a", "a", "a(1", false},
        PathRow{"a[1]b", "a|[1]", "a.1", "a[1]b", false}));

// Any path built from steps comes apart into those steps.
TEST(PathString, PartsAreTheStepsThatBuiltIt)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round)
    {
        omu_Shortcut shortcut = omu_SimpleTermShortcutImpl("mdb", true);
        const int steps = static_cast<int>(random() % 6);
        for (int step = 0; step < steps; ++step)
        {
            std::string key;
            for (std::size_t length = random() % 5; length > 0; --length)
                key += "a'\"[](+.\\ "[random() % 10];
            switch (random() % 3)
            {
            case 0:
                shortcut = omu_SimpleMemShortcutImpl(shortcut, "member");
                break;
            case 1:
                shortcut = omu_SimpleDictShortcutImpl<cow_String>(shortcut, "", cow_String(key));
                break;
            default:
                shortcut = omu_SimpleSeqShortcutImpl(shortcut, static_cast<int>(random() % 9) - 4, 0);
            }
        }
        const omu_PathString path(shortcut.Path());
        EXPECT_TRUE(path.IsPlain()) << path.AsString();
        EXPECT_EQ(path.GetPathAsList().Length(), steps + 1) << path.AsString();
        EXPECT_EQ(Joined(path.GetPathAsList(), ""), path.AsString().View());
        EXPECT_TRUE(path.InObjectModel());
    }
}

struct KeyRow
{
    const char* path;
    int from;
    int opening;
    int closing;
    const char* first;
    const char* last; // with `from` as the distance from the end
};
class KeyTable : public testing::TestWithParam<KeyRow>
{};

TEST_P(KeyTable, FindsKeys)
{
    const KeyRow& row = GetParam();
    EXPECT_EQ(omu_GetBracketKeyPos(row.path, '[', row.from), row.opening);
    EXPECT_EQ(omu_GetBracketKeyPos(row.path, ']', row.from), row.closing);
    EXPECT_EQ(omu_GetBracketKeyPos(row.path, '(', row.from), -1);
    EXPECT_EQ(omu_GetFirstKeyInPath(row.path, row.from), row.first);
    EXPECT_EQ(omu_GetLastKeyInPath(row.path, row.from), row.last);
}

INSTANTIATE_TEST_SUITE_P(Rows, KeyTable,
                         testing::Values(KeyRow{"a['x'].b[\"y\"]", 0, 1, 5, "'x'", "\"y\""},
                                         KeyRow{"a[\"x\"].b['y']", 0, 1, 5, "\"x\"", "'y'"},
                                         KeyRow{"a['x'].b[\"y\"]", 6, 8, 12, "\"y\"", "'x'"},
                                         KeyRow{"a['x'].b['y']", 99, -1, -1, "", "'y'"},
                                         KeyRow{"a['x']", -1, 1, 5, "'x'", "'x'"},
                                         KeyRow{"a['']", 0, 1, 4, "''", "''"},
                                         KeyRow{"a[3]", 0, -1, -1, "", ""}, KeyRow{"a['x", 0, 1, -1, "", ""},
                                         KeyRow{"", 0, -1, -1, "", ""}));

struct QuoteRow
{
    const char* quoted;
    const char* plain;
    const char* told;
};
class QuoteTable : public testing::TestWithParam<QuoteRow>
{};

TEST_P(QuoteTable, Unquotes)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(omu_StringFromQString(GetParam().quoted), GetParam().plain);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, QuoteTable,
    testing::Values(QuoteRow{"'a b'", "a b", ""}, QuoteRow{"\"it's\"", "it's", ""}, QuoteRow{"''", "", ""},
                    QuoteRow{"'it\\'s'", "it's", ""}, QuoteRow{"'a\\\\b'", "a\\\\b", ""},
                    QuoteRow{"\"a\\'\"", "a\\'", ""}, QuoteRow{"'", "'", "QuotedString length < 2.\n"},
                    QuoteRow{"", "", "QuotedString length < 2.\n"},
                    QuoteRow{"ab", "ab", "omu_StringFromQString(ab)  QuotedString does not use ' or \".\n"},
                    QuoteRow{"'a\"", "'a\"",
                             "omu_StringFromQString('a\")  QuotedString does not use ' or \".\n"}));

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
    const int none = omu_SimpleSeqShortcutImpl::NO_INDEX;
    const struct
    {
        omu_Shortcut shortcut;
        const char* path;
        const char* name;
    } rows[] = {
        {mdb, "mdb", "mdb"},
        {member, "mdb.models", "models"},
        {omu_SimpleDictShortcutImpl(mdb, "models", "M"), "mdb.models['M']", "models['M']"},
        {omu_SimpleDictShortcutImpl(member, "", "it's"), "mdb.models[\"it's\"]", "[\"it's\"]"},
        {omu_SimpleDictShortcutImpl<int>(mdb, "jobs", -3), "mdb.jobs[-3]", "jobs[-3]"},
        {omu_SimpleDictShortcutImpl(mdb, "models", "omu_SimpleShortcut_USE_ID"), "mdb.models", "models"},
        {omu_SimpleSeqShortcutImpl(member, 3, 12), "mdb.models[3]", "[3]"},
        {omu_SimpleSeqShortcutImpl(member, none, 12), "mdb.models", ""},
        {omu_SimpleSeqShortcutImpl(mdb, "models"), "mdb.models", "models"},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.shortcut.Path(), row.path);
        EXPECT_EQ(row.shortcut.PythonPath(), row.path);
        EXPECT_EQ(row.shortcut.Name(), row.name) << row.path;
        EXPECT_TRUE(row.shortcut.InModel()) << row.path;
        EXPECT_FALSE(row.shortcut.InOdb() || row.shortcut.InSession()) << row.path;
    }
    EXPECT_TRUE(rows[1].shortcut == rows[8].shortcut) << "the same path by another kind of step";
    EXPECT_FALSE(mdb == member);

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
    EXPECT_EQ(chain.Path().Length(), 1 + 2 * STEPS);
    EXPECT_TRUE(chain.InModel());
    EXPECT_TRUE(chain == twin);
    twin = omu_SimpleMemShortcutImpl(twin, "b");
    EXPECT_FALSE(chain == twin);
    const omu_PathString path(chain.Path());
    EXPECT_EQ(path.GetPathAsList().Length(), STEPS + 1);
    const omu_Shortcut middle(*chain.Implementation()->Base());
    chain = omu_Shortcut();
    EXPECT_EQ(middle.Path().Length(), 1 + 2 * (STEPS - 1)) << "what others hold outlives the chain";
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
