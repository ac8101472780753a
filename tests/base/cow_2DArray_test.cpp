#include <cow_2DArray.h>
#include <cow_String.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

namespace
{
cow_2DArray<int> Numbered(int rows, int cols)
{
    cow_2DArray<int> array(rows, cols);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < cols; ++c)
            array(r, c) = 10 * r + c;
    return array;
}

TEST(cow_2DArray, LiesRowByRow)
{
    const cow_2DArray<int> array = Numbered(2, 3);
    EXPECT_EQ(array.Rows(), 2);
    EXPECT_EQ(array.Cols(), 3);
    const int expected[] = {0, 1, 2, 10, 11, 12};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(array.Data()[i], expected[i]);
}

TEST(cow_2DArray, RowAndColumnAreCheckedEach)
{
    cow_2DArray<int> array(2, 3, 7);
    const cow_2DArray<int>& reader = array;
    EXPECT_EQ(reader(1, 2), 7);
    EXPECT_RAISE(reader(2, 0), nex_RangeException, "index 2 out of range, length 2");
    EXPECT_RAISE(reader(0, 3), nex_RangeException, "index 3 out of range, length 3");
    EXPECT_RAISE(array(0, -1), nex_RangeException, "index -1 out of range, length 3");
    EXPECT_RAISE(array.Get(-1, 0), nex_RangeException, "index -1 out of range, length 2");
    EXPECT_RAISE(cow_2DArray<int>(-1, 2), nex_RangeException, "index -1 out of range, length 0");
    EXPECT_RAISE(cow_2DArray<int>(2, -3), nex_RangeException, "index -3 out of range, length 0");
}

TEST(cow_2DArray, MayBeFlat)
{
    const cow_2DArray<int> none;
    const cow_2DArray<int> noRows(0, 3);
    const cow_2DArray<int> noCols(2, 0);
    EXPECT_TRUE(none.IsEmpty() && noRows.IsEmpty() && noCols.IsEmpty());
    EXPECT_EQ(noRows.Cols(), 3);
    EXPECT_EQ(noCols.Rows(), 2);
    EXPECT_NE(noRows, noCols) << "the shape counts";
    EXPECT_EQ(noRows, cow_2DArray<int>(0, 3));
    EXPECT_EQ(none.Data(), nullptr);
    EXPECT_RAISE(noRows(0, 0), nex_RangeException, "index 0 out of range, length 0");
    EXPECT_RAISE(noCols(0, 0), nex_RangeException, "index 0 out of range, length 0");
}

TEST(cow_2DArray, ReadingKeepsSharingAndTheFirstWriteDetaches)
{
    cow_2DArray<int> array = Numbered(2, 2);
    const cow_2DArray<int> copy = array;
    EXPECT_EQ(array.Get(1, 1) + copy(1, 0) + *array.Data(), 21);
    EXPECT_TRUE(array == copy);
    EXPECT_TRUE(array.SharesWith(copy));
    array(0, 0) = 5;
    EXPECT_FALSE(array.SharesWith(copy));
    EXPECT_EQ(copy(0, 0), 0);
    EXPECT_NE(array, copy);

    cow_2DArray<int> other = copy;
    other.WriteData()[3] = 9;
    EXPECT_EQ(copy(1, 1), 11);
    EXPECT_EQ(other(1, 1), 9);
}

TEST(cow_2DArray, HoldsBoolAndText)
{
    cow_2DArray<bool> flags(3, 3);
    bool& corner = flags(2, 2);
    corner = true;
    EXPECT_TRUE(flags.Get(2, 2));
    EXPECT_FALSE(flags.Get(0, 0));

    cow_2DArray<cow_String> texts(2, 2, "x");
    texts(0, 1) += "y";
    EXPECT_EQ(texts.Get(0, 1), "xy");
    EXPECT_EQ(texts.Get(1, 1), "x");
}
}
