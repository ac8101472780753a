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
// The parts, with "|" between.
std::string PartsOf(const cow_String& path)
{
    std::string text;
    const omu_PathString split(path);
    for (const cow_String& part : split.GetPathAsList())
        text.append(text.empty() ? "" : "|").append(part.View());
    return text;
}

TEST(PathString, SplitsAndWrites)
{
    const struct
    {
        const char* path;
        const char* parts;
        const char* dotted;
        const char* generic;
        bool inModel = false;
    } plain[] = {{"mdbx", "mdbx", "mdbx", "mdbx"},
                 {"mdb.models['M1']", "mdb|.models|['M1']", "mdb.models.M1", "mdb.models[name]", true},
                 {"_a[3][-1].b", "_a|[3]|[-1]|.b", "_a.3.-1.b", "_a[i][i].b"},
                 {"a['x]y'].b[\"q[\"]", "a|['x]y']|.b|[\"q[\"]", "a.x]y.b.q[", "a[name].b[name]"},
                 {"a['it\\'s]'].b", "a|['it\\'s]']|.b", "a.it's].b", "a[name].b"},
                 {"f(g(1), ')').x()", "f|(g(1), ')')|.x|()", "f.g(1), ')'.x", "f(g(1), ')').x()"},
                 {"session.Odb(1)", "session|.Odb|(1)", "session.Odb.1", "session.Odb(1)", true},
                 // From there on one part.
                 {"a.getSequenceFromMask(('[#1 ]', ), )[0]", "a|.getSequenceFromMask(('[#1 ]', ), )[0]",
                  "a.getSequenceFromMask(('[#1 ]', ), )[0]", "a.getSequenceFromMask(('[#1 ]', ), )[0]"}};
    for (const auto& row : plain)
    {
        const omu_PathString path(row.path);
        EXPECT_EQ(PartsOf(row.path), row.parts);
        EXPECT_EQ(path.AsDottedString(), row.dotted);
        EXPECT_EQ(path.AsGenericString(), row.generic);
        EXPECT_EQ(path.InObjectModel(), row.inModel) << row.path;
        EXPECT_TRUE(path.IsPlain()) << row.path;
    }
    // Not plain: nothing, or what stands before the place.
    for (const auto& [text, parts] :
         {std::pair("", ""), {"'a'", ""}, {"mdb.b[1]+c", "mdb|.b|[1]"}, {"a['x'", "a"}, {"a[1]b", "a|[1]"}})
    {
        EXPECT_EQ(PartsOf(text), parts) << text;
        EXPECT_FALSE(omu_PathString(text).IsPlain() || omu_PathString(text).InObjectModel()) << text;
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
        EXPECT_EQ(PartsOf(shortcut.Path()), parts);
        EXPECT_TRUE(path.IsPlain() && path.InObjectModel() && shortcut.InModel()) << parts;
    }
}

TEST(PathFunctions, KeysAndQuotes)
{
    EXPECT_EQ(omu_GetFirstKeyInPath("a['x'].b[\"y\"]", 0), "'x'");
    EXPECT_EQ(omu_GetLastKeyInPath("a['x'].b[\"y\"]", 6), "'x'") << "from the end";
    EXPECT_EQ(omu_StringFromQString("'it\\'s'"), "it's");
    // Doubled backslashes stay, and double quotes escape nothing, on purpose.
    EXPECT_EQ(omu_StringFromQString("'a\\\\b'"), "a\\\\b");
    EXPECT_EQ(omu_StringFromQString("\"a\\'\""), "a\\'");
    testing::internal::CaptureStderr();
    EXPECT_EQ(omu_StringFromQString("'"), "'");
    EXPECT_EQ(omu_StringFromQString("'a\""), "'a\"");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "QuotedString length < 2.\n"
              "omu_StringFromQString('a\")  QuotedString does not use ' or \".\n");
    EXPECT_EQ(omu_fixOpenOdb("session.openOdb( 'a,b).odb' , True)"), "session.odbs['a,b).odb']");
    EXPECT_EQ(omu_fixOpenOdb("session.openOdb(name='a=b', readOnly=ON).x"), "session.odbs['a=b'].x");
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
    EXPECT_TRUE(chain == omu_SimpleDictShortcutImpl(chain, "", "omu_SimpleShortcut_USE_ID")) << "by path";
    EXPECT_TRUE(chain == omu_SimpleSeqShortcutImpl(chain, omu_SimpleSeqShortcutImpl::NO_INDEX, 12));
    EXPECT_EQ(omu_PathString(chain.Path()).GetPathAsList().Length(), STEPS + 1);
}

TEST(ShortcutTraceDeathTest, TellsEachPath)
{
    const auto chain = [] {
        const omu_Shortcut member = omu_SimpleMemShortcutImpl(omu_SimpleTermShortcutImpl("a"), "b");
        const omu_Shortcut text = omu_SimpleDictShortcutImpl(member, "", "k");
        return omu_Shortcut(omu_SimpleSeqShortcutImpl(omu_SimpleDictShortcutImpl<int>(text, "", 4), 5, 0));
    };
    EXPECT_CHILD_TRACE("ORX_PATHREPR_SIMPLEPATH", "", chain().Path(),
                       "omu_SimpleTermShortcutImpl. Path: a\n"
                       "omu_SimpleMemShortcut. Path: a.b\n"
                       "omu_SimpleDictShortcut(cow_String). Path: a.b['k']\n"
                       "omu_SimpleDictShortcut(int). Path: a.b['k'][4]\n"
                       "omu_SimpleSeqShortcut. Path: a.b['k'][4][5]\n");
}
}
