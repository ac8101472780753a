// A transform in the hands of a script: its one member, and its way through arguments.
#include <gsl_TransformIntObj.h>
#include <omu_SimpleMemShortcutImpl.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <testing/ValueTesting.h>

namespace
{
TEST(TransformIntObj, ShowsItsMatrixAndPassesThroughArguments)
{
    gsl_Matrix counting;
    for (int i = 0; i < 16; ++i)
        counting.Set(i / 4, i % 4, i + 1);
    const omu_SimpleTermShortcutImpl session("session", false, false, true);
    gsl_TransformIntObj transform(omu_SimpleMemShortcutImpl(session, "view"), counting);
    const std::string rows =
        "((1.0, 2.0, 3.0, 4.0), (5.0, 6.0, 7.0, 8.0), (9.0, 10.0, 11.0, 12.0), (13.0, 14.0, 15.0, 16.0))";
    bool found = false;
    EXPECT_EQ(Text(transform.GetMember("matrix", found)), rows);
    EXPECT_EQ(Text(gsl_TransformIntObj(counting)), "({'matrix': " + rows + "})");
    EXPECT_EQ(transform.AsRepr(), "session.view");
    omu_Arguments value = Args(1);
    EXPECT_ERROR(transform.SetMember("matrix", value, found), "AttributeError: matrix is read-only");

    // Held by an argument list it is a copy, which knows the matrix.
    omu_Arguments arguments = Args(Keyword("by", transform));
    const omu_InterfaceObj* passed = nullptr;
    arguments.Begin();
    ASSERT_TRUE(arguments.Get(passed, "by"));
    arguments.End();
    EXPECT_TRUE(dynamic_cast<const gsl_TransformIntObj&>(*passed).Matrix() == counting);
}
}
