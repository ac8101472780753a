#include <cls_TypeId.h>
#include <gtest/gtest.h>
#include <nex_InternalException.h>
#include <typ_ArchCompTable.h>

namespace
{
constexpr unsigned short COMPONENT = 0x7E10;
constexpr unsigned short OTHER = 0x7E11;

// The three ways in which tables spell an empty slot, and rows that lack one half of an entry.
constexpr typ_Entry ROWS[] = {
    {0, 1, 0, nullptr},           {7, 1, 0, "tst_First"},  {0, 1, 0, nullptr}, {0, 0, 0, nullptr},
    {4, 1, 0x7E10, "tst_Second"}, {0, 1, 0, "tst_NoKind"}, {7, 1, 0, nullptr},
};
constexpr typ_Entry SAME_ROWS[] = {{0, 1, 0, nullptr}, {7, 1, 0, "tst_First"}};

typ_ArchCompEntry Table()
{
    return typ_ArchCompEntry(ROWS, 7);
}

cow_String RefusalOf(unsigned short component, typ_ArchCompEntry entry)
{
    try
    {
        typ_ArchCompTable::InsertEntry(component, entry);
    }
    catch (const nex_InternalException& error)
    {
        return error.UserReport();
    }
    return "accepted";
}
}

TEST(typ_ArchCompTable, TheSameTableAgainChangesNothing)
{
    typ_ArchCompTable::InsertEntry(COMPONENT, Table());
    const typ_ArchCompEntry* place = typ_ArchCompTable::FindComponent(COMPONENT);
    typ_ArchCompTable::InsertEntry(COMPONENT, Table());
    EXPECT_EQ(typ_ArchCompTable::FindComponent(COMPONENT), place);
    EXPECT_EQ(*place, Table());
}

TEST(typ_ArchCompTable, AnotherTableUnderAnOccupiedIdIsRefused)
{
    typ_ArchCompTable::InsertEntry(COMPONENT, Table());
    EXPECT_EQ(RefusalOf(COMPONENT, typ_ArchCompEntry(SAME_ROWS, 2)),
              "typ_ArchCompTable: component 32272 has another table already");
    EXPECT_EQ(RefusalOf(COMPONENT, typ_ArchCompEntry(ROWS, 6)),
              "typ_ArchCompTable: component 32272 has another table already")
        << "the same rows, one less";
    EXPECT_EQ(*typ_ArchCompTable::FindComponent(COMPONENT), Table());
}

TEST(typ_ArchCompTable, ATableWithoutRowsIsRefused)
{
    EXPECT_EQ(RefusalOf(0x7E12, typ_ArchCompEntry(nullptr, 3)),
              "typ_ArchCompTable: component 32274 has no rows");
    EXPECT_EQ(RefusalOf(0x7E12, typ_ArchCompEntry(ROWS, 0)),
              "typ_ArchCompTable: component 32274 has no rows");
    EXPECT_EQ(typ_ArchCompTable::FindComponent(0x7E12), nullptr);
}

struct SlotRow
{
    const char* what;
    unsigned typeId;
    const char* name; // null: refused
};

class Slots : public testing::TestWithParam<SlotRow>
{};

TEST_P(Slots, AreFoundByTypeIdOrRefused)
{
    typ_ArchCompTable::InsertEntry(COMPONENT, Table());
    const typ_Entry* row = typ_ArchCompTable::Find(GetParam().typeId);
    if (GetParam().name == nullptr)
    {
        EXPECT_EQ(row, nullptr);
    }
    else
    {
        ASSERT_NE(row, nullptr);
        EXPECT_STREQ(row->name, GetParam().name);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, Slots,
                         testing::Values(SlotRow{"first", cls_MakeTypeId(COMPONENT, 1), "tst_First"},
                                         SlotRow{"second", cls_MakeTypeId(COMPONENT, 4), "tst_Second"},
                                         SlotRow{"reserved", cls_MakeTypeId(COMPONENT, 0), nullptr},
                                         SlotRow{"empty_with_parent", cls_MakeTypeId(COMPONENT, 2), nullptr},
                                         SlotRow{"empty_all_zero", cls_MakeTypeId(COMPONENT, 3), nullptr},
                                         SlotRow{"no_kind", cls_MakeTypeId(COMPONENT, 5), nullptr},
                                         SlotRow{"no_name", cls_MakeTypeId(COMPONENT, 6), nullptr},
                                         SlotRow{"one_past_the_end", cls_MakeTypeId(COMPONENT, 7), nullptr},
                                         SlotRow{"last_index", cls_MakeTypeId(COMPONENT, 0xFFFF), nullptr},
                                         SlotRow{"no_such_component", cls_MakeTypeId(0x7E13, 1), nullptr},
                                         SlotRow{"zero", 0, nullptr},
                                         SlotRow{"root", cls_UniversalRoot, nullptr}),
                         [](const auto& row) { return row.param.what; });

TEST(typ_ArchCompTable, NamesAreFoundInFullSlotsOnlyAndInTheSmallestComponentFirst)
{
    static constexpr typ_Entry LATER[] = {
        {0, 1, 0, nullptr}, {7, 1, 0, "tst_Other"}, {7, 1, 0, "tst_Second"}};
    typ_ArchCompTable::InsertEntry(OTHER, typ_ArchCompEntry(LATER, 3));
    typ_ArchCompTable::InsertEntry(COMPONENT, Table());
    EXPECT_EQ(typ_ArchCompTable::FindByName("tst_Other"), cls_MakeTypeId(OTHER, 1));
    EXPECT_EQ(typ_ArchCompTable::FindByName("tst_Second"), cls_MakeTypeId(COMPONENT, 4));
    EXPECT_EQ(typ_ArchCompTable::FindByName("tst_NoKind"), 0u);
    EXPECT_EQ(typ_ArchCompTable::FindByName("tst_Secon"), 0u);
    EXPECT_EQ(typ_ArchCompTable::FindByName(""), 0u);
}

TEST(cls_TypeId, SplitsIntoComponentAndIndex)
{
    static_assert(cls_MakeTypeId(0x13, 17) == 0x00130011);
    static_assert(cls_MakeTypeId(0x350, 8) == 0x03500008);
    static_assert(cls_ComponentOf(0x030A0001) == 0x30A && cls_IndexOf(0x030A0001) == 1);
    static_assert(cls_ListTypeId == 0x230001 && cls_MapTypeId == 0x230002);
    EXPECT_EQ(cls_MakeTypeId(0xFFFF, 0xFFFF), 0xFFFFFFFFu);
}
