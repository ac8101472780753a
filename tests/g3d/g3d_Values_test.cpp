// Points, vectors and spheres of the 3D view.

#include <KTLOxuG3d.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <cmath>
#include <g3d_Point.h>
#include <g3d_Sphere.h>
#include <g3d_Vector.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

namespace
{
using Running = StartGuard<KTLOxuG3d_initialize, KTLOxuG3d_finalize>;

template <class T>
class ViewValue : public testing::Test
{};
using ViewValues = testing::Types<g3d_Point, g3d_Vector>;
TYPED_TEST_SUITE(ViewValue, ViewValues);

TYPED_TEST(ViewValue, IsExactAndComesBackFromStorage)
{
    const Running running;
    TypeParam value;
    value.Set(0.1f, -2.5f, std::numeric_limits<float>::max());
    EXPECT_NE(value, TypeParam(std::nextafter(0.1f, 1.0f), value.Y(), value.Z()));
    MemoryStore store;
    const int number = store.Write(value);
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.LastPart(number).Names(), "x y z");
    const std::unique_ptr<cls_Persistent> made = store.Create(number);
    const TypeParam* back = cls_PersistentCast<TypeParam>(made.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(*back, value);
    store.LastPart(number).Drop("y");
    EXPECT_EQ(store.template Read<TypeParam>(number), TypeParam(value.X(), 0.0f, value.Z()));
    // Under the address sanitizer a body that is not freed, or freed as another class, is a fault.
    cls_MetadataRegistrar::Instance().Registrar().FindDtor(TypeParam::TypeId())(
        new TypeParam(1.0f, 2.0f, 3.0f));
}

TEST(Sphere, HoldsItsSurface)
{
    constexpr g3d_Sphere sphere(1.0, 2.0, 3.0, 2.0);
    EXPECT_TRUE(sphere.Contains(3.0, 2.0, 3.0));
    EXPECT_FALSE(sphere.Contains(std::nextafter(3.0, 4.0), 2.0, 3.0));
    EXPECT_FALSE(sphere.Contains(2.5, 3.5, 3.0));
    EXPECT_FALSE(g3d_Sphere(1.0, 2.0, 3.0, -1.0).Contains(1.0, 2.0, 3.0));
}
}
