// A transform in the hands of a script: its one member, and its way through arguments.
#include <gsl_TransformIntObj.h>
#include <omu_SimpleMemShortcutImpl.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <testing/ValueTesting.h>

namespace
{
constexpr const char* ROWS =
    "((1.0, 2.0, 3.0, 4.0), (5.0, 6.0, 7.0, 8.0), (9.0, 10.0, 11.0, 12.0), (13.0, 14.0, 15.0, 16.0))";

gsl_Matrix Counting()
{
    double values[16];
    for (int i = 0; i < 16; ++i)
        values[i] = i + 1;
    gsl_Matrix matrix;
    matrix.FromArray(values);
    return matrix;
}

gsl_TransformIntObj InSession()
{
    const omu_SimpleTermShortcutImpl session("session", false, false, true);
    return {omu_SimpleMemShortcutImpl(session, "view"), Counting()};
}

TEST(TransformIntObj, ShowsItsMatrix)
{
    const gsl_TransformIntObj transform(Counting());
    bool found = false;
    EXPECT_EQ(transform.TypeString(), "Transform");
    EXPECT_EQ(transform.MemberList(), cow_List<cow_String>{"matrix"});
    EXPECT_TRUE(transform.MethodList().IsEmpty());
    EXPECT_EQ(Text(transform.GetMember("matrix", found)), ROWS);
    EXPECT_TRUE(found);
    EXPECT_EQ(Text(transform), std::string("({'matrix': ") + ROWS + "})");
    EXPECT_EQ(transform.DefaultRepr(), "<Transform object>");
    EXPECT_EQ(InSession().AsRepr(), "session.view");
    EXPECT_EQ(transform.DynTypeId(), omu_Primitive::TypeId());

    omu_Arguments value = Args(1);
    EXPECT_ERROR(transform.SetMember("matrix", value, found), "AttributeError: matrix is read-only");
    gsl_TransformIntObj stale = InSession();
    stale.SetStale(true);
    EXPECT_ERROR(stale.GetMember("matrix", found), "AccessError: session.view no longer exists");
}

TEST(TransformIntObj, PassesThroughArguments)
{
    const auto matrixOf = [](const omu_InterfaceObj* object) {
        return dynamic_cast<const gsl_TransformIntObj&>(*object).Matrix();
    };
    for (omu_Arguments arguments : {Args(InSession()), Args(Keyword("by", InSession()))})
    {
        const omu_InterfaceObj* found = nullptr;
        arguments.Begin();
        ASSERT_TRUE(arguments.Get(found, "by"));
        arguments.End();
        EXPECT_TRUE(matrixOf(found) == Counting());
        EXPECT_TRUE(*found == InSession()) << "the same path";
    }
    // Held by an argument list it is a copy, which knows the path and the matrix.
    EXPECT_EQ(Text(Args(InSession(), Keyword("by", InSession()))), "(session.view, by=session.view)");
    omu_Arguments wrong = Args(2.0);
    const omu_InterfaceObj* none = nullptr;
    wrong.Begin();
    EXPECT_FALSE(wrong.Get(none, "by"));
    EXPECT_ERROR(wrong.End(), "TypeError: arg1; found float, expecting OrvexObject");
}
}
