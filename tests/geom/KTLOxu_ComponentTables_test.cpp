// The component tables, entry by entry: indices are the low halves of type ids in stored data.

#include <annC_ArchEntry.h>
#include <g3d_ArchEntry.h>
#include <gsl_ArchEntry.h>
#include <gtest/gtest.h>
#include <mdl_ArchEntry.h>
#include <omu_ArchEntry.h>
#include <sstream>
#include <string>
#include <testing/LibraryGuard.h>
#include <typ_ArchCompTable.h>

namespace
{
struct TableRow
{
    const char* module;
    unsigned short component;
    typ_ArchCompEntry (*table)();
    unsigned count;
    const char* entries; ///< from index 0: kind, parent component:index in hexadecimal and decimal, name

    friend void PrintTo(const TableRow& row, std::ostream* out) { *out << row.module; }
};

std::string Text(const typ_ArchCompEntry& table)
{
    std::ostringstream text;
    for (unsigned i = 0; i < table.Count(); ++i)
    {
        const typ_Entry& entry = table.Entries()[i];
        text << std::dec << i << " " << entry.kind << " " << std::hex << std::uppercase
             << entry.parentComponent << ":" << std::dec << entry.parentIndex << " "
             << (entry.name == nullptr ? "-" : entry.name) << "\n";
    }
    return text.str();
}

class ComponentTable : public testing::TestWithParam<TableRow>
{
protected:
    LibraryGuard library_;
};

TEST_P(ComponentTable, HoldsEveryEntryAtItsIndex)
{
    const TableRow& row = GetParam();
    EXPECT_EQ(row.table().Count(), row.count);
    EXPECT_EQ(Text(row.table()), row.entries);
}

TEST_P(ComponentTable, IsEnteredAtStart)
{
    const TableRow& row = GetParam();
    const typ_ArchCompEntry* entered = typ_ArchCompTable::FindComponent(row.component);
    ASSERT_NE(entered, nullptr);
    EXPECT_EQ(*entered, row.table());
    for (unsigned i = 0; i < row.count; ++i)
    {
        const typ_Entry& entry = row.table().Entries()[i];
        const unsigned id = (static_cast<unsigned>(row.component) << 16) | i;
        EXPECT_EQ(typ_ArchCompTable::Find(id), entry.kind == 0 ? nullptr : &entry) << "index " << i;
        if (entry.kind != 0)
        {
            EXPECT_EQ(typ_ArchCompTable::FindByName(entry.name), id) << entry.name;
        }
    }
    EXPECT_EQ(typ_ArchCompTable::Find((static_cast<unsigned>(row.component) << 16) | row.count), nullptr);
}

// Every parent is a class of its own table, the root, or the base library's command exception.
TEST_P(ComponentTable, NamesParentsThatExist)
{
    const TableRow& row = GetParam();
    for (unsigned i = 0; i < row.count; ++i)
    {
        const typ_Entry& entry = row.table().Entries()[i];
        if (entry.kind == 0 || (entry.parentComponent == 0 && entry.parentIndex == 1))
            continue;
        const unsigned parent = (static_cast<unsigned>(entry.parentComponent) << 16) | entry.parentIndex;
        EXPECT_NE(typ_ArchCompTable::Find(parent), nullptr) << entry.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Modules, ComponentTable,
                         testing::Values(TableRow{"Ann", 0x350, annC_ArchEntry, 9,
                                                  "0 0 0:1 -\n"
                                                  "1 7 0:1 annC_Anchor\n"
                                                  "2 7 0:1 annC_Annotation\n"
                                                  "3 7 A:1 annC_AnnotationContainer\n"
                                                  "4 7 350:1 annC_NamedAnchor\n"
                                                  "5 7 350:2 annC_Text\n"
                                                  "6 7 350:2 annC_Arrow\n"
                                                  "7 7 350:1 annC_ViewportAnchor\n"
                                                  "8 7 350:1 annC_Point3DAnchor\n"},
                                         TableRow{"G3d", 0x24, g3d_ArchEntry, 4,
                                                  "0 0 0:1 -\n"
                                                  "1 7 0:1 g3d_Vector\n"
                                                  "2 7 0:1 g3d_Point\n"
                                                  "3 4 1F:3 g3d_ColorErrorException\n"},
                                         TableRow{"Gsl", 0x30A, gsl_ArchEntry, 15,
                                                  "0 0 0:1 -\n"
                                                  "1 7 0:1 gsl_Point\n"
                                                  "2 7 0:1 gsl_Matrix\n"
                                                  "3 7 30A:1 gsl_Vector\n"
                                                  "4 7 0:1 gsl_Plane\n"
                                                  "5 7 0:1 gsl_Dot\n"
                                                  "6 7 0:1 gsl_StLine\n"
                                                  "7 7 0:1 gsl_BBox\n"
                                                  "8 7 0:1 gsl_Segment\n"
                                                  "9 7 0:1 gsl_ArrayPoint\n"
                                                  "10 7 0:1 gsl_LineArray\n"
                                                  "11 7 0:1 gsl_ModelSegment\n"
                                                  "12 7 0:1 gsl_ModelSegmentArray\n"
                                                  "13 7 0:1 gsl_PlaneArray\n"
                                                  "14 7 0:1 gsl_DotArray\n"},
                                         // Retired entries of this table are zero throughout.
                                         TableRow{"Mdl", 0x0A, mdl_ArchEntry, 26,
                                                  "0 0 0:1 -\n"
                                                  "1 7 A:13 mdl_Repository\n"
                                                  "2 0 0:0 -\n"
                                                  "3 0 0:0 -\n"
                                                  "4 0 0:0 -\n"
                                                  "5 0 0:0 -\n"
                                                  "6 0 0:0 -\n"
                                                  "7 0 0:0 -\n"
                                                  "8 0 0:0 -\n"
                                                  "9 0 0:0 -\n"
                                                  "10 0 0:0 -\n"
                                                  "11 0 0:0 -\n"
                                                  "12 0 0:0 -\n"
                                                  "13 7 0:1 mdl_Extension\n"
                                                  "14 7 0:1 mdl_PropString\n"
                                                  "15 7 0:1 mdl_PropDouble\n"
                                                  "16 7 0:1 mdl_PropBool\n"
                                                  "17 7 0:1 mdl_PropListInt\n"
                                                  "18 7 0:1 mdl_PropertyTable\n"
                                                  "19 7 0:1 mdl_PropInt\n"
                                                  "20 7 0:1 mdl_Prop1DArrayInt\n"
                                                  "21 7 0:1 mdl_PropListString\n"
                                                  "22 7 0:1 mdl_Prop1DArrayListFloat\n"
                                                  "23 7 0:1 mdl_PropBoolArray\n"
                                                  "24 7 0:1 mdl_PropStringArray\n"
                                                  "25 7 0:1 mdl_JaggedArray\n"},
                                         // The retired entry 14 of this table keeps the root as its parent.
                                         TableRow{"Omu", 0x13, omu_ArchEntry, 51,
                                                  "0 0 0:1 -\n"
                                                  "1 4 1F:3 omu_TypeErrorException\n"
                                                  "2 4 13:1 omu_KeywordTypeErrorException\n"
                                                  "3 4 13:1 omu_ArgTypeErrorException\n"
                                                  "4 4 13:1 omu_ArgNumberErrorException\n"
                                                  "5 4 13:1 omu_KeywordErrorException\n"
                                                  "6 4 1F:3 omu_AttributeErrorException\n"
                                                  "7 4 1F:3 omu_KeyErrorException\n"
                                                  "8 4 1F:3 omu_IndexErrorException\n"
                                                  "9 4 1F:3 omu_RangeErrorException\n"
                                                  "10 4 1F:3 omu_ValueErrorException\n"
                                                  "11 4 1F:3 omu_OverflowErrorException\n"
                                                  "12 4 1F:3 omu_NameErrorException\n"
                                                  "13 4 1F:3 omu_ZeroDivisionErrorException\n"
                                                  "14 0 0:1 -\n"
                                                  "15 4 1F:3 omu_FontErrorException\n"
                                                  "16 4 1F:3 omu_AccessErrorException\n"
                                                  "17 7 0:1 omu_Primitive\n"
                                                  "18 7 13:17 omu_PrimDictionaryBase\n"
                                                  "19 7 13:18 omu_PrimIntDictionary\n"
                                                  "20 7 13:18 omu_PrimStrDictionary\n"
                                                  "21 7 13:25 omu_PrimList\n"
                                                  "22 7 13:17 omu_PrimNumber\n"
                                                  "23 7 13:17 omu_PrimPath\n"
                                                  "24 7 13:17 omu_PrimString\n"
                                                  "25 7 13:32 omu_PrimTuple\n"
                                                  "26 7 13:17 omu_PrimExpr\n"
                                                  "27 7 13:17 omu_PrimEnumBase\n"
                                                  "28 7 0:1 omu_QueryPathMsg\n"
                                                  "29 7 13:17 omu_PrimNone\n"
                                                  "30 7 13:17 omu_PrimWrapper\n"
                                                  "31 7 13:17 omu_PrimType\n"
                                                  "32 7 13:17 omu_PrimSequence\n"
                                                  "33 7 13:32 omu_PrimArray\n"
                                                  "34 7 13:17 omu_PrimComplex\n"
                                                  "35 4 1F:3 omu_OrvNameErrorException\n"
                                                  "36 4 13:1 omu_GenericTypeErrorException\n"
                                                  "37 7 13:27 omu_OnOffConst\n"
                                                  "38 7 13:27 omu_TrueFalseConst\n"
                                                  "39 7 13:27 omu_YesNoConst\n"
                                                  "40 4 1F:3 omu_GuiAccessErrorException\n"
                                                  "41 7 13:17 omu_PyObjectWrapper\n"
                                                  "42 7 13:45 omu_DictPyObjectWrapper\n"
                                                  "43 7 13:19 omu_DictIntPyObjectWrapper\n"
                                                  "44 7 13:20 omu_DictStrPyObjectWrapper\n"
                                                  "45 7 13:18 omu_PrimDictionary\n"
                                                  "46 7 13:21 omu_ListPyObjectWrapper\n"
                                                  "47 7 13:17 omu_PrimException\n"
                                                  "48 7 13:17 omu_PrimTranslatedString\n"
                                                  "49 7 13:17 omu_PrimBoolean\n"
                                                  "50 7 13:17 omu_PyOrvexException\n"}),
                         [](const auto& one) { return one.param.module; });
}
