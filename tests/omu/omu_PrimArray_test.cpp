// Numeric arrays: shapes, places, text, and what is refused.

#include <limits>
#include <nex_RangeException.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimList.h>
#include <omu_ValueErrorException.h>
#include <ostream>
#include <string>
#include <testing/ExpectRaise.h>
#include <testing/Outcome.h>

#include <gtest/gtest.h>

namespace
{
using Ints = cow_List<int>;
using Floats = cow_List<float>;
using Doubles = cow_List<double>;

std::string Text(const omu_Primitive& value)
{
    return value.AsString(0).AsCharPtr();
}

std::string Text(omu_Primitive* owned)
{
    return Text(*std::unique_ptr<omu_Primitive>(owned));
}

// The ints from 0 on, in that shape.
omu_PrimArray Counting(const Ints& shape)
{
    int size = 1;
    for (const int dimension : shape)
        size *= dimension;
    Ints data;
    for (int i = 0; i < size; ++i)
        data.Append(i);
    return omu_PrimArray(shape, data);
}

TEST(PrimArray, TextIsThatOfNestedTuples)
{
    EXPECT_EQ(Text(omu_PrimArray()), "()");
    EXPECT_EQ(Text(omu_PrimArray(Ints{1})), "(1,)");
    EXPECT_EQ(Text(omu_PrimArray(Doubles{1.0, 0.5})), "(1.0, 0.5)");
    EXPECT_EQ(Text(omu_PrimArray(cow_2DArray<double>(2, 1, 3.0))), "((3.0,), (3.0,))");
    EXPECT_EQ(Text(omu_PrimArray(cow_2DArray<double>(2, 0))), "()");
    for (const Ints& shape : {Ints{2, 2}, Ints{1, 1, 1}, Ints{2, 3, 2}, Ints{4}})
        EXPECT_EQ(Text(Counting(shape)), Text(Counting(shape).AsTuple()));
}

TEST(PrimArray, ItemsAndPlaces)
{
    const omu_PrimArray array = Counting({2, 3, 4});
    EXPECT_EQ(Text(array.At({1, 2, 3})), "23");
    EXPECT_EQ(Text(array.At({1, 0, 2})), "14");
    EXPECT_EQ(Text(array.Index(1)), "((12, 13, 14, 15), (16, 17, 18, 19), (20, 21, 22, 23))");
    EXPECT_RAISE(array.At({1, 3, 0}), nex_RangeException, "index 3 out of range, length 3");
    EXPECT_RAISE(array.At({-1, 0, 0}), nex_RangeException, "index -1 out of range, length 2");
    EXPECT_RAISE(array.At({1, 1}), omu_ValueErrorException, "array has 3 dimensions, got 2 indices");
    EXPECT_RAISE(array.Index(2), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_EQ(omu_PrimArray(Floats{0.5F}).Element(0).DataType(), omu_PrimNumber::DataTypeEnm::FLOAT);
}

struct ShapeRow
{
    const char* name;
    Ints shape;
    std::string outcome;
};

void PrintTo(const ShapeRow& row, std::ostream* out)
{
    *out << row.name;
}

class ArrayShape : public testing::TestWithParam<ShapeRow>
{};

TEST_P(ArrayShape, IsCheckedAgainstSixElements)
{
    omu_PrimArray six = Counting({6});
    EXPECT_EQ(Outcome([&] {
                  six.Reshape(GetParam().shape);
                  return Text(six);
              }),
              GetParam().outcome);
}

const auto Ones = [](int count) { return Ints::Filled(count, 1); };
const auto SixAndOnes = [](int ones) {
    Ints shape = Ones(ones);
    shape.Append(6);
    return shape;
};
const auto Wrapped = [](int times, std::string text) {
    for (int i = 0; i < times; ++i)
        text = "(" + text + ",)";
    return text;
};
INSTANTIATE_TEST_SUITE_P(
    Rows, ArrayShape,
    testing::Values(ShapeRow{"Fits", {2, 3}, "((0, 1, 2), (3, 4, 5))"},
                    ShapeRow{"Sixteen", SixAndOnes(15), Wrapped(15, "(0, 1, 2, 3, 4, 5)")},
                    ShapeRow{"Seventeen", SixAndOnes(16),
                             "ValueError: array must have 1 to 16 dimensions, got 17"},
                    ShapeRow{"Zero", {0, 6}, "ValueError: array dimension must be positive, got 0"},
                    ShapeRow{"Negative", {-2, -3}, "ValueError: array dimension must be positive, got -2"},
                    ShapeRow{"Empty", {0}, "ValueError: array shape holds 0 elements, got 6"},
                    // 2 to the 32 times 6: the product wraps round to 0 and to 6 in narrower arithmetic.
                    ShapeRow{"Overflow", {65536, 65536, 6}, "OverflowError: array is too large"}),
    [](const auto& row) { return row.param.name; });

TEST(PrimArray, EqualityAsksForShapeAndValues)
{
    EXPECT_TRUE(omu_PrimArray(Ints{1, 2}) == omu_PrimArray(Doubles{1.0, 2.0}));
    EXPECT_TRUE(omu_PrimArray(Floats{0.5F}) == omu_PrimArray(Doubles{0.5}));
    EXPECT_FALSE(omu_PrimArray(Ints{1, 2}) == omu_PrimArray(Ints{1, 3}));
    EXPECT_FALSE(Counting({2, 3}) == Counting({3, 2}));
    constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(omu_PrimArray(Doubles{NOT_A_NUMBER}) == omu_PrimArray(Doubles{NOT_A_NUMBER}));
}

TEST(PrimArray, SlicesAndCombines)
{
    const omu_PrimArray array = Counting({3, 2});
    EXPECT_EQ(Text(array.Slice(1, 9)), "((2, 3), (4, 5))");
    EXPECT_EQ(Text(array.Slice(-5, 1)), "((0, 1),)");
    EXPECT_EQ(Text(array.Slice(2, 1)), "()");
    EXPECT_EQ(Text(array.Repeat(0)), "()");
    EXPECT_EQ(Text(Counting({1, 2}).Repeat(2)), "((0, 1), (0, 1))");
    EXPECT_RAISE(array.Repeat(std::numeric_limits<int>::max()), omu_OverflowErrorException,
                 "array is too large");
    const omu_PrimArray row = Counting({1, 2});
    const omu_PrimArray empty;
    EXPECT_EQ(Text(row.Concat(&row)), "((0, 1), (0, 1))");
    EXPECT_EQ(Text(omu_PrimArray(Ints{1}).Concat(std::make_unique<omu_PrimArray>(Doubles{0.5}).get())),
              "(1.0, 0.5)");
    EXPECT_EQ(Text(row.Concat(&empty)), "((0, 1),)");
    EXPECT_EQ(Text(empty.Concat(&row)), "((0, 1),)");
    constexpr const char* WRONG = "illegal argument type for built-in operation";
    const omu_PrimArray flat(Ints{1, 2});
    const omu_PrimTuple tuple(Ints{1, 2});
    EXPECT_RAISE(row.Concat(&flat), omu_GenericTypeErrorException, WRONG);
    EXPECT_RAISE(row.Concat(&tuple), omu_GenericTypeErrorException, WRONG);
    EXPECT_RAISE(row.Concat(nullptr), omu_GenericTypeErrorException, WRONG);
}
}
