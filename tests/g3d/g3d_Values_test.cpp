// Points, vectors and spheres of the 3D view, and the module's start.

#include <KTLOxuG3d.h>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <cls_ReadVisitor.h>
#include <cmath>
#include <g3d_ColorErrorException.h>
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
{
protected:
    Running running_;
};
using ViewValues = testing::Types<g3d_Point, g3d_Vector>;
TYPED_TEST_SUITE(ViewValue, ViewValues);

TYPED_TEST(ViewValue, IsExactAndComesBackFromStorage)
{
    TypeParam value;
    EXPECT_EQ(value, TypeParam(0.0f, 0.0f, 0.0f));
    value.Set(0.1f, -2.5f, std::numeric_limits<float>::max());
    EXPECT_NE(value, TypeParam(std::nextafter(0.1f, 1.0f), value.Y(), value.Z()));
    EXPECT_NE(value, TypeParam(value.X(), 2.5f, value.Z()));
    EXPECT_NE(value, TypeParam(value.X(), value.Y(), 0.0f));
    MemoryStore store;
    const int number = store.Write(value);
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.LastPart(number).Names(), "x y z");
    const std::unique_ptr<cls_Persistent> made = store.Create(number);
    const TypeParam* back = cls_PersistentCast<TypeParam>(made.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(*back, value);
    EXPECT_EQ(back->DynTypeId(), TypeParam::TypeId());
    store.LastPart(number).Drop("y");
    EXPECT_EQ(store.template Read<TypeParam>(number), TypeParam(value.X(), 0.0f, value.Z()));

    const cls_ClassMetadata* meta = cls_MetadataRegistrar::Instance().Registrar().Find(TypeParam::TypeId());
    ASSERT_TRUE(meta != nullptr && meta->Dtor() != nullptr);
    EXPECT_EQ(static_cast<unsigned>(meta->Attributes()[0].type), 9u);
    // Under the address sanitizer a body that is not freed, or freed as another class, is a fault.
    meta->Dtor()(new TypeParam(1.0f, 2.0f, 3.0f));
}

TEST(Sphere, HoldsItsSurface)
{
    constexpr g3d_Sphere sphere(1.0, 2.0, 3.0, 2.0);
    EXPECT_TRUE(sphere.Contains(3.0, 2.0, 3.0));
    EXPECT_FALSE(sphere.Contains(std::nextafter(3.0, 4.0), 2.0, 3.0));
    EXPECT_FALSE(sphere.Contains(2.5, 3.5, 3.0));
    EXPECT_TRUE(g3d_Sphere(1.0, 2.0, 3.0, 0.0).Contains(1.0, 2.0, 3.0));
    EXPECT_FALSE(g3d_Sphere(1.0, 2.0, 3.0, -1.0).Contains(1.0, 2.0, 3.0));
    EXPECT_FALSE(g3d_Sphere(1.0, 2.0, 3.0, std::nan("")).Contains(1.0, 2.0, 3.0));
}

TEST(ColorError, TellsItsTypeAndMessageAndComesBackFromStorage)
{
    const Running running;
    MemoryStore store;
    const int number = store.Write(g3d_ColorErrorException("Reddish"));
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.LastPart(number).Names(), "m_Value");
    const std::unique_ptr<cls_Persistent> made = store.Create(number);
    const auto* back = cls_PersistentCast<g3d_ColorErrorException>(made.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->AsString(), cow_String("ColorError: Reddish is not a valid color name."));
    EXPECT_EQ(back->DynTypeId(), 0x00240003u);
}
}
