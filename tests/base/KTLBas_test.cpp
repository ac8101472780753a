#include <KTLBas.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <gtest/gtest.h>
#include <nex_CommandException.h>
#include <nex_PrimException.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>
#include <typ_ArchCompTable.h>

namespace
{
using Started = StartGuard<KTLBas_initialize, KTLBas_finalize>;

TEST(KTLBas, EntersTheTwoComponentTablesAndRecordsThatAgree)
{
    const Started guard;
    struct Row
    {
        unsigned typeId;
        const char* name;
        unsigned kind;
        unsigned parent;
    };
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    for (const Row& row :
         {Row{0x1F0001, "KTLBasException", 4, 1}, Row{0x1F0002, "nex_Exception", 4, 0x1F0001},
          Row{0x1F0003, "nex_CommandException", 4, 0x1F0002}, Row{0x1F0004, "nex_PrimException", 4, 0x1F0002},
          Row{0x230001, "cow_List", 7, 1}, Row{0x230002, "cow_Map", 7, 1}})
    {
        SCOPED_TRACE(row.name);
        const typ_Entry* found = typ_ArchCompTable::Find(row.typeId);
        ASSERT_NE(found, nullptr);
        EXPECT_STREQ(found->name, row.name);
        EXPECT_EQ(found->kind, row.kind);
        EXPECT_EQ(cls_MakeTypeId(found->parentComponent, found->parentIndex), row.parent);
        if (row.kind != 4)
            continue;
        const cls_ClassMetadata* record = registrar.Find(row.typeId);
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->Name(), row.name);
        EXPECT_EQ(record->ParentTypeId(), row.parent);
        EXPECT_EQ(record->Adapter()->IsAbstract(), row.typeId == nex_CommandException::TypeId());
    }
    EXPECT_EQ(typ_ArchCompTable::FindComponent(0x1F)->Count(), 5u);
    EXPECT_EQ(typ_ArchCompTable::FindComponent(0x23)->Count(), 3u);
    // They are not entered in the log, which begins with the modules.
    for (const cls_MetadataLogEntry& entry : cls_MetadataRegistrar::Instance().Log())
        EXPECT_NE(cls_ComponentOf(entry.typeId), 0x1F) << entry.name.AsCharPtr();
}

TEST(KTLBas, AnExceptionComesBackByTypeId)
{
    const Started guard;
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
}
