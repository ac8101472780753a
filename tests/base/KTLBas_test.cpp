#include <KTLBas.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <gtest/gtest.h>
#include <nex_CommandException.h>
#include <nex_PrimException.h>
#include <testing/MemoryStore.h>
#include <typ_ArchCompTable.h>

#include <array>

TEST(KTLBas, CountsTheRealStartAndTheRealStopAlone)
{
    int running = 5;
    KTLBas_initialize(running);
    EXPECT_EQ(running, 6);
    KTLBas_initialize(running);
    EXPECT_EQ(running, 6);
    KTLBas_finalize(running);
    EXPECT_EQ(running, 6);
    KTLBas_finalize(running);
    EXPECT_EQ(running, 5);
}

TEST(KTLBas, StartsAgainAfterAFullStop)
{
    int running = 0;
    for (int round = 0; round < 3; ++round)
    {
        KTLBas_initialize(running);
        EXPECT_EQ(running, 1);
        EXPECT_NE(cls_MetadataRegistrar::Instance().Registrar().Find(nex_PrimException::TypeId()), nullptr);
        KTLBas_finalize(running);
        EXPECT_EQ(running, 0);
    }
}

TEST(KTLBas, AStopWithoutAStartSwallowsTheNextStart)
{
    int running = 0;
    KTLBas_finalize(running); // -1
    KTLBas_finalize(running); // -2
    EXPECT_EQ(running, 0);
    KTLBas_initialize(running); // reads -2
    KTLBas_initialize(running); // reads -1
    EXPECT_EQ(running, 0) << "on purpose: the counter counts calls";
    KTLBas_initialize(running); // reads 0
    EXPECT_EQ(running, 1);
    KTLBas_finalize(running);
    EXPECT_EQ(running, 0);
}

namespace
{
class Started : public testing::Test
{
protected:
    Started() { KTLBas_initialize(running_); }
    ~Started() override { KTLBas_finalize(running_); }

    const cls_ClassRegistrar& Registrar() const { return cls_MetadataRegistrar::Instance().Registrar(); }

private:
    int running_ = 0;
};

struct TableRow
{
    unsigned typeId;
    const char* name;
    unsigned kind;
    unsigned parent;
};
}

TEST_F(Started, EntersTheTwoComponentTables)
{
    const std::array<TableRow, 6> rows = {{{0x1F0001, "KTLBasException", 4, 1},
                                           {0x1F0002, "nex_Exception", 4, 0x1F0001},
                                           {0x1F0003, "nex_CommandException", 4, 0x1F0002},
                                           {0x1F0004, "nex_PrimException", 4, 0x1F0002},
                                           {0x230001, "cow_List", 7, 1},
                                           {0x230002, "cow_Map", 7, 1}}};
    for (const TableRow& row : rows)
    {
        const typ_Entry* found = typ_ArchCompTable::Find(row.typeId);
        ASSERT_NE(found, nullptr) << row.name;
        EXPECT_STREQ(found->name, row.name);
        EXPECT_EQ(found->kind, row.kind) << row.name;
        EXPECT_EQ(cls_MakeTypeId(found->parentComponent, found->parentIndex), row.parent) << row.name;
    }
    EXPECT_EQ(typ_ArchCompTable::FindComponent(0x1F)->Count(), 5u);
    EXPECT_EQ(typ_ArchCompTable::FindComponent(0x23)->Count(), 3u);
    for (const unsigned short component : std::array<unsigned short, 2>{0x1F, 0x23})
    {
        const typ_Entry& reserved = typ_ArchCompTable::FindComponent(component)->Entries()[0];
        EXPECT_EQ(reserved.kind, 0u);
        EXPECT_EQ(reserved.parentIndex, 1);
        EXPECT_EQ(reserved.parentComponent, 0);
        EXPECT_EQ(reserved.name, nullptr);
    }
}

TEST_F(Started, RecordsAgreeWithTheTable)
{
    for (const unsigned typeId : {0x1F0001u, 0x1F0002u, 0x1F0003u, 0x1F0004u})
    {
        const cls_ClassMetadata* record = Registrar().Find(typeId);
        const typ_Entry* row = typ_ArchCompTable::Find(typeId);
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->Name(), row->name);
        EXPECT_EQ(record->ParentTypeId(), cls_MakeTypeId(row->parentComponent, row->parentIndex));
        EXPECT_EQ(record->Adapter()->IsAbstract(), typeId == nex_CommandException::TypeId());
    }
    EXPECT_TRUE(Registrar().InheritanceCheck(nex_CommandException::TypeId(), KTLBasException::TypeId()));
    EXPECT_FALSE(Registrar().InheritanceCheck(nex_PrimException::TypeId(), nex_CommandException::TypeId()));
}

TEST_F(Started, TheBaseAddsNothingToTheStartUpLog)
{
    static_cast<void>(Registrar().Find(nex_PrimException::TypeId()));
    for (const cls_MetadataLogEntry& entry : cls_MetadataRegistrar::Instance().Log())
        EXPECT_NE(cls_ComponentOf(entry.typeId), 0x1F) << entry.name.AsCharPtr();
}

TEST_F(Started, AnExceptionComesBackByTypeId)
{
    nex_PrimException error(atr_String("Error: Cannot coerce."), 3);
    error.SetSource("KTLOxuOmu.m/src/omu_Primitive", 12);
    MemoryStore store;
    const int number = store.Write(error);
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.Describe(number), "KTLBasException\n"
                                      "  m_Message MESSAGE 'Error: Cannot coerce.'\n"
                                      "  m_Code INT 3\n"
                                      "  m_Source STRING 'KTLOxuOmu.m/src/omu_Primitive'\n"
                                      "  m_Line INT 12\n"
                                      "  m_Traceback STRING ''\n"
                                      "nex_Exception\n"
                                      "nex_PrimException\n");
    const std::unique_ptr<cls_Persistent> back = store.Create(number);
    const auto* prim = cls_PersistentCast<nex_PrimException>(back.get());
    ASSERT_NE(prim, nullptr);
    EXPECT_EQ(prim->DeveloperReport(), error.DeveloperReport());
}

TEST_F(Started, AnAbstractClassIsRefusedByName)
{
    MemoryStore store;
    const int number = store.Write(nex_PrimException());
    store.LastPart(number).typeId = nex_CommandException::TypeId();
    try
    {
        static_cast<void>(store.Create(number));
        FAIL() << "created";
    }
    catch (const nex_PrimException& error)
    {
        EXPECT_EQ(error.UserReport(),
                  "cls_AbsTypeAdapter: class nex_CommandException is abstract and cannot be created");
    }
}
