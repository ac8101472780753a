// What starting the library registers: which classes, in which order, with which phase.

#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <testing/LibraryGuard.h>
#include <typ_ArchCompTable.h>

namespace
{
// Name and phase, in the order of the modules and their classes.
constexpr char LOG[] =
    "g3d_ColorErrorException 2; g3d_Point 4; g3d_Vector 4; omu_ArgNumberErrorException 2; "
    "omu_ArgTypeErrorException 2; omu_GenericTypeErrorException 2; omu_KeywordErrorException 2; "
    "omu_KeywordTypeErrorException 2; omu_TypeErrorException 2; omu_OrvNameErrorException 2; "
    "omu_AttributeErrorException 2; omu_RangeErrorException 2; omu_AccessErrorException 2; "
    "omu_FontErrorException 2; omu_GuiAccessErrorException 2; omu_IndexErrorException 2; "
    "omu_KeyErrorException 2; omu_NameErrorException 2; omu_OverflowErrorException 2; "
    "omu_ValueErrorException 2; omu_ZeroDivisionErrorException 2; omu_Primitive 7; omu_PrimNumber 3; "
    "omu_PrimString 3; omu_PrimEnum 7; omu_PrimDictionaryBase 3; omu_PrimStrDictionary 3; "
    "omu_PrimBoolean 2; omu_PrimType 2; omu_PrimNone 2; omu_PrimPath 2; omu_PrimComplex 2; "
    "omu_PrimExpr 2; omu_PrimTranslatedString 2; omu_PrimSequence 2; omu_PrimTuple 2; omu_PrimList 2; "
    "omu_PrimArray 2; omu_PrimIntDictionary 2; omu_PrimWrapper 2; omu_PrimException 2; omu_OnOffConst 2; "
    "omu_QueryPathMsg 2; gsl_BBox 3; gsl_ModelSegment 7; gsl_Plane 3; gsl_PlaneArray 3; gsl_Point 7; "
    "gsl_Segment 3; gsl_StLine 3; gsl_LineArray 3; gsl_Vector 7; gsl_Dot 7; gsl_DotArray 3; ";

[[noreturn]] void StartAndPrintLog()
{
    int running = 0;
    KTLOxuGeom_initialize(running);
    int sequence = 0;
    for (const cls_MetadataLogEntry& entry : cls_MetadataRegistrar::Instance().Log())
    {
        std::fprintf(stderr, "%s %u; ", entry.name.AsCharPtr(), entry.phase);
        if (entry.sequence != ++sequence)
            std::exit(1);
    }
    std::exit(0);
}

// In a fresh process: here other tests may have started single modules before.
TEST(RegistrationLog, HasTheOrderOfTheModulesAndTheirClasses)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(StartAndPrintLog(), testing::ExitedWithCode(0), testing::Eq(LOG));
}

class Registration : public testing::Test
{
protected:
    const cls_ClassMetadata* Find(const char* name) { return registrar_.Find(cow_String(name)); }

    LibraryGuard library_;
    const cls_MetadataRegistrar& metadata_ = cls_MetadataRegistrar::Instance();
    const cls_ClassRegistrar& registrar_ = cls_MetadataRegistrar::Instance().Registrar();
};

TEST_F(Registration, EveryDeclaredClassHasARowInItsTable)
{
    for (const cls_MetadataLogEntry& entry : metadata_.Log())
    {
        SCOPED_TRACE(entry.name.AsCharPtr());
        const typ_Entry* row = typ_ArchCompTable::Find(entry.typeId);
        const cls_ClassMetadata* meta = registrar_.Find(entry.typeId);
        ASSERT_TRUE(row != nullptr && meta != nullptr);
        EXPECT_EQ(meta->ParentTypeId(), cls_MakeTypeId(row->parentComponent, row->parentIndex));
        EXPECT_EQ(Find(row->name), meta) << "found by the name in the table";
        EXPECT_EQ(meta->Name(), entry.name == "omu_PrimEnum" ? "omu_PrimEnum" : row->name);
    }
    EXPECT_EQ(Find("omu_PrimEnumBase"), Find("omu_PrimEnum"));
}

