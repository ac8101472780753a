#include <cls_xo1DArrayList.h>
#include <cls_xp1DArrayInt.h>
#include <cls_xp2DArrayDouble.h>
#include <cls_xpListInt.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gmock/gmock.h>

namespace
{
using testing::ElementsAre;

// Attribute types are distinct, so that they may stand in one overload set.
static_assert(!std::is_convertible_v<cls_xpListInt, cls_xp1DArrayInt>);

TEST(cls_xo1DArrayList, GrowsAndIsChecked)
{
    const int plain[] = {3, 2, 1};
    cls_xo1DArrayList<int> array(plain, 3);
    const cls_xo1DArrayList<int> copy = array;
    array.Append(0);
    array.Insert(0, -1);
    array.Remove(1);
    array[1] = 10;
    array.Data()[2] = 11;
    EXPECT_THAT(array, ElementsAre(-1, 10, 11, 0));
    EXPECT_THAT(copy, ElementsAre(3, 2, 1));
    EXPECT_RAISE(array[4], nex_RangeException, "index 4 out of range, length 4");
    EXPECT_RAISE(array.Get(-1), nex_RangeException, "index -1 out of range, length 4");
    EXPECT_RAISE(array.Insert(5, 0), nex_RangeException, "index 5 out of range, length 4");
    EXPECT_RAISE(array.Remove(4), nex_RangeException, "index 4 out of range, length 4");
    array.Resize(5);
    EXPECT_EQ(array.Get(4), 0);
    array.Resize(-4);
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_TRUE(cls_xo1DArrayList<int>(plain, -2).IsEmpty());
}

TEST(cls_Arrays, AttributeTypesShareLikeTheListsThatTheyAre)
{
    const cow_List<int> plain{1, 2};
    cls_xpListInt list(plain);
    EXPECT_TRUE(list.SharesWith(plain));
    list.Append(3);
    EXPECT_THAT(plain, ElementsAre(1, 2));
    EXPECT_EQ(cls_xp2DArrayDouble(2, 3, 0.0), cls_xp2DArrayDouble(cow_2DArray<double>(2, 3)));
}
}
