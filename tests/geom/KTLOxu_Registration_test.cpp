// What starting the library registers: which classes, in which order, with which phase.

#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <testing/LibraryGuard.h>
#include <typ_ArchCompTable.h>

namespace
{
// A line for each phase of a module: the module, the phase and the classes in their order. What the classes
// of a line begin with is left out, and "ErrorException" is written "!".
[[noreturn]] void StartAndPrintLog()
{
    int running = 0;
    KTLOxuGeom_initialize(running);
    std::string line;
    int sequence = 0;
    for (const cls_MetadataLogEntry& entry : cls_MetadataRegistrar::Instance().Log())
    {
        const std::string name(entry.name.View());
        const std::size_t prefix = name.find('_') + 1;
        const std::size_t suffix = name.ends_with("ErrorException") ? 14 : 0;
        const std::string head = name.substr(0, prefix) + " " + std::to_string(entry.phase) + ":";
        std::fputs(head != std::exchange(line, head) ? ("\n" + head).c_str() : "", stderr);
        std::fputs(
            (" " + name.substr(prefix, name.size() - prefix - suffix) + (suffix > 0 ? "!" : "")).c_str(),
            stderr);
        if (entry.sequence != ++sequence)
            std::exit(1);
    }
    std::exit(0);
}

// In a fresh process: here other tests may have started single modules before.
TEST(RegistrationLog, HasTheOrderOfTheModulesAndTheirClasses)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        StartAndPrintLog(), testing::ExitedWithCode(0),
        testing::Eq(
            "\ng3d_ 2: Color!"
            "\ng3d_ 4: Point Vector"
            "\nomu_ 2: ArgNumber! ArgType! GenericType! Keyword! KeywordType! Type! OrvName! Attribute!"
            " Range! Access! Font! GuiAccess! Index! Key! Name! Overflow! Value! ZeroDivision!"
            "\nomu_ 7: Primitive"
            "\nomu_ 3: PrimNumber PrimString"
            "\nomu_ 7: PrimEnum"
            "\nomu_ 3: PrimDictionaryBase PrimStrDictionary"
            "\nomu_ 2: PrimBoolean PrimType PrimNone PrimPath PrimComplex PrimExpr PrimTranslatedString"
            " PrimSequence PrimTuple PrimList PrimArray PrimIntDictionary PrimWrapper PrimException"
            " OnOffConst QueryPathMsg"
            "\nmdl_ 7: PropString PropInt PropDouble PropBool PropListInt Prop1DArrayInt PropListString"
            " PropList1DArrayListFloat Extension Repository PropertyTable"
            "\nmdl_ 4: JaggedArray"
            "\ngsl_ 3: BBox"
            "\ngsl_ 7: ModelSegment"
            "\ngsl_ 3: Plane PlaneArray"
            "\ngsl_ 7: Point"
            "\ngsl_ 3: Segment StLine LineArray"
            "\ngsl_ 7: Vector Dot"
            "\ngsl_ 3: DotArray"
            "\nannC_ 7: Annotation ViewportAnchor Arrow NamedAnchor Point3DAnchor Anchor Text"
            "\nannC_ 1: AnnotationContainer"));
}

class Registration : public testing::Test
{
protected:
    const cls_ClassMetadata* Find(const char* name) { return registrar_.Find(cow_String(name)); }

    LibraryGuard library_;
    const cls_MetadataRegistrar& metadata_ = cls_MetadataRegistrar::Instance();
    const cls_ClassRegistrar& registrar_ = metadata_.Registrar();
};

