// What the geometry stores: names, order and types against the registered metadata, round trips, and data
// that is incomplete or contradicts itself.
#include <testing/GeometryTesting.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

#include <KTLOxuGsl.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <cls_TypeId.h>
#include <gsl_BBox.h>
#include <gsl_DirMethod.h>
#include <gsl_DotMethod.h>
#include <gsl_LineMethod.h>
#include <gsl_ModelSegment.h>
#include <gsl_PersistentMatrix.h>
#include <gsl_PersistentVector.h>
#include <gsl_Plane.h>
#include <gsl_Segment.h>
#include <gsl_StLine.h>
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

gsl_Plane SomePlane()
{
    gsl_Plane plane(gsl_Point(1, 2, 3), gsl_Vector(1, 2, 2));
    plane.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4, -9}, true);
    plane.SetOwnerFeatID(17);
    return plane;
}

gsl_StLine SomeLine()
{
    gsl_StLine line(gsl_Point(1, 2, 3), gsl_Vector(1, 2, 2));
    line.SetParents(gsl_LineMethod::FROM_DATUM_CSYS, cow_List<int>{5}, true);
    line.SetOwnerFeatID(18);
    return line;
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
    const char* const plane = "gsl_Plane 30a0004 800 of 1 hook: _ok/13/1/0 _point/15/30a0001/0 "
                              "_normal/15/30a0003/0 _method/14/1/0 _flip/13/1/0 parent_ids/15/230001/54 "
                              "owner_feat_id/5/1/0";
    ExpectStored(p, "gsl_Point 30a0001 203 of 1 hook: x/10/1/0 y/10/1/0 z/10/1/0");
    // The values of a matrix are stored only when it is not the identity.
    ExpectStored(gsl_PersistentMatrix(), matrix, "_is_identity");
    ExpectStored(gsl_PersistentMatrix(moved), matrix);
    ExpectStored(gsl_PersistentVector(gsl_Vector(3, 4, 0)),
                 "gsl_Vector 30a0003 203 of 30a0001: x/10/1/0 y/10/1/0 z/10/1/0 _magnitude/10/1/0");
    ExpectStored(SomePlane(), plane);
    ExpectStored(gsl_Plane(), plane);
    ExpectStored(SomeDot(), "gsl_Dot 30a0005 203 of 1 hook: _point/15/30a0001/0 _method/14/1/0 "
                            "_instanceId/5/1/0 _entityId/5/1/0");
    ExpectStored(SomeLine(), "gsl_StLine 30a0006 800 of 1 hook: _ok/13/1/0 _point/15/30a0001/0 "
                             "_dir/15/30a0003/0 _method/14/1/0 _flip/13/1/0 parent_ids/15/230001/54 "
                             "owner_feat_id/5/1/0");
    ExpectStored(gsl_BBox(p, gsl_Point(4, 5, 6)),
                 "gsl_BBox 30a0007 800 of 1: _low/15/30a0001/0 _high/15/30a0001/0");
    ExpectStored(gsl_Segment(p, gsl_Point(4, 5, 6)),
                 "gsl_Segment 30a0008 800 of 1: _point1/15/30a0001/0 _point2/15/30a0001/0");
    ExpectStored(gsl_ModelSegment(SomeDot(1), SomeDot(2)),
                 "gsl_ModelSegment 30a000b 332 of 1 hook: point1/15/30a0005/0 point2/15/30a0005/0");
    EXPECT_FALSE(
        store_.Read<gsl_PersistentMatrix>(store_.Write(gsl_PersistentMatrix(moved))).Matrix().IsIdentity());
    const gsl_Point back = store_.Read<gsl_Point>(store_.Write(p));
    EXPECT_TRUE(Same(back, p) && std::signbit(back.Y()) && back.Uid() == p.Uid());
}

