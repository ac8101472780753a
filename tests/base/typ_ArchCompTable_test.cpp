#include <cls_TypeId.h>
#include <gtest/gtest.h>
#include <nex_InternalException.h>
#include <testing/ExpectRaise.h>
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
constexpr typ_Entry LATER[] = {{0, 1, 0, nullptr}, {7, 1, 0, "tst_Other"}, {7, 1, 0, "tst_Second"}};

TEST(typ_ArchCompTable, TakesATableOnceAndRefusesAnother)
{
    typ_ArchCompTable::InsertEntry(OTHER, typ_ArchCompEntry(LATER, 3));
    typ_ArchCompTable::InsertEntry(COMPONENT, typ_ArchCompEntry(ROWS, 7));
    const typ_ArchCompEntry* place = typ_ArchCompTable::FindComponent(COMPONENT);
    typ_ArchCompTable::InsertEntry(COMPONENT, typ_ArchCompEntry(ROWS, 7));
    EXPECT_EQ(typ_ArchCompTable::FindComponent(COMPONENT), place);
    const auto refuses = [](unsigned short component, const typ_Entry* rows, unsigned count,
                            const char* text) {
        EXPECT_RAISE(typ_ArchCompTable::InsertEntry(component, typ_ArchCompEntry(rows, count)),
                     nex_InternalException, text);
    };
    refuses(COMPONENT, LATER, 3, "typ_ArchCompTable: component 32272 has another table already");
    refuses(COMPONENT, ROWS, 6, "typ_ArchCompTable: component 32272 has another table already");
    refuses(0x7E12, nullptr, 3, "typ_ArchCompTable: component 32274 has no rows");
    refuses(0x7E12, ROWS, 0, "typ_ArchCompTable: component 32274 has no rows");
    EXPECT_EQ(typ_ArchCompTable::FindComponent(0x7E12), nullptr);

    for (const unsigned index : {0u, 2u, 3u, 5u, 6u, 7u, 0xFFFFu})
        EXPECT_EQ(typ_ArchCompTable::Find(cls_MakeTypeId(COMPONENT, index)), nullptr) << index;
    EXPECT_EQ(typ_ArchCompTable::Find(cls_MakeTypeId(COMPONENT, 4)), &ROWS[4]);
    EXPECT_EQ(typ_ArchCompTable::Find(cls_MakeTypeId(0x7E13, 1)), nullptr);
    EXPECT_EQ(typ_ArchCompTable::Find(0), nullptr);
    EXPECT_EQ(typ_ArchCompTable::Find(cls_UniversalRoot), nullptr);

    EXPECT_EQ(typ_ArchCompTable::FindByName("tst_Other"), cls_MakeTypeId(OTHER, 1));
    EXPECT_EQ(typ_ArchCompTable::FindByName("tst_Second"), cls_MakeTypeId(COMPONENT, 4)) << "the smallest";
    for (const char* name : {"tst_NoKind", "tst_Secon", ""})
        EXPECT_EQ(typ_ArchCompTable::FindByName(name), 0u) << name;
}

static_assert(cls_MakeTypeId(0x350, 8) == 0x03500008);
static_assert(cls_ComponentOf(0x030A0001) == 0x30A && cls_IndexOf(0x030A0001) == 1);
static_assert(cls_ListTypeId == 0x230001 && cls_MapTypeId == 0x230002);
}
