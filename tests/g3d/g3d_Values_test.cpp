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

const cls_ClassRegistrar& Registrar()
{
    return cls_MetadataRegistrar::Instance().Registrar();
}

template <class T>
class ViewValue : public testing::Test
{
protected:
    Running running_;
};
using ViewValues = testing::Types<g3d_Point, g3d_Vector>;
TYPED_TEST_SUITE(ViewValue, ViewValues);

TYPED_TEST(ViewValue, IsZeroByDefault)
{
    EXPECT_EQ(TypeParam(), TypeParam(0.0f, 0.0f, 0.0f));
}

TYPED_TEST(ViewValue, EqualityIsExact)
{
    const TypeParam value(1.0f, 2.0f, 3.0f);
    const float next = std::nextafter(1.0f, 2.0f);
    EXPECT_EQ(value, TypeParam(1.0f, 2.0f, 3.0f));
    EXPECT_NE(value, TypeParam(next, 2.0f, 3.0f));
    EXPECT_NE(value, TypeParam(1.0f, 3.0f, 3.0f));
    EXPECT_NE(value, TypeParam(1.0f, 2.0f, 4.0f));
}

TYPED_TEST(ViewValue, ComesBackFromStorage)
{
    TypeParam value;
    value.Set(0.1f, -2.5f, std::numeric_limits<float>::max());
    MemoryStore store;
    const int number = store.Write(value);
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.LastPart(number).Names(), "x y z");
    EXPECT_EQ(store.template Read<TypeParam>(number), value);

    const std::unique_ptr<cls_Persistent> made = store.Create(number);
    const TypeParam* back = cls_PersistentCast<TypeParam>(made.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(*back, value);
    EXPECT_EQ(back->DynTypeId(), TypeParam::TypeId());

    store.LastPart(number).Drop("y");
    EXPECT_EQ(store.template Read<TypeParam>(number), TypeParam(value.X(), 0.0f, value.Z()));
}

TYPED_TEST(ViewValue, IsRegistered)
{
    const cls_ClassMetadata* meta = Registrar().Find(TypeParam::TypeId());
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Version(), 203u);
    EXPECT_EQ(meta->ParentTypeId(), cls_UniversalRoot);
    ASSERT_EQ(meta->Attributes().size(), 3u);
    EXPECT_EQ(static_cast<unsigned>(meta->Attributes()[0].type), 9u);
    ASSERT_NE(meta->Dtor(), nullptr);
    // Under the address sanitizer a body that is not freed, or freed as another class, is a fault.
    meta->Dtor()(new TypeParam(1.0f, 2.0f, 3.0f));
}

TEST(ViewValueNames, AreThoseOfTheComponentTable)
{
    const Running running;
    EXPECT_EQ(Registrar().Find(0x00240001u)->Name(), cow_String("g3d_Vector"));
    EXPECT_EQ(Registrar().Find(0x00240002u)->Name(), cow_String("g3d_Point"));
    EXPECT_EQ(Registrar().Find(0x00240003u)->Name(), cow_String("g3d_ColorErrorException"));
}

TEST(Sphere, HoldsItsSurface)
{
    constexpr g3d_Sphere sphere(1.0, 2.0, 3.0, 2.0);
    EXPECT_TRUE(sphere.Contains(1.0, 2.0, 3.0));
    EXPECT_TRUE(sphere.Contains(3.0, 2.0, 3.0));
    EXPECT_FALSE(sphere.Contains(std::nextafter(3.0, 4.0), 2.0, 3.0));
    EXPECT_FALSE(sphere.Contains(2.5, 3.5, 3.0));
}

TEST(Sphere, OfNoRadiusHoldsItsCentreAndOfANegativeOneNothing)
{
    EXPECT_TRUE(g3d_Sphere(1.0, 2.0, 3.0, 0.0).Contains(1.0, 2.0, 3.0));
    EXPECT_FALSE(g3d_Sphere(1.0, 2.0, 3.0, 0.0).Contains(1.0, 2.0, 3.5));
    EXPECT_FALSE(g3d_Sphere(1.0, 2.0, 3.0, -1.0).Contains(1.0, 2.0, 3.0));
    EXPECT_FALSE(g3d_Sphere(1.0, 2.0, 3.0, std::numeric_limits<double>::quiet_NaN()).Contains(1.0, 2.0, 3.0));
}

TEST(ColorError, TellsItsTypeAndMessage)
{
    const g3d_ColorErrorException e("Reddish");
    EXPECT_EQ(e.JournalMessage(), cow_String("Reddish is not a valid color name."));
    EXPECT_STREQ(e.PythonType(), "ColorError");
    EXPECT_EQ(e.AsString(), cow_String("ColorError: Reddish is not a valid color name."));
    EXPECT_EQ(e.DynTypeId(), 0x00240003u);
    EXPECT_THROW(e.Propagate(), g3d_ColorErrorException);
}

TEST(ColorError, ComesBackFromStorage)
{
    const Running running;
    MemoryStore store;
    const int number = store.Write(g3d_ColorErrorException("Reddish"));
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.LastPart(number).Names(), "m_Value");
    const std::unique_ptr<cls_Persistent> made = store.Create(number);
    const auto* back = cls_PersistentCast<g3d_ColorErrorException>(made.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->Value(), cow_String("Reddish"));
}
}
