// What the geometry stores: names, order and types against the registered metadata, round trips, and data
// that is incomplete or contradicts itself.
#include <testing/GeometryTesting.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

#include <KTLOxuGsl.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <gsl_ArrayPoint.h>
#include <gsl_BBox.h>
#include <gsl_DirMethod.h>
#include <gsl_DotArray.h>
#include <gsl_DotMethod.h>
#include <gsl_LineArray.h>
#include <gsl_LineMethod.h>
#include <gsl_ModelSegmentArray.h>
#include <gsl_PersistentMatrix.h>
#include <gsl_PersistentVector.h>
#include <gsl_PlaneArray.h>
#include <gsl_Segment.h>
#include <limits>
#include <memory>
#include <nex_PrimException.h>
#include <omu_ValueErrorException.h>

namespace
{
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

class GeometryPersistence : public testing::Test
{
protected:
    const cls_ClassRegistrar& Registrar() const { return cls_MetadataRegistrar::Instance().Registrar(); }

    /// What T declares is that text, "gsl_Plane 30a0004 800 of 1 hook: _ok/13/1/0 ..."; and the value stores
    /// the attributes declared, in that order, and comes back by type id as a T that stores the same.
    template <class T>
    void ExpectStored(const T& value, const std::string& declaration, std::string names = "")
    {
        const cls_ClassMetadata* meta = Registrar().Find(T::TypeId());
        std::ostringstream text;
        text << meta->Name().AsCharPtr() << " " << std::hex << meta->TypeId() << " " << std::dec
             << meta->Version() << " of " << std::hex << meta->ParentTypeId()
             << (meta->Dtor() != nullptr ? " hook:" : ":");
        std::string declared;
        for (const cls_Attribute& attribute : meta->Attributes())
        {
            text << " " << attribute.name.AsCharPtr() << "/" << std::dec
                 << static_cast<unsigned>(attribute.type) << "/" << std::hex << attribute.typeId << "/"
                 << std::dec << static_cast<unsigned>(attribute.collection);
            declared += (declared.empty() ? "" : " ") + std::string(attribute.name.View());
        }
        EXPECT_EQ(text.str(), declaration);
        MemoryStore store;
        const int number = store.Write(value);
        EXPECT_EQ(std::string(store.LastPart(number).Names()), names.empty() ? declared : names);
        EXPECT_NE(cls_PersistentCast<T>(store.Create(number).get()), nullptr);
        MemoryStore again;
        const int copy = again.Write(store.Read<T>(number));
        EXPECT_EQ(again.Describe(copy), store.Describe(number));
        EXPECT_EQ(store.Faults() + again.Faults(), "");
    }

    const StartGuard<KTLOxuGsl_initialize, KTLOxuGsl_finalize> guard_;
    MemoryStore store_;
};

template <class T, class Method>
T Picked(Method method)
{
    T picked(gsl_Point(1, 2, 3), gsl_Vector(1, 2, 2));
    picked.SetParents(method, cow_List<int>{4, -9}, true);
    picked.SetOwnerFeatID(17);
    return picked;
}

gsl_Dot SomeDot(double x = 1)
{
    gsl_Dot dot;
    dot.SetValues(gsl_Point(x, 2, 3), gsl_DotMethod::gsl_FROM_DATUM_CSYS_ORIGIN, 6, 7);
    return dot;
}

TEST_F(GeometryPersistence, DeclarationsAndRoundTrips)
{
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(1, 2, 3));
    const gsl_Point p(1.0 / 3, -0.0, 1e-300);
    const char* const matrix = "gsl_Matrix 30a0002 203 of 1: _is_identity/13/1/0 DDBmatrix/15/230001/52";
    ExpectStored(p, "gsl_Point 30a0001 203 of 1 hook: x/10/1/0 y/10/1/0 z/10/1/0");
    // The values of a matrix are stored only when it is not the identity.
    ExpectStored(gsl_PersistentMatrix(), matrix, "_is_identity");
    ExpectStored(gsl_PersistentMatrix(moved), matrix);
    ExpectStored(gsl_PersistentVector(gsl_Vector(3, 4, 0)),
                 "gsl_Vector 30a0003 203 of 30a0001: x/10/1/0 y/10/1/0 z/10/1/0 _magnitude/10/1/0");
    ExpectStored(Picked<gsl_Plane>(gsl_DirMethod::FROM_FACE),
                 "gsl_Plane 30a0004 800 of 1 hook: _ok/13/1/0 _point/15/30a0001/0 _normal/15/30a0003/0 "
                 "_method/14/1/0 _flip/13/1/0 parent_ids/15/230001/54 owner_feat_id/5/1/0");
    ExpectStored(SomeDot(), "gsl_Dot 30a0005 203 of 1 hook: _point/15/30a0001/0 _method/14/1/0 "
                            "_instanceId/5/1/0 _entityId/5/1/0");
    ExpectStored(Picked<gsl_StLine>(gsl_LineMethod::FROM_DATUM_CSYS),
                 "gsl_StLine 30a0006 800 of 1 hook: _ok/13/1/0 _point/15/30a0001/0 _dir/15/30a0003/0 "
                 "_method/14/1/0 _flip/13/1/0 parent_ids/15/230001/54 owner_feat_id/5/1/0");
    ExpectStored(gsl_BBox(p, gsl_Point(4, 5, 6)),
                 "gsl_BBox 30a0007 800 of 1: _low/15/30a0001/0 _high/15/30a0001/0");
    ExpectStored(gsl_Segment(p, gsl_Point(4, 5, 6)),
                 "gsl_Segment 30a0008 800 of 1: _point1/15/30a0001/0 _point2/15/30a0001/0");
    ExpectStored(gsl_ModelSegment(SomeDot(1), SomeDot(2)),
                 "gsl_ModelSegment 30a000b 332 of 1 hook: point1/15/30a0005/0 point2/15/30a0005/0");
}

