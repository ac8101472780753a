#include <cow_ArrayCOW.h>
#include <cow_COW.h>
#include <cow_CountedHld.h>
#include <nex_InternalException.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gtest/gtest.h>

// The handles: cow_COW and cow_ArrayCOW clone what is shared, cow_CountedHld never does.

namespace
{
using orvex_testing::Tracked;

struct Shape : Tracked
{
    virtual ~Shape() = default;
    virtual Shape* Copy() const = 0;
};

template <int Sides>
struct Polygon : Shape
{
    Polygon* Copy() const override { return new Polygon(*this); }
};
using Square = Polygon<4>;

class Handles : public testing::Test
{
protected:
    ~Handles() override { EXPECT_EQ(Tracked::live, 0); }

    /// The copy of an element fails.
    template <class F>
    static void ExpectRefused(F write)
    {
        Tracked::copiesLeft = 0;
        EXPECT_THROW(write(), std::bad_alloc);
        Tracked::copiesLeft = -1;
    }
};

TEST_F(Handles, OfOneReadTogetherAndCloneTheDynamicTypeOnTheFirstWrite)
{
    cow_COW<Shape> a(new Square);
    const cow_COW<Shape> b = a;
    ExpectRefused([&] { a.Get(); });
    EXPECT_TRUE(a.SharesWith(b)) << "a refused clone changes nothing";
    const Shape* body = &a.Get();
    a.Get().value = 6;
    EXPECT_EQ(a.AsPtr(), body) << "alone, it writes in place";
    EXPECT_NE(dynamic_cast<const Square*>(body), nullptr);
    EXPECT_EQ(b->value, 0);
    cow_COW<Shape> none;
    EXPECT_RAISE(none->value, nex_InternalException, "null handle");
    EXPECT_EQ(cow_COW<int>(1), cow_COW<int>(1)) << "equality is by value";
    EXPECT_NE(cow_COW<int>(0), cow_COW<int>());
}

TEST_F(Handles, OfManyCloneTheElementThatIsWrittenAlone)
{
    cow_ArrayCOW<Shape, cow_Virtual<Shape>> array;
    array.Append(new Polygon<3>);
    array.Append(nullptr);
    array.Append(new Square);
    const auto copy = array;
    EXPECT_EQ(array.Write(1), nullptr);
    EXPECT_TRUE(array.IsNull(1) && array.SharesWith(copy)) << "there was nothing to write";
    ExpectRefused([&] { array.Write(2); });
    EXPECT_EQ(array.Get(2), copy.Get(2));
    const Shape* body = array.Write(2);
    array.Write(2)->value = 7;
    EXPECT_EQ(array.Get(2), body);
    EXPECT_NE(dynamic_cast<const Square*>(body), nullptr);
    EXPECT_EQ(copy.Get(2)->value, 0);
    EXPECT_EQ(array.Get(0), copy.Get(0)) << "what was not written stays shared";
    EXPECT_RAISE(array.Get(3), nex_RangeException, "index 3 out of range, length 3");
    EXPECT_RAISE(array.Write(-1), nex_RangeException, "index -1 out of range, length 3");
    EXPECT_RAISE(array.Set(3, new Square), nex_RangeException, "index 3 out of range, length 3");
    EXPECT_EQ(Tracked::live, 3) << "the refused element was taken over, and freed";
}

TEST_F(Handles, ThatCountShareAndCastWithTheCountKept)
{
    const cow_CountedHld<Square> square(new Square);
    const cow_CountedHld<Shape> shape = square;
    EXPECT_EQ(shape.CastTo<Square>(), square);
    EXPECT_TRUE(shape.CastTo<Polygon<3>>().IsNull());
    EXPECT_EQ(square.Holders(), 2);
    EXPECT_RAISE(cow_CountedHld<Shape>()->value, nex_InternalException, "null holder");
}
}
