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
// In the order of the modules and their classes: the phase of each.
[[noreturn]] void StartAndPrintPhases()
{
    int running = 0;
    KTLOxuGeom_initialize(running);
    std::string module;
    int sequence = 0;
    for (const cls_MetadataLogEntry& entry : cls_MetadataRegistrar::Instance().Log())
    {
        const std::string prefix = std::string(entry.name.View()).substr(0, 3);
        std::fputs(prefix != std::exchange(module, prefix) ? (" " + prefix + " ").c_str() : "", stderr);
        std::fprintf(stderr, "%u", entry.phase);
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
        StartAndPrintPhases(), testing::ExitedWithCode(0),
        testing::Eq(
            " g3d 244 omu 2222222222222222227337332222222222222222 mdl 77 gsl 37337333773 ann 77777771"));
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
        {"omu_Primitive", 514},      {"omu_PrimNumber", 835}, {"omu_PrimEnum", 514},
        {"g3d_Point", 203},          {"g3d_Vector", 203},     {"gsl_Point", 203},
        {"gsl_Vector", 203},         {"gsl_Dot", 203},        {"gsl_ModelSegment", 332},
        {"mdl_Extension", 401},      {"mdl_Repository", 507}, {"annC_Anchor", 437},
        {"annC_Annotation", 437},    {"annC_Arrow", 437},     {"annC_NamedAnchor", 437},
        {"annC_Point3DAnchor", 437}, {"annC_Text", 437},      {"annC_ViewportAnchor", 437}};
    for (const cls_MetadataLogEntry& entry : metadata_.Log())
    {
        SCOPED_TRACE(entry.name.AsCharPtr());
        const typ_Entry* row = typ_ArchCompTable::Find(entry.typeId);
        const cls_ClassMetadata* meta = registrar_.Find(entry.typeId);
        ASSERT_TRUE(row != nullptr && meta != nullptr);
        EXPECT_EQ(meta->ParentTypeId(), cls_MakeTypeId(row->parentComponent, row->parentIndex));
        EXPECT_EQ(Find(row->name), meta) << "found by the name in the table";
        EXPECT_EQ(meta->Name(), entry.name == "omu_PrimEnum" ? "omu_PrimEnum" : row->name);
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