// Everything absent: the object of the default constructor.
TEST_F(GeometryPersistence, AbsentAttributesLeaveTheDefaults)
{
    const auto stripped = [&](const auto& value) {
        const int number = store_.Write(value);
        store_.LastPart(number).attributes.clear();
        return store_.Read<std::decay_t<decltype(value)>>(number);
    };
    EXPECT_FALSE(stripped(SomePlane()).IsValid() || stripped(SomeLine()).IsValid());
    EXPECT_EQ(stripped(SomeDot()).GetMethod(), gsl_DotMethod::gsl_DOT_INVALID);
    EXPECT_TRUE(stripped(gsl_BBox(gsl_Point(1, 2, 3))).IsEmpty());
    EXPECT_TRUE(Same(stripped(gsl_Point(1, 2, 3)), gsl_Point(0, 0, 0)));
    EXPECT_EQ(stripped(gsl_PersistentVector(gsl_Vector(3, 4, 0))).Vector().Magnitude(), 0.0);
}

TEST_F(GeometryPersistence, WhatDoesNotFitIsDropped)
{
    for (const double wrong : {5.1, NOT_A_NUMBER, std::numeric_limits<double>::infinity(), 0.0})
    {
        const int number = store_.Write(gsl_PersistentVector(gsl_Vector(3, 4, 0)));
        store_.LastPart(number).Set("_magnitude", cls_AttributeType::DOUBLE, wrong);
        EXPECT_EQ(store_.Read<gsl_PersistentVector>(number).Vector().Magnitude(), 5.0) << wrong;
    }
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(1, 2, 3));
    const int number = store_.Write(gsl_PersistentMatrix(moved));
    store_.LastPart(number).Set("DDBmatrix", cls_AttributeType::OBJECT,
                                MemoryList{cow_List<double>{1, 2, 3}, 1}, cls_CollectionType::LIST_DOUBLE);
    EXPECT_TRUE(store_.Read<gsl_PersistentMatrix>(number).Matrix().IsIdentity());
    store_.LastPart(number).Drop("DDBmatrix");
    EXPECT_TRUE(store_.Read<gsl_PersistentMatrix>(number).Matrix().IsIdentity());
}

// Normals as no writer of ours stores them. Whatever comes, a plane has a unit normal or none.
TEST_F(GeometryPersistence, PlaneMakesItsNormalGood)
{
    for (const auto& [z, good] : {std::pair{1 + 1e-15, true},
                                  {-7.0, true},
                                  {1e-5, true},
                                  {0.0, false},
                                  {0.9e-6, false},
                                  {NOT_A_NUMBER, false},
                                  {std::numeric_limits<double>::infinity(), false}})
    {
        SCOPED_TRACE(z);
        const int number = store_.Write(gsl_Plane(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 1)));
        const int normal = std::get<MemoryReference>(store_.LastPart(number).Find("_normal")->value).number;
        store_.LastPart(normal).Set("z", cls_AttributeType::DOUBLE, z);
        store_.LastPart(normal).Set("_magnitude", cls_AttributeType::DOUBLE, -1.0);
        const gsl_Plane plane = store_.Read<gsl_Plane>(number);
        EXPECT_TRUE(plane.HasNormal() == good && plane.IsValid() == good);
        EXPECT_EQ(plane.Method() == gsl_DirMethod::PLANE_INVALID, !good);
        EXPECT_NEAR(plane.Direction().Magnitude(), good ? 1.0 : 0.0, 1e-14);
    }
}

TEST_F(GeometryPersistence, ContradictionsMakeInvalid)
{
    const int notOk = store_.Write(SomePlane());
    store_.LastPart(notOk).Set("_ok", cls_AttributeType::BOOL, false);
    EXPECT_EQ(store_.Read<gsl_Plane>(notOk).Method(), gsl_DirMethod::PLANE_INVALID);
    const int invalid = store_.Write(SomeLine());
    store_.LastPart(invalid).Set("_method", cls_AttributeType::ENUM, cow_String("STLINE_INVALID"));
    EXPECT_FALSE(store_.Read<gsl_StLine>(invalid).IsValid());
    const int unknown = store_.Write(SomeDot());
    store_.LastPart(unknown).Set("_method", cls_AttributeType::ENUM, cow_String("gsl_FROM_NOWHERE"));
    EXPECT_THROW((void)store_.Read<gsl_Dot>(unknown), omu_ValueErrorException);
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
    const gsl_Dot dot = SomeDot();
    EXPECT_TRUE(dot.IsA(gsl_Dot::TypeId()) && dot.IsA(cls_UniversalRoot));
    EXPECT_FALSE(dot.IsA(gsl_Point::TypeId()) || dot.IsA(0x7FFF7FFF));
}
}
