// Arrays of geometry as scripts hold them.

#include <KTLOxuGsl.h>
#include <gsl_ArrayPoint.h>
#include <gsl_DotArray.h>
#include <gsl_LineArray.h>
#include <gsl_ModelSegmentArray.h>
#include <gsl_PlaneArray.h>
#include <nex_RangeException.h>
#include <testing/ExpectRaise.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

#include <gtest/gtest.h>

namespace
{
const gsl_Point ORIGIN;
const gsl_Point P(1.0, 2.0, 3.0);

template <class T>
void ExpectKept(const cow_List<T>& items, const char* text)
{
    const StartGuard<KTLOxuGsl_initialize, KTLOxuGsl_finalize> gsl;
    omu_xoObjVarray<T> array(items);
    EXPECT_EQ(array.AsString(), text);
    MemoryStore store;
    const int number = store.Write(array);
    EXPECT_EQ(store.Faults(), "");
    const std::unique_ptr<cls_Persistent> back = store.Create(number);
    const auto& read = dynamic_cast<const omu_Varray&>(*back);
    EXPECT_EQ(read.AsString(), text);
    EXPECT_EQ(read.TypeName(), array.TypeName());
    EXPECT_EQ(read.Uid(), array.Uid());

    const std::unique_ptr<omu_Varray> copy(array.Copy());
    array.Append(array.Index(0));
    EXPECT_EQ(copy->AsString(), text);
    EXPECT_NE(copy->Uid(), array.Uid());
    EXPECT_EQ(array.Length(), items.Length() + 1);
    EXPECT_RAISE(array.Index(-1), nex_RangeException,
                 ("index -1 out of range, length " + std::to_string(array.Length())).c_str());
}

TEST(GeometryArray, HoldsAndStoresItsObjects)
{
    ExpectKept<gsl_Point>({ORIGIN, P}, "[(0.0, 0.0, 0.0), (1.0, 2.0, 3.0)]");
    ExpectKept<gsl_Dot>({gsl_Dot(P)}, "[(1.0, 2.0, 3.0)]");
    ExpectKept<gsl_StLine>({gsl_StLine(P, gsl_Vector(2.0, 0.0, 0.0))},
                           "[((1.0, 2.0, 3.0), (1.0, 0.0, 0.0))]");
    ExpectKept<gsl_Plane>({gsl_Plane(P, gsl_Vector(0.0, 0.0, -3.0))},
                          "[((1.0, 2.0, 3.0), (0.0, 0.0, -1.0))]");
    ExpectKept<gsl_ModelSegment>({gsl_ModelSegment(gsl_Dot(ORIGIN), gsl_Dot(P))},
                                 "[((0.0, 0.0, 0.0), (1.0, 2.0, 3.0))]");
}
}
