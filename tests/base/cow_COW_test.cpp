#include <cow_ArrayCOW.h>
#include <cow_COW.h>
#include <cow_CountedHld.h>
#include <nex_InternalException.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <unordered_set>

// The handles: cow_COW and cow_ArrayCOW clone what is shared, cow_CountedHld never does.

namespace
{
class Shape
{
public:
    virtual ~Shape() { --live; }
    virtual Shape* Copy() const = 0;
    virtual int Sides() const = 0;

    int mark = 0;
    static inline int live = 0;
    static inline bool refuses = false;

protected:
    Shape() { ++live; }
    Shape(const Shape& other) : mark(other.mark)
    {
        if (refuses)
            throw std::runtime_error("refused");
        ++live;
    }
};

class Triangle : public Shape
{
public:
    Shape* Copy() const override { return new Triangle(*this); }
    int Sides() const override { return 3; }
};

class Square : public Shape
{
public:
    Square* Copy() const override { return new Square(*this); }
    int Sides() const override { return 4; }
};

using Shapes = cow_ArrayCOW<Shape, cow_Virtual<Shape>>;

TEST(cow_COW, ReadingKeepsSharingAndTheFirstWriteClonesWithTheDynamicType)
{
    const int live = Shape::live;
    {
        cow_COW<Shape> a(new Square);
        const cow_COW<Shape> b = a;
        EXPECT_EQ(a->mark + (*a).mark + a.ConstGet().mark, 0);
        EXPECT_TRUE(a.SharesWith(b));
        Shape::refuses = true;
        EXPECT_THROW(a.Get(), std::runtime_error);
        Shape::refuses = false;
        EXPECT_TRUE(a.SharesWith(b)) << "a refused clone changes nothing";

        a.Get().mark = 5;
        const Shape* body = a.AsPtr();
        a.Get().mark = 6;
        EXPECT_EQ(a.AsPtr(), body) << "alone, it writes in place";
        EXPECT_EQ(a->Sides(), 4);
        EXPECT_EQ(b->mark, 0);
        EXPECT_EQ(cow_COW<Shape>(*b)->Sides(), 4);
        EXPECT_EQ(Shape::live - live, 2);
    }
    EXPECT_EQ(Shape::live, live);
}

TEST(cow_COW, NullIsAskedForAndNeverReadAndEqualityIsByValue)
{
    cow_COW<Shape> none;
    EXPECT_TRUE(none.IsNull());
    EXPECT_TRUE(cow_COW<Shape>(static_cast<Shape*>(nullptr)).IsNull());
    EXPECT_EQ(none.AsPtr(), nullptr);
    EXPECT_RAISE(none->Sides(), nex_InternalException, "null handle");
    EXPECT_RAISE(none.Get(), nex_InternalException, "null handle");
    EXPECT_RAISE(none.ConstGet(), nex_InternalException, "null handle");
    EXPECT_EQ(cow_COW<int>(1), cow_COW<int>(1));
    EXPECT_NE(cow_COW<int>(1), cow_COW<int>(2));
    EXPECT_NE(cow_COW<int>(0), cow_COW<int>());
    EXPECT_EQ(cow_COW<int>(), cow_COW<int>());
}

TEST(cow_ArrayCOW, AWriteClonesItsElementAlone)
{
    const int live = Shape::live;
    {
        Shapes array(1);
        array.Set(0, new Triangle);
        array.Append(nullptr);
        array.Append(new Square);
        const Shapes copy = array;
        EXPECT_EQ(array.Write(1), nullptr);
        EXPECT_EQ(array.Get(0)->Sides() + array[2]->Sides() + (array.IsNull(1) ? 1 : 0), 8);
        EXPECT_TRUE(array.SharesWith(copy)) << "there was nothing to write";
        Shape::refuses = true;
        EXPECT_THROW(array.Write(2), std::runtime_error);
        Shape::refuses = false;
        EXPECT_EQ(array.Get(2), copy.Get(2));

        array.Write(2)->mark = 6;
        EXPECT_FALSE(array.SharesWith(copy));
        const Shape* body = array.Get(2);
        array.Write(2)->mark = 7;
        EXPECT_EQ(array.Get(2), body);
        EXPECT_EQ(array.Get(2)->Sides(), 4);
        EXPECT_EQ(copy.Get(2)->mark, 0);
        EXPECT_EQ(array.Get(0), copy.Get(0)) << "what was not written stays shared";

        EXPECT_RAISE(array.Get(3), nex_RangeException, "index 3 out of range, length 3");
        EXPECT_RAISE(array.Write(-1), nex_RangeException, "index -1 out of range, length 3");
        EXPECT_RAISE(array.Set(3, new Square), nex_RangeException, "index 3 out of range, length 3");
        EXPECT_RAISE(array.Remove(3), nex_RangeException, "index 3 out of range, length 3");
        EXPECT_EQ(Shape::live - live, 3) << "the refused element was taken over, and freed";

        // A handle to an array clones the array, and a write the element.
        cow_COW<Shapes> handle(copy);
        const cow_COW<Shapes> other = handle;
        handle.Get().Write(0)->mark = 3;
        EXPECT_EQ(handle->Get(0)->mark - other->Get(0)->mark - copy.Get(0)->mark, 3);
        array.Remove(0);
        EXPECT_EQ(array.Length() + copy.Length(), 5);
    }
    EXPECT_EQ(Shape::live, live);
}

TEST(cow_CountedHld, SharesNeverClonesAndCastsWithTheCountKept)
{
    const int live = Shape::live;
    Shape::refuses = true;
    {
        const cow_CountedHld<Square> square(new Square);
        const cow_CountedHld<Shape> shape = square;
        shape->mark = 4;
        (*shape).mark += 1;
        EXPECT_EQ(square->mark, 5);
        EXPECT_EQ(shape.CastTo<Square>(), square);
        EXPECT_TRUE(shape.CastTo<Triangle>().IsNull());
        EXPECT_TRUE(cow_CountedHld<Shape>().CastTo<Square>().IsNull());
        EXPECT_EQ(square.Holders(), 2);
        EXPECT_NE(shape, cow_CountedHld<Shape>(new Square));
        EXPECT_EQ((std::unordered_set<cow_CountedHld<Shape>>{shape, square}.size()), 1u);
    }
    Shape::refuses = false;
    EXPECT_EQ(Shape::live, live);
    const cow_CountedHld<Shape> none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.Get(), nullptr);
    EXPECT_RAISE(none->Sides(), nex_InternalException, "null holder");
    EXPECT_RAISE((*none).Sides(), nex_InternalException, "null holder");
}
}
