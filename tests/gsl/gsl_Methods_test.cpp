// The definition methods as scripts and stored data see them: names, values and their order.
#include <gsl_DirMethod.h>
#include <gsl_DotMethod.h>
#include <gsl_LineMethod.h>
#include <gtest/gtest.h>
#include <omu_ValueErrorException.h>

namespace
{
struct Member
{
    const char* name;
    int value;
};

template <class Method>
std::vector<Member> Members();

template <>
std::vector<Member> Members<gsl_DirMethod>()
{
    return {{"FROM_POINT_VECTOR", 0},
            {"FROM_FACE", 1},
            {"FROM_DATUM_PLANE", 2},
            {"FROM_ELEM_FACE", 3},
            {"PLANE_INVALID", 4}};
}

template <>
std::vector<Member> Members<gsl_LineMethod>()
{
    return {{"FROM_PNT_VECTOR", 0}, {"FROM_EDGE", 1},    {"FROM_REVFACE", 2},   {"FROM_DATUM_AXIS", 3},
            {"FROM_ELEM_EDGE", 4},  {"FROM_PNT_PNT", 5}, {"STLINE_INVALID", 6}, {"FROM_DATUM_CSYS", 7}};
}

template <>
std::vector<Member> Members<gsl_DotMethod>()
{
    return {{"gsl_FROM_POINT", 0},
            {"gsl_FROM_VERTEX", 1},
            {"gsl_FROM_DATUM_POINT", 2},
            {"gsl_FROM_EDGE_PARAM", 3},
            {"gsl_FROM_FACE_DIM", 4},
            {"gsl_FROM_EDGE_VTX", 5},
            {"gsl_FROM_FACE_VTX", 6},
            {"gsl_FROM_IP_VTX_ONTO_EDGE", 7},
            {"gsl_FROM_IP_CENTER_OF_EDGE", 8},
            {"gsl_FROM_IP_MIDPT_OF_EDGE", 9},
            {"gsl_FROM_NODE", 10},
            {"gsl_DOT_INVALID", 11},
            {"gsl_FROM_DATUM_CSYS_ORIGIN", 12}};
}

template <class Method>
class Methods : public testing::Test
{};

using AllMethods = testing::Types<gsl_DirMethod, gsl_LineMethod, gsl_DotMethod>;
TYPED_TEST_SUITE(Methods, AllMethods);

TYPED_TEST(Methods, NamesAndValuesInTheirOrder)
{
    using Constant = omu_PrimEnum<TypeParam, 1>;
    const std::vector<Member> members = Members<TypeParam>();
    const cow_Map<cow_String, unsigned> names = Constant().PermissibleValues();
    ASSERT_EQ(names.Length(), static_cast<int>(members.size()));
    for (int i = 0; i < names.Length(); ++i)
    {
        const Member& member = members[static_cast<std::size_t>(i)];
        EXPECT_STREQ(names.KeyAt(i).AsCharPtr(), member.name);
        EXPECT_EQ(names.ValueAt(i), static_cast<unsigned>(member.value));
        const TypeParam value = Constant(cow_String(member.name));
        EXPECT_EQ(static_cast<int>(value), member.value);
        EXPECT_STREQ(Constant(value).GetString().AsCharPtr(), member.name);
    }
    EXPECT_STREQ(Constant().GetString().AsCharPtr(), members.front().name);
}

TYPED_TEST(Methods, OthersAreRefused)
{
    using Constant = omu_PrimEnum<TypeParam, 1>;
    EXPECT_THROW(Constant{cow_String("from_face")}, omu_ValueErrorException);
    EXPECT_THROW(Constant{cow_String()}, omu_ValueErrorException);
    EXPECT_THROW(Constant{static_cast<TypeParam>(-1)}, omu_ValueErrorException);
    EXPECT_THROW(Constant{static_cast<TypeParam>(Members<TypeParam>().size())}, omu_ValueErrorException);
}
}
