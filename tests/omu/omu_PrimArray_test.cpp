// Numeric arrays: shapes, places, text, and what is refused.

#include <nex_RangeException.h>
#include <omu_PrimArray.h>
#include <testing/ValueTesting.h>

namespace
{
using Ints = cow_List<int>;
using Doubles = cow_List<double>;

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
    EXPECT_EQ(Text(omu_PrimArray(Doubles{1.0, 0.5})), "(1.0, 0.5)");
    EXPECT_EQ(Text(omu_PrimArray(cow_2DArray<double>(2, 1, 3.0))), "((3.0,), (3.0,))");
    EXPECT_EQ(Text(omu_PrimArray(cow_2DArray<double>(2, 0))), "()");
    for (const Ints& shape : {Ints{1}, Ints{2, 2}, Ints{1, 1, 1}, Ints{2, 3, 2}, Ints{4}})
        EXPECT_EQ(Text(Counting(shape)), Text(Counting(shape).AsTuple()));
}

TEST(PrimArray, ItemsAndPlaces)
{
    const omu_PrimArray array = Counting({2, 3, 4});
    EXPECT_EQ(Text(array.At({1, 0, 2})), "14");
    EXPECT_EQ(Text(array.Index(1)), "((12, 13, 14, 15), (16, 17, 18, 19), (20, 21, 22, 23))");
    EXPECT_ERROR(array.At({1, 3, 0}), "nex_RangeException: index 3 out of range, length 3");
    EXPECT_ERROR(array.At({-1, 0, 0}), "nex_RangeException: index -1 out of range, length 2");
    EXPECT_ERROR(array.At({1, 1}), "ValueError: array has 3 dimensions, got 2 indices");
    EXPECT_ERROR(array.Index(2), "nex_RangeException: index 2 out of range, length 2");
    EXPECT_EQ(omu_PrimArray(cow_List<float>{0.5F}).Element(0).DataType(), omu_PrimNumber::DataTypeEnm::FLOAT);
}

TEST(PrimArray, ShapeIsCheckedAgainstTheElements)
{
    Ints sixteen = Ints::Filled(15, 1);
    sixteen.Append(6);
    Ints seventeen = Ints::Filled(16, 1);
    seventeen.Append(6);
    std::string wrapped = "(0, 1, 2, 3, 4, 5)";
    for (int i = 0; i < 15; ++i)
        wrapped = "(" + wrapped + ",)";
    const std::pair<Ints, std::string> rows[] = {
        {{2, 3}, "((0, 1, 2), (3, 4, 5))"},
        {sixteen, wrapped},
        {seventeen, "ValueError: array must have 1 to 16 dimensions, got 17"},
        {{0, 6}, "ValueError: array dimension must be positive, got 0"},
        {{-2, -3}, "ValueError: array dimension must be positive, got -2"},
        {{0}, "ValueError: array shape holds 0 elements, got 6"},
        // 2 to the 32 times 6: the product wraps round to 0 and to 6 in narrower arithmetic.
        {{65536, 65536, 6}, "OverflowError: array is too large"}};
    for (const auto& [shape, outcome] : rows)
    {
        omu_PrimArray six = Counting({6});
        EXPECT_EQ(Outcome([&] {
                      six.Reshape(shape);
                      return Text(six);
                  }),
                  outcome);
    }
}

TEST(PrimArray, EqualityAsksForShapeAndValues)
{
    EXPECT_TRUE(omu_PrimArray(Ints{1, 2}) == omu_PrimArray(Doubles{1.0, 2.0}));
    EXPECT_TRUE(omu_PrimArray(cow_List<float>{0.5F}) == omu_PrimArray(Doubles{0.5}));
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
    EXPECT_ERROR(array.Repeat(std::numeric_limits<int>::max()), "OverflowError: array is too large");
    const omu_PrimArray row = Counting({1, 2});
    const omu_PrimArray empty;
    const omu_PrimArray half(Doubles{0.5});
    EXPECT_EQ(Text(row.Concat(&row)), "((0, 1), (0, 1))");
    EXPECT_EQ(Text(omu_PrimArray(Ints{1}).Concat(&half)), "(1.0, 0.5)");
    EXPECT_EQ(Text(row.Concat(&empty)), "((0, 1),)");
    EXPECT_EQ(Text(empty.Concat(&row)), "((0, 1),)");
    const omu_PrimTuple tuple(Ints{1, 2});
    for (const omu_PrimSequence* wrong :
         {static_cast<const omu_PrimSequence*>(&half), static_cast<const omu_PrimSequence*>(&tuple),
          static_cast<const omu_PrimSequence*>(nullptr)})
        EXPECT_ERROR(row.Concat(wrong), "TypeError: illegal argument type for built-in operation");
}
}
