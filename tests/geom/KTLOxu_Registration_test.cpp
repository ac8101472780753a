// What starting the library registers: which classes, in which order, with which phase.

#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <testing/LibraryGuard.h>
#include <typ_ArchCompTable.h>
#include <vector>

namespace
{
class Registration : public testing::Test
{
protected:
    cls_MetadataRegistrar& Metadata() { return cls_MetadataRegistrar::Instance(); }
    const cls_ClassMetadata* Find(const char* name) { return Metadata().Registrar().Find(cow_String(name)); }

    LibraryGuard library_;
};

struct LogRow
{
    unsigned typeId;
    const char* name;
    unsigned phase;
};

constexpr LogRow LOG[] = {
    {0x00240003, "g3d_ColorErrorException", 2},
    {0x00240002, "g3d_Point", 4},
    {0x00240001, "g3d_Vector", 4},
    {0x00130004, "omu_ArgNumberErrorException", 2},
    {0x00130003, "omu_ArgTypeErrorException", 2},
    {0x00130024, "omu_GenericTypeErrorException", 2},
    {0x00130005, "omu_KeywordErrorException", 2},
    {0x00130002, "omu_KeywordTypeErrorException", 2},
    {0x00130001, "omu_TypeErrorException", 2},
    {0x00130023, "omu_OrvNameErrorException", 2},
    {0x00130006, "omu_AttributeErrorException", 2},
    {0x00130009, "omu_RangeErrorException", 2},
    {0x00130010, "omu_AccessErrorException", 2},
    {0x0013000F, "omu_FontErrorException", 2},
    {0x00130028, "omu_GuiAccessErrorException", 2},
    {0x00130008, "omu_IndexErrorException", 2},
    {0x00130007, "omu_KeyErrorException", 2},
    {0x0013000C, "omu_NameErrorException", 2},
    {0x0013000B, "omu_OverflowErrorException", 2},
    {0x0013000A, "omu_ValueErrorException", 2},
    {0x0013000D, "omu_ZeroDivisionErrorException", 2},
    {0x00130011, "omu_Primitive", 7},
    {0x00130016, "omu_PrimNumber", 3},
    {0x00130018, "omu_PrimString", 3},
    {0x0013001B, "omu_PrimEnum", 7},
    {0x00130012, "omu_PrimDictionaryBase", 3},
    {0x00130014, "omu_PrimStrDictionary", 3},
    {0x00130031, "omu_PrimBoolean", 2},
    {0x0013001F, "omu_PrimType", 2},
    {0x0013001D, "omu_PrimNone", 2},
    {0x00130017, "omu_PrimPath", 2},
    {0x00130022, "omu_PrimComplex", 2},
    {0x0013001A, "omu_PrimExpr", 2},
    {0x00130030, "omu_PrimTranslatedString", 2},
    {0x00130020, "omu_PrimSequence", 2},
    {0x00130019, "omu_PrimTuple", 2},
    {0x00130015, "omu_PrimList", 2},
    {0x00130021, "omu_PrimArray", 2},
    {0x00130013, "omu_PrimIntDictionary", 2},
    {0x0013001E, "omu_PrimWrapper", 2},
    {0x0013002F, "omu_PrimException", 2},
    {0x00130025, "omu_OnOffConst", 2},
    {0x0013001C, "omu_QueryPathMsg", 2},
    {0x030A0007, "gsl_BBox", 3},
    {0x030A000B, "gsl_ModelSegment", 7},
    {0x030A0004, "gsl_Plane", 3},
    {0x030A000D, "gsl_PlaneArray", 3},
    {0x030A0001, "gsl_Point", 7},
    {0x030A0008, "gsl_Segment", 3},
    {0x030A0006, "gsl_StLine", 3},
    {0x030A000A, "gsl_LineArray", 3},
    {0x030A0003, "gsl_Vector", 7},
    {0x030A0005, "gsl_Dot", 7},
    {0x030A000E, "gsl_DotArray", 3},
};

std::string Line(int sequence, unsigned phase, const char* name, unsigned typeId)
{
    return std::to_string(sequence) + " phase " + std::to_string(phase) + " " + name + " " +
           std::to_string(typeId) + "\n";
}

[[noreturn]] void StartAndPrintLog()
{
    int running = 0;
    KTLOxuGeom_initialize(running);
    for (const cls_MetadataLogEntry& entry : cls_MetadataRegistrar::Instance().Log())
        std::fputs(Line(entry.sequence, entry.phase, entry.name.AsCharPtr(), entry.typeId).c_str(), stderr);
    std::exit(0);
}

// In a fresh process: here other tests may have started single modules before.
TEST(RegistrationLog, HasTheOrderOfTheModulesAndTheirClasses)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    std::string wanted;
    int sequence = 0;
    for (const LogRow& row : LOG)
        wanted += Line(++sequence, row.phase, row.name, row.typeId);
    EXPECT_EXIT(StartAndPrintLog(), testing::ExitedWithCode(0), testing::Eq(wanted));
}

