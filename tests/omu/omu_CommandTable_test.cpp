// The histories, the command table that hosts share, and tables as text.

#include <omu_ChangeHistory.h>
#include <omu_ChangeListener.h>
#include <omu_CmdHistory.h>
#include <omu_Table.h>
#include <testing/SampleRepository.h>
#include <testing/ValueTesting.h>
#include <thread>

namespace
{
TEST(ChangeHistory, KeepsTheLastChangesOfItsThread)
{
    struct : omu_ChangeListener
    {
        void Changed(const omu_PrimTuple& change) override { heard += change.AsString(0).View(); }
        std::string heard;
    } listener;
    omu_ChangeHistory& history = thr_ThreadSingleton<omu_ChangeHistory>::Instance();
    history.Listen(&listener);
    history.addChange(Args("Insert", "A", 0));
    EXPECT_EQ(listener.heard, "('Insert', 'A', 0)");
    history.Listen(nullptr);
    const long long mark = history.NextMark();
    for (int i = 0; i < omu_ChangeHistory::LIMIT; ++i)
        history.addChange(Args(i));
    EXPECT_EQ(history.FirstMark(), mark) << "the one before fell out";
    EXPECT_EQ(history.Since(history.NextMark() - 2).Get(0).AsString(0), "(99998,)");
    std::thread([] { EXPECT_EQ(thr_ThreadSingleton<omu_ChangeHistory>::Instance().NextMark(), 0); }).join();
    omu_ChangeHistory::Destroy();
}

TEST(CmdHistory, Cursor)
{
    omu_CmdHistory history;
    cow_String text;
    history.Add("a", false);
    history.Add("b", true);
    history.Add("c", true);
    EXPECT_TRUE(history.Undo(text) && text == "c" && history.Undo(text) && text == "b");
    EXPECT_FALSE(history.Undo(text)) << "a cannot be undone";
    EXPECT_TRUE(history.Redo(text) && text == "b" && history.Done() == 2);
    history.Add("d", true);
    EXPECT_FALSE(history.Redo(text)) << "c is forgotten";
}

TEST(CommandTable, OffersCommandsAndRoots)
{
    omu_CommandTable table;
    const auto database = sample::NewDatabase();
    sample::Install(table, database);
    omu_Arguments arguments = Args("N");
    EXPECT_EQ(table.Call("Model", arguments), nullptr);
    EXPECT_EQ(database->size(), 2u);
    EXPECT_ERROR(table.Call("mdb", arguments), "NameError: name 'mdb' is not defined");
    // A command may take itself out.
    table.Register("once", [&table](omu_Arguments&) -> omu_Primitive* {
        EXPECT_TRUE(table.Remove("once"));
        return new omu_PrimNumber(1);
    });
    EXPECT_TRUE(std::unique_ptr<omu_Primitive>(table.Call("once", arguments))->IsType('i'));
}

TEST(Table, LinesUpItsColumns)
{
    omu_Table table({"Name", "Value", "Note"});
    table.AddRow();
    table.Put(0, 0, "x");
    table.Put(0, 1, omu_PrimNumber(1.5));
    table.AddRow();
    table.Put(1, 0, "\xC3\xA4\xC3\xA4\xC3\xA4"); // three code points in six bytes
    table.Put(1, 1, omu_PrimEnumBase("SOLID"));
    table.Put(1, 2, "two\nlines");
    EXPECT_EQ(table.AsString(), "Name  Value  Note\n"
                                "x     1.5\n"
                                "\xC3\xA4\xC3\xA4\xC3\xA4   SOLID  two lines\n");
}
}
