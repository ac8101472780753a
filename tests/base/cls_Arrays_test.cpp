#include <cls_xo1DArrayList.h>
#include <cls_xp1DArrayInt.h>
#include <cls_xp1DArrayListFloat.h>
#include <cls_xp2DArrayDouble.h>
#include <cls_xpListInt.h>
#include <cls_xpListString.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gmock/gmock.h>

#include <type_traits>

namespace
{
using testing::ElementsAre;

TEST(cls_xo1DArrayList, GrowsAndIsChecked)
{
    cls_xo1DArrayList<double> array;
    EXPECT_TRUE(array.IsEmpty());
    for (int i = 0; i < 5; ++i)
        array.Append(i);
    array.Insert(0, -1.0);
    array.Insert(6, 5.0);
    array.Remove(1);
    array[1] = 10.0;
    EXPECT_THAT(array, ElementsAre(-1.0, 10.0, 2.0, 3.0, 4.0, 5.0));
    EXPECT_RAISE(array[6], nex_RangeException, "index 6 out of range, length 6");
    EXPECT_RAISE(array.Get(-1), nex_RangeException, "index -1 out of range, length 6");
    EXPECT_RAISE(array.Insert(7, 0.0), nex_RangeException, "index 7 out of range, length 6");
    EXPECT_RAISE(array.Remove(6), nex_RangeException, "index 6 out of range, length 6");
    array.Resize(7);
    EXPECT_EQ(array.Get(6), 0.0);
    array.Resize(-4);
    EXPECT_TRUE(array.IsEmpty());
}

TEST(cls_xo1DArrayList, ACopyIsItsOwn)
{
    cls_xo1DArrayList<bool> array{true, false};
    const cls_xo1DArrayList<bool> copy = array;
    bool* raw = array.Data();
    raw[1] = true;
    EXPECT_THAT(array, ElementsAre(true, true));
    EXPECT_THAT(copy, ElementsAre(true, false));
    EXPECT_FALSE(array == copy);
    EXPECT_EQ(copy, (cls_xo1DArrayList<bool>{true, false}));
}

TEST(cls_xo1DArrayList, TakesAPlainArray)
{
    const int plain[] = {3, 2, 1};
    EXPECT_THAT(cls_xo1DArrayList<int>(plain, 3), ElementsAre(3, 2, 1));
    EXPECT_TRUE(cls_xo1DArrayList<int>(plain, -2).IsEmpty());
}

// One overload each: they are different types, and may all stand in one overload set.
const char* KindOf(const cls_xpListInt&)
{
    return "list of int";
}
const char* KindOf(const cls_xp1DArrayInt&)
{
    return "array of int";
}
const char* KindOf(const cls_xp1DArrayListFloat&)
{
    return "array of float";
}

TEST(cls_Arrays, AttributeTypesAreDistinct)
{
    static_assert(!std::is_same_v<cls_xpListInt, cls_xp1DArrayInt>);
    static_assert(!std::is_convertible_v<cls_xpListInt, cls_xp1DArrayInt>);
    EXPECT_STREQ(KindOf(cls_xpListInt{1}), "list of int");
    EXPECT_STREQ(KindOf(cls_xp1DArrayInt{1}), "array of int");
    EXPECT_STREQ(KindOf(cls_xp1DArrayListFloat{1.0f}), "array of float");
}

TEST(cls_Arrays, AttributeTypesShareLikeTheListsThatTheyAre)
{
    const cow_List<int> plain{1, 2};
    cls_xpListInt list(plain);
    EXPECT_TRUE(list.SharesWith(plain));
    const cls_xpListInt copy = list;
    list.Append(3);
    EXPECT_THAT(copy, ElementsAre(1, 2));
    EXPECT_THAT(list, ElementsAre(1, 2, 3));
    EXPECT_EQ(cls_xpListString({"a", "b"}).Get(1), "b");
    EXPECT_EQ(cls_xp2DArrayDouble(2, 3).Cols(), 3);
    EXPECT_EQ(cls_xp2DArrayDouble(2, 3, 0.0), cls_xp2DArrayDouble(cow_2DArray<double>(2, 3)));
}
}
