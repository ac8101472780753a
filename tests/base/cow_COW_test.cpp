#include <cow_ArrayCOW.h>
#include <cow_COW.h>
#include <cow_CountedHld.h>
#include <nex_InternalException.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>
#include <testing/Tracked.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <unordered_set>
#include <utility>

// The handles: cow_COW and cow_ArrayCOW clone what is shared, cow_CountedHld never does.

namespace
{
using orvex_testing::Tracked;

class Shape
{
public:
    virtual ~Shape() { --live; }
    virtual Shape* Copy() const = 0;
    virtual int Sides() const = 0;

    int mark = 0;
    static inline int live = 0;
    static inline int cloned = 0;
    static inline bool refuses = false;

protected:
    Shape() { ++live; }
    Shape(const Shape& other) : mark(other.mark)
    {
        if (refuses)
            throw std::runtime_error("refused");
        ++live;
        ++cloned;
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

TEST(cow_COW, ReadingKeepsSharingAndTheFirstWriteClones)
{
    cow_COW<Tracked> a(Tracked(1));
    const cow_COW<Tracked> b = a;
    const int copies = Tracked::copies;
    EXPECT_EQ(a->value + b->value + (*a).value + a.ConstGet().value, 4);
    EXPECT_TRUE(a.SharesWith(b));
    EXPECT_EQ(Tracked::copies, copies);

    a.Get().value = 2;
    EXPECT_EQ(Tracked::copies, copies + 1);
    EXPECT_FALSE(a.SharesWith(b));
    EXPECT_EQ(b->value, 1);
    a.Get().value = 3;
    EXPECT_EQ(Tracked::copies, copies + 1) << "alone, it writes in place";
}

TEST(cow_COW, ClonesWithTheDynamicType)
{
    const int live = Shape::live;
    {
        cow_COW<Shape> a(new Square);
        const cow_COW<Shape> b = a;
        a.Get().mark = 5;
        EXPECT_EQ(a->Sides(), 4);
        EXPECT_EQ(a->mark, 5);
        EXPECT_EQ(b->mark, 0);
        EXPECT_NE(&*a, &*b);

        const cow_COW<Shape> fromValue(*b);
        EXPECT_EQ(fromValue->Sides(), 4);
        EXPECT_EQ(Shape::live - live, 3);
    }
    EXPECT_EQ(Shape::live, live);
}

TEST(cow_COW, NullIsAskedForAndNeverRead)
{
    cow_COW<Shape> none;
    const cow_COW<Shape> adopted(static_cast<Shape*>(nullptr));
    EXPECT_TRUE(none.IsNull());
    EXPECT_TRUE(adopted.IsNull());
    EXPECT_EQ(none.AsPtr(), nullptr);
    EXPECT_RAISE(none->Sides(), nex_InternalException, "null handle");
    EXPECT_RAISE(none.Get(), nex_InternalException, "null handle");
    EXPECT_RAISE(none.ConstGet(), nex_InternalException, "null handle");
}

TEST(cow_COW, EqualityIsByValue)
{
    const cow_COW<int> none;
    const cow_COW<int> one(1);
    EXPECT_EQ(one, cow_COW<int>(1));
    EXPECT_NE(one, cow_COW<int>(2));
    EXPECT_NE(one, none);
    EXPECT_EQ(none, cow_COW<int>());
}

TEST(cow_COW, ARefusedCloneChangesNothing)
{
    cow_COW<Shape> a(new Triangle);
    const cow_COW<Shape> b = a;
    Shape::refuses = true;
    EXPECT_THROW(a.Get(), std::runtime_error);
    Shape::refuses = false;
    EXPECT_TRUE(a.SharesWith(b));
}

TEST(cow_ArrayCOW, AWriteClonesItsElementAlone)
{
    Shapes array;
    array.Append(new Triangle);
    array.Append(nullptr);
    array.Append(new Square);
    const Shapes copy = array;
    const int cloned = Shape::cloned;
    EXPECT_EQ(array.Get(0)->Sides() + array[2]->Sides() + (array.IsNull(1) ? 1 : 0), 8);
    EXPECT_TRUE(array.SharesWith(copy));

    array.Write(2)->mark = 6;
    EXPECT_EQ(Shape::cloned, cloned + 1);
    EXPECT_FALSE(array.SharesWith(copy));
    EXPECT_EQ(array.Get(2)->Sides(), 4);
    EXPECT_EQ(array.Get(2)->mark, 6);
    EXPECT_EQ(copy.Get(2)->mark, 0);
    EXPECT_EQ(array.Get(0), copy.Get(0)) << "what was not written stays shared";

    array.Write(2)->mark = 7;
    EXPECT_EQ(Shape::cloned, cloned + 1);
    EXPECT_EQ(copy.Get(2)->mark, 0);
}

TEST(cow_ArrayCOW, NullSlotsAreLegalAndCloneToNull)
{
    Shapes array(2);
    EXPECT_EQ(array.Length(), 2);
    Shapes copy = array;
    EXPECT_EQ(array.Write(0), nullptr);
    EXPECT_TRUE(array.SharesWith(copy)) << "there was nothing to write";
    array.Set(0, new Triangle);
    EXPECT_EQ(copy.Get(0), nullptr);
    copy = array;
    copy.Write(0)->mark = 1;
    EXPECT_TRUE(copy.IsNull(1));
    array.Set(0, nullptr);
    EXPECT_TRUE(array.IsNull(0));
    EXPECT_EQ(copy.Get(0)->mark, 1);
}

TEST(cow_ArrayCOW, PositionsAreCheckedAndNothingLeaks)
{
    const int live = Shape::live;
    {
        Shapes array;
        array.Append(new Triangle);
        EXPECT_RAISE(array.Get(1), nex_RangeException, "index 1 out of range, length 1");
        EXPECT_RAISE(array.Write(-1), nex_RangeException, "index -1 out of range, length 1");
        EXPECT_RAISE(array.Set(1, new Square), nex_RangeException, "index 1 out of range, length 1");
        EXPECT_RAISE(array.Remove(1), nex_RangeException, "index 1 out of range, length 1");
        EXPECT_EQ(Shape::live - live, 1) << "the refused element was taken over, and freed";
        const Shapes copy = array;
        Shape::refuses = true;
        EXPECT_THROW(array.Write(0), std::runtime_error);
        Shape::refuses = false;
        EXPECT_EQ(array.Get(0), copy.Get(0));
        array.Remove(0);
        EXPECT_TRUE(array.IsEmpty());
        EXPECT_EQ(copy.Length(), 1);
    }
    EXPECT_EQ(Shape::live, live);
}

TEST(cow_COW, MayHoldAnArrayOfPolymorphicElements)
{
    Shapes array;
    array.Append(new Triangle);
    cow_COW<Shapes> a(array);
    const cow_COW<Shapes> b = a;
    a.Get().Write(0)->mark = 3;
    EXPECT_EQ(a->Get(0)->mark, 3);
    EXPECT_EQ(b->Get(0)->mark, 0);
    EXPECT_EQ(array.Get(0)->mark, 0);
}

TEST(cow_CountedHld, SharesAndNeverClones)
{
    const int live = Shape::live;
    const int cloned = Shape::cloned;
    {
        const cow_CountedHld<Shape> a(new Square);
        const cow_CountedHld<Shape> b = a; // NOLINT(performance-unnecessary-copy-initialization)
        b->mark = 4;
        (*b).mark += 1;
        EXPECT_EQ(a->mark, 5);
        EXPECT_EQ(a.Get(), b.Get());
        EXPECT_EQ(a, b);
        EXPECT_NE(a, cow_CountedHld<Shape>(new Square));
        EXPECT_EQ(a.Holders(), 2);
        EXPECT_EQ((std::unordered_set<cow_CountedHld<Shape>>{a, b}.size()), 1u);
    }
    EXPECT_EQ(Shape::live, live);
    EXPECT_EQ(Shape::cloned, cloned);
}

TEST(cow_CountedHld, CastsWithTheCountKept)
{
    const cow_CountedHld<Square> square(new Square);
    const cow_CountedHld<Shape> shape = square;
    EXPECT_EQ(shape.CastTo<Square>(), square);
    EXPECT_TRUE(shape.CastTo<Triangle>().IsNull());
    EXPECT_TRUE(cow_CountedHld<Shape>().CastTo<Square>().IsNull());
    EXPECT_EQ(square.Holders(), 2);
}

TEST(cow_CountedHld, NullIsNeverRead)
{
    const cow_CountedHld<Shape> none;
    EXPECT_TRUE(none.IsNull());
    EXPECT_FALSE(none);
    EXPECT_EQ(none.Get(), nullptr);
    EXPECT_RAISE(none->Sides(), nex_InternalException, "null holder");
    EXPECT_RAISE((*none).Sides(), nex_InternalException, "null holder");
}
}