TEST_F(Registration, EveryDeclaredClassHasARowInItsTable)
{
    for (const cls_MetadataLogEntry& entry : Metadata().Log())
    {
        const typ_Entry* row = typ_ArchCompTable::Find(entry.typeId);
        ASSERT_NE(row, nullptr) << entry.name.AsCharPtr();
        const cls_ClassMetadata* meta = Metadata().Registrar().Find(entry.typeId);
        ASSERT_NE(meta, nullptr) << entry.name.AsCharPtr();
        const unsigned parent = (static_cast<unsigned>(row->parentComponent) << 16) | row->parentIndex;
        EXPECT_EQ(meta->ParentTypeId(), parent) << entry.name.AsCharPtr();
    }
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
                    VersionRow{"gsl_ModelSegment", 332, true},
                    VersionRow{"gsl_PlaneArray", 800, false}, VersionRow{"gsl_ArrayPoint", 800, false}));

TEST_F(Registration, AClassIsFoundByBothItsNames)
{
    ASSERT_NE(Find("omu_PrimEnum"), nullptr);
    EXPECT_EQ(Find("omu_PrimEnumBase"), Find("omu_PrimEnum"));
}

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

struct LateRow
{
    unsigned typeId;
    const char* name;
};

// Stored, but not declared at start-up.
TEST_F(Registration, SomeClassesAreDeclaredByTheirFirstLookUp)
{
    for (const LateRow& late : {LateRow{0x030A0002, "gsl_Matrix"}, LateRow{0x030A0009, "gsl_ArrayPoint"},
                                LateRow{0x030A000C, "gsl_ModelSegmentArray"}})
    {
        const cls_ClassMetadata* byId = Metadata().Registrar().Find(late.typeId);
        ASSERT_NE(byId, nullptr) << late.name;
        EXPECT_EQ(byId->Name(), cow_String(late.name));
        EXPECT_EQ(Find(late.name), byId);
        for (const cls_MetadataLogEntry& entry : Metadata().Log())
            EXPECT_NE(entry.name, cow_String(late.name));
    }
}

TEST_F(Registration, InheritanceFollowsTheRegisteredParents)
{
    const cls_ClassRegistrar& registrar = Metadata().Registrar();
    EXPECT_TRUE(registrar.InheritanceCheck(0x00130016, 0x00130011)) << "a number is a primitive";
    EXPECT_FALSE(registrar.InheritanceCheck(0x00130016, 0x00130018)) << "a number is no string";
    EXPECT_TRUE(registrar.InheritanceCheck(0x030A0003, 0x030A0001))
        << "a vector is registered as a kind of point";
    EXPECT_TRUE(registrar.InheritanceCheck(0x00130004, 0x001F0003))
        << "an argument error is a command exception";
    EXPECT_TRUE(registrar.InheritanceCheck(0x00130025, 0x00130011)) << "ON is a primitive";
    EXPECT_TRUE(registrar.InheritanceCheck(0x0013002C, 0x00130012))
        << "classes without metadata, by their table";
}
}