struct VersionRow
{
    const char* name;
    unsigned version;
    bool hook;

    friend void PrintTo(const VersionRow& row, std::ostream* out) { *out << row.name; }
};
class ClassVersion : public testing::TestWithParam<VersionRow>
{
protected:
    LibraryGuard library_;
};

TEST_P(ClassVersion, IsTheReleaseOfItsLayout)
{
    const cls_ClassMetadata* meta =
        cls_MetadataRegistrar::Instance().Registrar().Find(cow_String(GetParam().name));
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Version(), GetParam().version);
    EXPECT_EQ(meta->Dtor() != nullptr, GetParam().hook);
}

INSTANTIATE_TEST_SUITE_P(
    Classes, ClassVersion,
    testing::Values(VersionRow{"omu_TypeErrorException", 800, false},
                    VersionRow{"omu_KeyErrorException", 800, false}, VersionRow{"omu_Primitive", 514, true},
                    VersionRow{"omu_PrimNumber", 835, false}, VersionRow{"omu_PrimString", 800, false},
                    VersionRow{"omu_PrimEnum", 514, true}, VersionRow{"omu_PrimBoolean", 800, true},
                    VersionRow{"omu_PrimNone", 800, false}, VersionRow{"omu_OnOffConst", 800, false},
                    VersionRow{"g3d_Point", 203, true}, VersionRow{"g3d_Vector", 203, true},
                    VersionRow{"gsl_Point", 203, true}, VersionRow{"gsl_Vector", 203, false},
                    VersionRow{"gsl_Matrix", 203, false}, VersionRow{"gsl_Dot", 203, true},
                    VersionRow{"gsl_Plane", 800, true}, VersionRow{"gsl_StLine", 800, true},
                    VersionRow{"gsl_BBox", 800, false}, VersionRow{"gsl_Segment", 800, false},
                    VersionRow{"gsl_ModelSegment", 332, true}, VersionRow{"gsl_PlaneArray", 800, false},
                    VersionRow{"gsl_ArrayPoint", 800, false}));

// They have a type id and no metadata.
TEST_F(Registration, SomeEntriesOfTheOmuTableAreNotDeclared)
{
    for (const char* name :
         {"omu_TrueFalseConst", "omu_YesNoConst", "omu_PyObjectWrapper", "omu_DictPyObjectWrapper",
          "omu_DictIntPyObjectWrapper", "omu_DictStrPyObjectWrapper", "omu_ListPyObjectWrapper",
          "omu_PrimDictionary", "omu_PyOrvexException"})
    {
        EXPECT_NE(typ_ArchCompTable::FindByName(name), 0u) << name;
        EXPECT_EQ(Find(name), nullptr) << name;
    }
}

// Stored, but not declared at start-up.
TEST_F(Registration, SomeClassesAreDeclaredByTheirFirstLookUp)
{
    for (const char* late : {"gsl_Matrix", "gsl_ArrayPoint", "gsl_ModelSegmentArray"})
    {
        const cls_ClassMetadata* byId = registrar_.Find(typ_ArchCompTable::FindByName(late));
        ASSERT_NE(byId, nullptr) << late;
        EXPECT_EQ(byId->Name(), late);
        EXPECT_EQ(Find(late), byId);
    }
}

TEST_F(Registration, InheritanceFollowsTheRegisteredParents)
{
    EXPECT_TRUE(registrar_.InheritanceCheck(0x030A0003, 0x030A0001)) << "a vector is registered as a point";
    EXPECT_TRUE(registrar_.InheritanceCheck(0x00130004, 0x001F0003)) << "an argument error, a command's";
    EXPECT_TRUE(registrar_.InheritanceCheck(0x0013002C, 0x00130012)) << "without metadata, by the table";
    EXPECT_FALSE(registrar_.InheritanceCheck(0x00130016, 0x00130018)) << "a number is no string";
}
}
