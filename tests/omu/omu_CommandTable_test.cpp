// The histories, the message of a path query, and the table that hosts share.

#include <KTLBas.h>
#include <KTLOxuOmu.h>
#include <nex_RangeException.h>
#include <omu_ChangeHistory.h>
#include <omu_ChangeListener.h>
#include <omu_CmdHistory.h>
#include <omu_QueryPathMsg.h>
#include <testing/ChildTrace.h>
#include <testing/MemoryStore.h>
#include <testing/SampleRepository.h>
#include <testing/StartGuard.h>
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
    EXPECT_EQ(history.Listen(&listener), nullptr);
    omu_PrimTuple delta = Args("Insert", "A", 0);
    history.addChange(delta);
    delta.Put(1);
    EXPECT_EQ(history.Change(0).Length(), 3) << "a copy";
    EXPECT_EQ(listener.heard, "('Insert', 'A', 0)");
    EXPECT_EQ(history.Listen(nullptr), &listener);
    const long long mark = history.NextMark();
    for (int i = 0; i < omu_ChangeHistory::LIMIT; ++i)
        history.addChange(Args(i));
    EXPECT_EQ(history.Length(), omu_ChangeHistory::LIMIT);
    EXPECT_EQ(history.FirstMark(), mark) << "the one before fell out";
    EXPECT_EQ(history.Since(history.NextMark() - 2).Get(0).AsString(0), "(99998,)");
    EXPECT_ERROR(history.Change(-1), "nex_RangeException: index -1 out of range, length 100000");
    history.Clear();
    EXPECT_EQ(history.FirstMark(), history.NextMark());
    std::thread([] { EXPECT_EQ(thr_ThreadSingleton<omu_ChangeHistory>::Instance().NextMark(), 0); }).join();
    omu_ChangeHistory::Destroy();
}

TEST(CmdHistory, Cursor)
{
    omu_CmdHistory history;
    cow_String text;
    EXPECT_FALSE(history.Undo(text) || history.Redo(text));
    history.Add("a", false);
    history.Add("b", true);
    history.Add("c", true);
    EXPECT_TRUE(history.Undo(text) && text == "c" && history.Undo(text) && text == "b");
    EXPECT_FALSE(history.Undo(text)) << "a cannot be undone";
    EXPECT_TRUE(history.Redo(text) && text == "b" && history.Done() == 2);
    history.Add("d", true);
    EXPECT_FALSE(history.Redo(text)) << "c is forgotten";
    EXPECT_EQ(history.Length(), 3);
    EXPECT_TRUE(history.IsUndoable(2) && !history.IsUndoable(0));
}

TEST(CmdHistoryDeathTest, TellsWhatIsAdded)
{
    EXPECT_CHILD_TRACE("ORX_DBG_CMDHISTORYADD", "", omu_CmdHistory().Add("x=1", true),
                       "omu_CmdHistory::Add(x=1, undoable=1) length:1\n");
}

TEST(QueryPathMsg, ComesBackEqual)
{
    const StartGuard<KTLBas_initialize, KTLBas_finalize> base;
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu;
    MemoryStore store;
    const omu_QueryPathMsg message(true);
    const int number = store.Write(message);
    EXPECT_EQ(store.Describe(number), "omu_QueryPathMsg\n  valueIsDelta BOOL true\n");
    const std::unique_ptr<cls_Persistent> back = store.Create(number);
    const auto& read = dynamic_cast<const omu_QueryPathMsg&>(*back);
    EXPECT_TRUE(read.ValueIsDelta());
    EXPECT_EQ(read.Uid(), message.Uid());
    EXPECT_NE(omu_QueryPathMsg(message).Uid(), message.Uid());
}

TEST(CommandTable, OffersCommandsAndRoots)
{
    omu_CommandTable table;
    EXPECT_EQ(&omu_CommandTable::Instance(), &table);
    const auto database = sample::NewDatabase();
    sample::Install(table, database);
    EXPECT_EQ(table.CommandNames(), cow_List<cow_String>{"Model"});
    EXPECT_EQ(table.RootNames(), cow_List<cow_String>{"mdb"});
    omu_Arguments arguments = Args("N");
    EXPECT_EQ(table.Call("Model", arguments), nullptr);
    EXPECT_EQ(database->models.size(), 2u);
    EXPECT_EQ(table.Root("mdb")->AsRepr(), "mdb");
    EXPECT_EQ(table.Root("session"), nullptr);
    EXPECT_ERROR(table.Call("mdb", arguments), "NameError: name 'mdb' is not defined");
    EXPECT_TRUE(table.Remove("mdb") && !table.Remove("mdb"));
    // A command may take itself out.
    table.Register("once", [&table](omu_Arguments&) -> omu_Primitive* {
        EXPECT_TRUE(table.Remove("once"));
        return new omu_PrimNumber(1);
    });
    EXPECT_TRUE(std::unique_ptr<omu_Primitive>(table.Call("once", arguments))->IsType('i'));
    EXPECT_FALSE(table.HasCommand("once"));
}
}