TEST_F(Registration, EveryDeclaredClassHasARowInItsTableAndTheReleaseOfItsLayout)
{
    const std::map<std::string, unsigned> elder = {
        {"omu_Primitive", 514},      {"omu_PrimNumber", 835},
        {"omu_PrimEnum", 514},       {"g3d_Point", 203},
        {"g3d_Vector", 203},         {"gsl_Point", 203},
        {"gsl_Vector", 203},         {"gsl_Dot", 203},
        {"gsl_ModelSegment", 332},   {"mdl_Extension", 401},
        {"mdl_Repository", 507},     {"annC_Anchor", 437},
        {"mdl_PropString", 203},     {"mdl_PropInt", 203},
        {"mdl_PropDouble", 203},     {"mdl_PropBool", 203},
        {"mdl_PropListInt", 203},    {"mdl_Prop1DArrayInt", 203},
        {"mdl_PropListString", 203}, {"mdl_PropList1DArrayListFloat", 203},
        {"mdl_PropertyTable", 453},  {"mdl_JaggedArray", 1334},
        {"annC_Annotation", 437},    {"annC_Arrow", 437},
        {"annC_NamedAnchor", 437},   {"annC_Point3DAnchor", 437},
        {"annC_Text", 437},          {"annC_ViewportAnchor", 437}};
    for (const cls_MetadataLogEntry& entry : metadata_.Log())
    {
        SCOPED_TRACE(entry.name.AsCharPtr());
        const typ_Entry* row = typ_ArchCompTable::Find(entry.typeId);
        const cls_ClassMetadata* meta = registrar_.Find(entry.typeId);
        ASSERT_TRUE(row != nullptr && meta != nullptr);
        EXPECT_EQ(meta->ParentTypeId(), cls_MakeTypeId(row->parentComponent, row->parentIndex));
        EXPECT_EQ(Find(row->name), meta) << "found by the name in the table";
        EXPECT_EQ(meta->Name(), entry.name);
        const bool isRenamed = entry.name == "omu_PrimEnum" || entry.name == "mdl_PropList1DArrayListFloat";
        EXPECT_EQ(entry.name == row->name, !isRenamed);
        const auto place = elder.find(entry.name.AsCharPtr());
        EXPECT_EQ(meta->Version(), place != elder.end() ? place->second : 800u);
    }
    EXPECT_EQ(Find("omu_PrimEnumBase"), Find("omu_PrimEnum"));
}

// Indices are the low halves of type ids in stored data: who strikes a row leaves its slot empty, and the
// last stays where it is.
TEST_F(Registration, TheTablesEndWhereTheyDid)
{
    for (const auto& [name, typeId] : {std::pair{"annC_Point3DAnchor", 0x03500008u},
                                       {"g3d_ColorErrorException", 0x00240003},
                                       {"gsl_DotArray", 0x030A000E},
                                       {"mdl_JaggedArray", 0x000A0019},
                                       {"omu_PyOrvexException", 0x00130032},
                                       {"omu_PrimSequence", 0x00130020}})
    {
        EXPECT_EQ(typ_ArchCompTable::FindByName(name), typeId) << name;
        EXPECT_EQ(typ_ArchCompTable::Find(typeId + 1) == nullptr, name != std::string("omu_PrimSequence"));
    }
}

// Some have a type id and no metadata; some are declared by their first look-up and not at start-up.
TEST_F(Registration, NotEveryClassIsDeclaredAtStart)
{
    for (const char* none : {"omu_TrueFalseConst", "omu_ListPyObjectWrapper", "omu_PyOrvexException"})
        EXPECT_TRUE(typ_ArchCompTable::FindByName(none) != 0 && Find(none) == nullptr) << none;
    for (const char* late : {"gsl_Matrix", "gsl_ArrayPoint", "gsl_ModelSegmentArray"})
    {
        const cls_ClassMetadata* byId = registrar_.Find(typ_ArchCompTable::FindByName(late));
        ASSERT_NE(byId, nullptr) << late;
        EXPECT_EQ(Find(late), byId);
        EXPECT_EQ(byId->Version(), late == std::string("gsl_Matrix") ? 203u : 800u);
    }
    EXPECT_TRUE(registrar_.InheritanceCheck(0x030A0003, 0x030A0001)) << "a vector is registered as a point";
    EXPECT_TRUE(registrar_.InheritanceCheck(0x0013002C, 0x00130012)) << "without metadata, by the table";
}
}