TEST_F(GeometryPersistence, WhatDoesNotFitIsDroppedOrRefused)
{
    const int vector = store_.Write(gsl_PersistentVector(gsl_Vector(3, 4, 0)));
    store_.LastPart(vector).Set("_magnitude", cls_AttributeType::DOUBLE, NOT_A_NUMBER);
    EXPECT_EQ(store_.Read<gsl_PersistentVector>(vector).Vector().Magnitude(), 5.0);
    const int unknown = store_.Write(SomeDot());
    store_.LastPart(unknown).Set("_method", cls_AttributeType::ENUM, cow_String("gsl_FROM_NOWHERE"));
    EXPECT_THROW((void)store_.Read<gsl_Dot>(unknown), omu_ValueErrorException);
}

TEST_F(GeometryPersistence, ArraysShowAndStoreTheirObjects)
{
    const gsl_Point p(1.0, 2.0, 3.0);
    const auto kept = [&](const auto& item, const char* text) {
        omu_xoObjVarray<std::decay_t<decltype(item)>> array;
        array.Append(item);
        const std::unique_ptr<cls_Persistent> back = store_.Create(store_.Write(array));
        const auto& read = dynamic_cast<const omu_Varray&>(*back);
        EXPECT_TRUE(array.AsString() == text && read.AsString() == text &&
                    read.TypeName() == array.TypeName())
            << text;
    };
    kept(p, "[(1.0, 2.0, 3.0)]");
    kept(gsl_Dot(p), "[(1.0, 2.0, 3.0)]");
    kept(gsl_StLine(p, gsl_Vector(2, 0, 0)), "[((1.0, 2.0, 3.0), (1.0, 0.0, 0.0))]");
    kept(gsl_Plane(p, gsl_Vector(0, 0, -3)), "[((1.0, 2.0, 3.0), (0.0, 0.0, -1.0))]");
    kept(gsl_ModelSegment(gsl_Dot(), gsl_Dot(p)), "[((0.0, 0.0, 0.0), (1.0, 2.0, 3.0))]");
    EXPECT_EQ(store_.Faults(), "");
}

// Normals as no writer of ours stores them. Whatever comes, a plane has a unit normal or none.
TEST_F(GeometryPersistence, PlaneMakesItsNormalGood)
{
    for (const auto& [z, good] : {std::pair{-7.0, true}, {0.9e-6, false}, {NOT_A_NUMBER, false}})
    {
        SCOPED_TRACE(z);
        const int number = store_.Write(gsl_Plane(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 1)));
        const int normal = std::get<MemoryReference>(store_.LastPart(number).Find("_normal")->value).number;
        store_.LastPart(normal).Set("z", cls_AttributeType::DOUBLE, z);
        store_.LastPart(normal).Set("_magnitude", cls_AttributeType::DOUBLE, -1.0);
        const gsl_Plane plane = store_.Read<gsl_Plane>(number);
        EXPECT_TRUE(plane.HasNormal() == good && plane.IsValid() == good);
        EXPECT_NEAR(plane.Direction().Magnitude(), good ? 1.0 : 0.0, 1e-14);
    }
}

// A vector is registered under gsl_Point and is none: a stored box whose corner is a vector is refused, where
// the registered ancestry alone would let it through.
TEST_F(GeometryPersistence, AVectorIsNotTakenForAPoint)
{
    EXPECT_TRUE(Registrar().InheritanceCheck(gsl_PersistentVector::TypeId(), gsl_Point::TypeId()));
    const int box = store_.Write(gsl_BBox(gsl_Point(1, 2, 3)));
    const int vector = store_.Write(gsl_PersistentVector(gsl_Vector(1, 2, 3)));
    store_.LastPart(box).Set("_low", cls_AttributeType::OBJECT, MemoryReference{vector});
    EXPECT_THROW((void)store_.Read<gsl_BBox>(box), nex_PrimException);
    EXPECT_EQ(cls_PersistentCast<gsl_Point>(store_.Create(vector).get()), nullptr);
}
}
