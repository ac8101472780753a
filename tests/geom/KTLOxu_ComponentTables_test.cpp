// The component tables, entry by entry: indices are the low halves of type ids in stored data.

#include <annC_ArchEntry.h>
#include <cls_TypeId.h>
#include <g3d_ArchEntry.h>
#include <gsl_ArchEntry.h>
#include <gtest/gtest.h>
#include <mdl_ArchEntry.h>
#include <omu_ArchEntry.h>
#include <sstream>
#include <testing/LibraryGuard.h>
#include <typ_ArchCompTable.h>

namespace
{
struct TableRow
{
    const char* module;
    unsigned short component;
    typ_ArchCompEntry (*table)();
    const char* entries; ///< from index 0: kind, parent component:index in hexadecimal and decimal, name

    friend void PrintTo(const TableRow& row, std::ostream* out) { *out << row.module; }
};

class ComponentTable : public testing::TestWithParam<TableRow>
{
protected:
    LibraryGuard library_;
};

TEST_P(ComponentTable, HoldsEveryEntryAtItsIndexAndIsEnteredAtStart)
{
    const TableRow& row = GetParam();
    const typ_ArchCompEntry table = row.table();
    std::ostringstream text;
    for (unsigned i = 0; i < table.Count(); ++i)
    {
        const typ_Entry& entry = table.Entries()[i];
        text << entry.kind << " " << std::hex << std::uppercase << entry.parentComponent << ":" << std::dec
             << entry.parentIndex << " " << (entry.name == nullptr ? "-" : entry.name) << "; ";
        const unsigned id = cls_MakeTypeId(row.component, i);
        EXPECT_EQ(typ_ArchCompTable::Find(id), entry.kind == 0 ? nullptr : &entry) << "index " << i;
        if (entry.kind == 0)
            continue;
        EXPECT_EQ(typ_ArchCompTable::FindByName(entry.name), id) << entry.name;
        // Every parent is a class of some table, or the root.
        const unsigned parent = cls_MakeTypeId(entry.parentComponent, entry.parentIndex);
        EXPECT_EQ(typ_ArchCompTable::Find(parent) == nullptr, parent == cls_UniversalRoot) << entry.name;
    }
    EXPECT_EQ(text.str(), row.entries);
    EXPECT_EQ(*typ_ArchCompTable::FindComponent(row.component), table);
}

INSTANTIATE_TEST_SUITE_P(
    Modules, ComponentTable,
    testing::Values(
        TableRow{"Ann", 0x350, annC_ArchEntry,
                 "0 0:1 -; 7 0:1 annC_Anchor; 7 0:1 annC_Annotation; 7 A:1 annC_AnnotationContainer; "
                 "7 350:1 annC_NamedAnchor; 7 350:2 annC_Text; 7 350:2 annC_Arrow; "
                 "7 350:1 annC_ViewportAnchor; 7 350:1 annC_Point3DAnchor; "},
        TableRow{"G3d", 0x24, g3d_ArchEntry,
                 "0 0:1 -; 7 0:1 g3d_Vector; 7 0:1 g3d_Point; 4 1F:3 g3d_ColorErrorException; "},
        TableRow{"Gsl", 0x30A, gsl_ArchEntry,
                 "0 0:1 -; 7 0:1 gsl_Point; 7 0:1 gsl_Matrix; 7 30A:1 gsl_Vector; 7 0:1 gsl_Plane; "
                 "7 0:1 gsl_Dot; 7 0:1 gsl_StLine; 7 0:1 gsl_BBox; 7 0:1 gsl_Segment; "
                 "7 0:1 gsl_ArrayPoint; 7 0:1 gsl_LineArray; 7 0:1 gsl_ModelSegment; "
                 "7 0:1 gsl_ModelSegmentArray; 7 0:1 gsl_PlaneArray; 7 0:1 gsl_DotArray; "},
        // Retired entries of this table are zero throughout.
        TableRow{"Mdl", 0x0A, mdl_ArchEntry,
                 "0 0:1 -; 7 A:13 mdl_Repository; 0 0:0 -; 0 0:0 -; 0 0:0 -; 0 0:0 -; 0 0:0 -; "
                 "0 0:0 -; 0 0:0 -; 0 0:0 -; 0 0:0 -; 0 0:0 -; 0 0:0 -; 7 0:1 mdl_Extension; "
                 "7 0:1 mdl_PropString; 7 0:1 mdl_PropDouble; 7 0:1 mdl_PropBool; "
                 "7 0:1 mdl_PropListInt; 7 0:1 mdl_PropertyTable; 7 0:1 mdl_PropInt; "
                 "7 0:1 mdl_Prop1DArrayInt; 7 0:1 mdl_PropListString; 7 0:1 mdl_Prop1DArrayListFloat; "
                 "7 0:1 mdl_PropBoolArray; 7 0:1 mdl_PropStringArray; 7 0:1 mdl_JaggedArray; "},
        // The retired entry 14 of this table keeps the root as its parent.
        TableRow{"Omu", 0x13, omu_ArchEntry,
                 "0 0:1 -; 4 1F:3 omu_TypeErrorException; 4 13:1 omu_KeywordTypeErrorException; "
                 "4 13:1 omu_ArgTypeErrorException; 4 13:1 omu_ArgNumberErrorException; "
                 "4 13:1 omu_KeywordErrorException; 4 1F:3 omu_AttributeErrorException; "
                 "4 1F:3 omu_KeyErrorException; 4 1F:3 omu_IndexErrorException; "
                 "4 1F:3 omu_RangeErrorException; 4 1F:3 omu_ValueErrorException; "
                 "4 1F:3 omu_OverflowErrorException; 4 1F:3 omu_NameErrorException; "
                 "4 1F:3 omu_ZeroDivisionErrorException; 0 0:1 -; 4 1F:3 omu_FontErrorException; "
                 "4 1F:3 omu_AccessErrorException; 7 0:1 omu_Primitive; "
                 "7 13:17 omu_PrimDictionaryBase; 7 13:18 omu_PrimIntDictionary; "
                 "7 13:18 omu_PrimStrDictionary; 7 13:25 omu_PrimList; 7 13:17 omu_PrimNumber; "
                 "7 13:17 omu_PrimPath; 7 13:17 omu_PrimString; 7 13:32 omu_PrimTuple; "
                 "7 13:17 omu_PrimExpr; 7 13:17 omu_PrimEnumBase; 7 0:1 omu_QueryPathMsg; "
                 "7 13:17 omu_PrimNone; 7 13:17 omu_PrimWrapper; 7 13:17 omu_PrimType; "
                 "7 13:17 omu_PrimSequence; 7 13:32 omu_PrimArray; 7 13:17 omu_PrimComplex; "
                 "4 1F:3 omu_OrvNameErrorException; 4 13:1 omu_GenericTypeErrorException; "
                 "7 13:27 omu_OnOffConst; 7 13:27 omu_TrueFalseConst; 7 13:27 omu_YesNoConst; "
                 "4 1F:3 omu_GuiAccessErrorException; 7 13:17 omu_PyObjectWrapper; "
                 "7 13:45 omu_DictPyObjectWrapper; 7 13:19 omu_DictIntPyObjectWrapper; "
                 "7 13:20 omu_DictStrPyObjectWrapper; 7 13:18 omu_PrimDictionary; "
                 "7 13:21 omu_ListPyObjectWrapper; 7 13:17 omu_PrimException; "
                 "7 13:17 omu_PrimTranslatedString; 7 13:17 omu_PrimBoolean; "
                 "7 13:17 omu_PyOrvexException; "}),
    [](const auto& one) { return one.param.module; });
}
