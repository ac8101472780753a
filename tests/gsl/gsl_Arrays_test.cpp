// Arrays of geometry as scripts hold them.

#include <KTLOxuGsl.h>
#include <gsl_ArrayPoint.h>
#include <gsl_DotArray.h>
#include <gsl_LineArray.h>
#include <gsl_ModelSegmentArray.h>
#include <gsl_PlaneArray.h>
#include <memory>
#include <nex_RangeException.h>
#include <testing/ExpectRaise.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

#include <gtest/gtest.h>

namespace
{
const gsl_Point ORIGIN;
const gsl_Point P(1.0, 2.0, 3.0);

template <class Array>
Array Make();
template <>
gsl_ArrayPoint Make()
{
    return gsl_ArrayPoint({ORIGIN, P});
}
template <>
gsl_DotArray Make()
{
    return gsl_DotArray({gsl_Dot(P)});
}
template <>
gsl_LineArray Make()
{
    return gsl_LineArray({gsl_StLine(P, gsl_Vector(2.0, 0.0, 0.0))});
}
template <>
gsl_PlaneArray Make()
{
    return gsl_PlaneArray({gsl_Plane(P, gsl_Vector(0.0, 0.0, -3.0))});
}
template <>
gsl_ModelSegmentArray Make()
{
    return gsl_ModelSegmentArray({gsl_ModelSegment(gsl_Dot(ORIGIN), gsl_Dot(P))});
}

const char* TextOf(const gsl_ArrayPoint&)
{
    return "[(0.0, 0.0, 0.0), (1.0, 2.0, 3.0)]";
}
const char* TextOf(const gsl_DotArray&)
{
    return "[(1.0, 2.0, 3.0)]";
}
const char* TextOf(const gsl_LineArray&)
{
    return "[((1.0, 2.0, 3.0), (1.0, 0.0, 0.0))]";
}
const char* TextOf(const gsl_PlaneArray&)
{
    return "[((1.0, 2.0, 3.0), (0.0, 0.0, -1.0))]";
}
const char* TextOf(const gsl_ModelSegmentArray&)
{
    return "[((0.0, 0.0, 0.0), (1.0, 2.0, 3.0))]";
}

template <class Array>
class GeometryArray : public testing::Test
{
protected:
    const StartGuard<KTLOxuGsl_initialize, KTLOxuGsl_finalize> gsl_;
};
using Arrays =
    testing::Types<gsl_ArrayPoint, gsl_DotArray, gsl_LineArray, gsl_PlaneArray, gsl_ModelSegmentArray>;
TYPED_TEST_SUITE(GeometryArray, Arrays);

TYPED_TEST(GeometryArray, HoldsAndStoresItsObjects)
{
    TypeParam array = Make<TypeParam>();
    EXPECT_EQ(array.AsString(), TextOf(array));
    MemoryStore store;
    const int number = store.Write(array);
    EXPECT_EQ(store.Faults(), "");
    const std::unique_ptr<cls_Persistent> back = store.Create(number);
    const auto& read = dynamic_cast<const TypeParam&>(*back);
    EXPECT_EQ(read.AsString(), TextOf(array));
    EXPECT_EQ(read.TypeName(), array.TypeName());
    EXPECT_EQ(read.DynTypeId(), TypeParam::TypeId());
    EXPECT_EQ(read.Uid(), array.Uid());

    const std::unique_ptr<omu_Varray> copy(array.Copy());
    EXPECT_NE(copy->Uid(), array.Uid());
    const int length = array.Length();
    array.Append(array.Index(0));
    EXPECT_EQ(array.Length(), length + 1);
    EXPECT_EQ(copy->Length(), length);
    EXPECT_RAISE(
        copy->ItemAsString(length), nex_RangeException,
        ("index " + std::to_string(length) + " out of range, length " + std::to_string(length)).c_str());
    array.Clear();
    EXPECT_EQ(array.AsString(), "[]");
}
}
