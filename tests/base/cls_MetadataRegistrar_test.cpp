#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
int runs = 0;
bool fail = false;

template <unsigned Index>
void Declare(cls_ClassRegistrar& registrar)
{
    ++runs;
    if (fail)
        throw std::runtime_error("no");
    registrar.Create(("tst_" + std::to_string(Index)).c_str(), cls_MakeTypeId(0x7E30, Index), 800, nullptr,
                     cls_UniversalRoot);
}
void DeclareNothing(cls_ClassRegistrar&) {}

TEST(cls_MetadataRegistrar, RunsEachFunctionOnceAtOnceInOrderWhateverThePhase)
{
    runs = 0;
    cls_MetadataRegistrar registrar;
    fail = true;
    EXPECT_THROW(registrar.initClassMetadata(&Declare<2>, 1), std::runtime_error);
    fail = false;
    registrar.initClassMetadata(&Declare<2>, 7); // one that threw counts as not run
    EXPECT_NE(registrar.Registrar().Find(cls_MakeTypeId(0x7E30, 2)), nullptr) << "at once";
    registrar.initClassMetadata(&Declare<1>, 1);
    registrar.initClassMetadata(&Declare<1>, 3);
    registrar.initClassMetadata(&DeclareNothing, 2);
    Declare<3>(registrar.Registrar()); // by hand, and then in the log all the same
    registrar.initClassMetadata(&Declare<3>, 4);
    EXPECT_EQ(runs, 5);
    EXPECT_EQ(registrar.LogText(), "1 phase 7 tst_2\n2 phase 1 tst_1\n3 phase 2 \n4 phase 4 tst_3\n");
    EXPECT_EQ(registrar.Log().at(1).typeId, cls_MakeTypeId(0x7E30, 1));
}
}
