#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
constexpr unsigned Id(unsigned index)
{
    return cls_MakeTypeId(0x7E30, index);
}

int runs = 0;
bool fail = false;

void DeclareFirst(cls_ClassRegistrar& registrar)
{
    ++runs;
    if (fail)
        throw std::runtime_error("no");
    registrar.Create("tst_First", Id(1), 800, nullptr, cls_UniversalRoot);
}
void DeclareSecond(cls_ClassRegistrar& registrar)
{
    registrar.Create("tst_Second", Id(2), 800, nullptr, cls_UniversalRoot);
}
void DeclareNothing(cls_ClassRegistrar&) {}
}

TEST(cls_MetadataRegistrar, RunsEachFunctionOnceAtOnceInOrderWhateverThePhase)
{
    runs = 0;
    cls_MetadataRegistrar registrar;
    registrar.initClassMetadata(&DeclareSecond, 7);
    EXPECT_NE(registrar.Registrar().Find(Id(2)), nullptr) << "at once";
    registrar.initClassMetadata(&DeclareFirst, 1);
    registrar.initClassMetadata(&DeclareFirst, 3);
    registrar.initClassMetadata(&DeclareNothing, 2);
    EXPECT_EQ(runs, 1);
    ASSERT_EQ(registrar.Log().size(), 3u);
    EXPECT_EQ(registrar.Log()[1].typeId, Id(1));
    EXPECT_EQ(registrar.LogText(), "1 phase 7 tst_Second\n2 phase 1 tst_First\n3 phase 2 \n");
}

TEST(cls_MetadataRegistrar, LogsAClassThatWasDeclaredByHandBefore)
{
    cls_MetadataRegistrar registrar;
    DeclareSecond(registrar.Registrar());
    registrar.initClassMetadata(&DeclareSecond, 4);
    EXPECT_EQ(registrar.LogText(), "1 phase 4 tst_Second\n");
}

TEST(cls_MetadataRegistrar, AFunctionThatThrowsCountsAsNotRun)
{
    cls_MetadataRegistrar registrar;
    fail = true;
    EXPECT_THROW(registrar.initClassMetadata(&DeclareFirst, 1), std::runtime_error);
    EXPECT_EQ(registrar.LogText(), "");
    fail = false;
    registrar.initClassMetadata(&DeclareFirst, 1);
    EXPECT_EQ(registrar.LogText(), "1 phase 1 tst_First\n");
}

TEST(cls_MetadataRegistrar, IsReachedAsASingleton)
{
    cls_MetadataRegistrar& registrar = omi_Singleton<cls_MetadataRegistrar>::Instance();
    EXPECT_EQ(&cls_MetadataRegistrar::Instance(), &registrar);
}
