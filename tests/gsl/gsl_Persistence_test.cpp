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

    /// The declaration as text: "gsl_Plane 30a0004 800 of 1 hook: _ok BOOL 1 0, ...".
    std::string Declaration(unsigned typeId) const
    {
        const cls_ClassMetadata* meta = Registrar().Find(typeId);
        if (meta == nullptr)
        {
            return "none";
        }
        std::ostringstream text;
        text << meta->Name().AsCharPtr() << " " << std::hex << meta->TypeId() << " " << std::dec
             << meta->Version() << " of " << std::hex << meta->ParentTypeId()
             << (meta->Dtor() != nullptr ? " hook:" : ":");
        for (const cls_Attribute& attribute : meta->Attributes())
        {
            text << " " << attribute.name.AsCharPtr() << "/" << std::dec
                 << static_cast<unsigned>(attribute.type) << "/" << std::hex << attribute.typeId << "/"
                 << std::dec << static_cast<unsigned>(attribute.collection);
        }
        return text.str();
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

TEST_F(GeometryPersistence, Declarations)
{
    const char* const attributes = "_point/15/30a0001/0 ";
    EXPECT_EQ(Declaration(0x30A0001), "gsl_Point 30a0001 203 of 1 hook: x/10/1/0 y/10/1/0 z/10/1/0");
    EXPECT_EQ(Declaration(0x30A0002),
              "gsl_Matrix 30a0002 203 of 1: _is_identity/13/1/0 DDBmatrix/15/230001/52");
    EXPECT_EQ(Declaration(0x30A0003),
              "gsl_Vector 30a0003 203 of 30a0001: x/10/1/0 y/10/1/0 z/10/1/0 _magnitude/10/1/0");
    EXPECT_EQ(Declaration(0x30A0004), std::string("gsl_Plane 30a0004 800 of 1 hook: _ok/13/1/0 ") +
                                          attributes +
                                          "_normal/15/30a0003/0 _method/14/1/0 _flip/13/1/0 "
                                          "parent_ids/15/230001/54 owner_feat_id/5/1/0");
    EXPECT_EQ(Declaration(0x30A0005), std::string("gsl_Dot 30a0005 203 of 1 hook: ") + attributes +
                                          "_method/14/1/0 _instanceId/5/1/0 _entityId/5/1/0");
    EXPECT_EQ(Declaration(0x30A0006), std::string("gsl_StLine 30a0006 800 of 1 hook: _ok/13/1/0 ") +
                                          attributes +
                                          "_dir/15/30a0003/0 _method/14/1/0 _flip/13/1/0 "
                                          "parent_ids/15/230001/54 owner_feat_id/5/1/0");
    EXPECT_EQ(Declaration(0x30A0007), "gsl_BBox 30a0007 800 of 1: _low/15/30a0001/0 _high/15/30a0001/0");
    EXPECT_EQ(Declaration(0x30A0008),
              "gsl_Segment 30a0008 800 of 1: _point1/15/30a0001/0 _point2/15/30a0001/0");
    EXPECT_EQ(Declaration(0x30A000B),
              "gsl_ModelSegment 30a000b 332 of 1 hook: point1/15/30a0005/0 point2/15/30a0005/0");
}

TEST_F(GeometryPersistence, StoredShapes)
{
    const int plane = store_.Write(SomePlane());
    EXPECT_EQ(store_.Describe(plane).substr(0, 9), "gsl_Plane");
    EXPECT_EQ(store_.LastPart(plane).Names(), "_ok _point _normal _method _flip parent_ids owner_feat_id");
    const int line = store_.Write(SomeLine());
    EXPECT_EQ(store_.LastPart(line).Names(), "_ok _point _dir _method _flip parent_ids owner_feat_id");
    const int dot = store_.Write(SomeDot());
    EXPECT_EQ(store_.LastPart(dot).Names(), "_point _method _instanceId _entityId");
    const int segment = store_.Write(gsl_Segment(gsl_Point(1, 2, 3), gsl_Point(4, 5, 6)));
    EXPECT_EQ(store_.LastPart(segment).Names(), "_point1 _point2");
    const int picked = store_.Write(gsl_ModelSegment(SomeDot(1), SomeDot(2)));
    EXPECT_EQ(store_.LastPart(picked).Names(), "point1 point2");
    const int box = store_.Write(gsl_BBox(gsl_Point(1, 2, 3), gsl_Point(4, 5, 6)));
    EXPECT_EQ(store_.LastPart(box).Names(), "_low _high");
    const int vector = store_.Write(gsl_PersistentVector(gsl_Vector(3, 4, 0)));
    EXPECT_EQ(store_.LastPart(vector).Names(), "x y z _magnitude");
    // The values of a matrix are stored only when it is not the identity.
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(1, 2, 3));
    EXPECT_EQ(store_.LastPart(store_.Write(gsl_PersistentMatrix())).Names(), "_is_identity");
    EXPECT_EQ(store_.LastPart(store_.Write(gsl_PersistentMatrix(moved))).Names(), "_is_identity DDBmatrix");
    EXPECT_EQ(store_.Faults(), "");
}

TEST_F(GeometryPersistence, PointComesBack)
{
    const gsl_Point p(1.0 / 3, -0.0, 1e-300);
    const int number = store_.Write(p);
    const gsl_Point back = store_.Read<gsl_Point>(number);
    EXPECT_TRUE(Same(back, p));
    EXPECT_TRUE(std::signbit(back.Y()));
    EXPECT_EQ(back.Uid(), p.Uid());
}

TEST_F(GeometryPersistence, VectorComesBackWithItsCache)
{
    const gsl_Vector unknown(3, 4, 0);
    gsl_Vector known = unknown;
    known.ComputeMagnitude();
    gsl_Vector unit(1, 2, 3);
    ASSERT_TRUE(unit.Normalize());
    for (const gsl_Vector& v : {unknown, known, unit, gsl_Vector()})
    {
        const gsl_PersistentVector back =
            store_.Read<gsl_PersistentVector>(store_.Write(gsl_PersistentVector(v)));
        EXPECT_TRUE(Same(back.Vector(), v));
        EXPECT_EQ(back.Vector().CachedMagnitude(), v.CachedMagnitude());
    }
}

TEST_F(GeometryPersistence, VectorDropsALengthThatDoesNotFit)
{
    for (const double wrong : {5.1, NOT_A_NUMBER, std::numeric_limits<double>::infinity(), 0.0})
    {
        const int number = store_.Write(gsl_PersistentVector(gsl_Vector(3, 4, 0)));
        store_.LastPart(number).Set("_magnitude", cls_AttributeType::DOUBLE, wrong);
        EXPECT_EQ(store_.Read<gsl_PersistentVector>(number).Vector().Magnitude(), 5.0) << wrong;
    }
    const int number = store_.Write(gsl_PersistentVector(gsl_Vector(3, 4, 0)));
    store_.LastPart(number).Drop("_magnitude");
    EXPECT_EQ(store_.Read<gsl_PersistentVector>(number).Vector().Magnitude(), 5.0);
}

TEST_F(GeometryPersistence, MatrixComesBack)
{
    GeometryDraw draw(90);
    gsl_Matrix matrix;
    ASSERT_TRUE(matrix.AxisRotation(draw.Unit(), 1));
    matrix.SetTranslation(gsl_Vector(draw.Point(9)));
    matrix.Set(3, 2, 0.1);
    const gsl_Matrix back =
        store_.Read<gsl_PersistentMatrix>(store_.Write(gsl_PersistentMatrix(matrix))).Matrix();
    for (int i = 0; i < 16; ++i)
    {
        EXPECT_EQ(back(i / 4, i % 4), matrix(i / 4, i % 4));
    }
    EXPECT_TRUE(
        store_.Read<gsl_PersistentMatrix>(store_.Write(gsl_PersistentMatrix())).Matrix().IsIdentity());
}

TEST_F(GeometryPersistence, MatrixOfAnotherShapeIsTheIdentity)
{
    gsl_Matrix matrix;
    matrix.SetTranslation(gsl_Vector(1, 2, 3));
    const int shorter = store_.Write(gsl_PersistentMatrix(matrix));
    store_.LastPart(shorter).Set("DDBmatrix", cls_AttributeType::OBJECT,
                                 MemoryList{cow_List<double>{1, 2, 3}, 1}, cls_CollectionType::LIST_DOUBLE);
    EXPECT_TRUE(store_.Read<gsl_PersistentMatrix>(shorter).Matrix().IsIdentity());
    const int missing = store_.Write(gsl_PersistentMatrix(matrix));
    store_.LastPart(missing).Drop("DDBmatrix");
    EXPECT_TRUE(store_.Read<gsl_PersistentMatrix>(missing).Matrix().IsIdentity());
}

TEST_F(GeometryPersistence, PlaneAndLineComeBack)
{
    const gsl_Plane plane = store_.Read<gsl_Plane>(store_.Write(SomePlane()));
    EXPECT_TRUE(plane.IsValid());
    EXPECT_TRUE(Same(plane.PointOn(), gsl_Point(1, 2, 3)));
    EXPECT_TRUE(Same(plane.Direction(), SomePlane().Direction()));
    EXPECT_EQ(plane.Method(), gsl_DirMethod::FROM_FACE);
    EXPECT_TRUE(plane.IsFlipped());
    EXPECT_EQ(plane.ParentIds(), (cow_List<int>{4, -9}));
    EXPECT_EQ(plane.OwnerFeatID(), 17);
    const gsl_StLine line = store_.Read<gsl_StLine>(store_.Write(SomeLine()));
    EXPECT_TRUE(line.IsValid());
    EXPECT_TRUE(Same(line.PointOn(), gsl_Point(1, 2, 3)));
    EXPECT_TRUE(Same(line.Direction(), SomeLine().Direction()));
    EXPECT_EQ(line.Method(), gsl_LineMethod::FROM_DATUM_CSYS);
    EXPECT_TRUE(line.IsFlipped());
    EXPECT_EQ(line.ParentIds(), (cow_List<int>{5}));
    EXPECT_EQ(line.OwnerFeatID(), 18);
    const gsl_Plane none = store_.Read<gsl_Plane>(store_.Write(gsl_Plane()));
    EXPECT_FALSE(none.IsValid());
    EXPECT_FALSE(none.HasNormal());
    EXPECT_EQ(none.Method(), gsl_DirMethod::PLANE_INVALID);
}

TEST_F(GeometryPersistence, DotSegmentsAndBoxComeBack)
{
    const gsl_Dot dot = store_.Read<gsl_Dot>(store_.Write(SomeDot()));
    EXPECT_TRUE(Same(dot.GetPoint(), gsl_Point(1, 2, 3)));
    EXPECT_EQ(dot.GetMethod(), gsl_DotMethod::gsl_FROM_DATUM_CSYS_ORIGIN);
    EXPECT_EQ(dot.GetInstanceId(), 6);
    EXPECT_EQ(dot.GetEntityId(), 7);
    const gsl_Segment segment =
        store_.Read<gsl_Segment>(store_.Write(gsl_Segment(gsl_Point(1, 2, 3), gsl_Point(4, 5, 6))));
    EXPECT_TRUE(Same(segment.Point1(), gsl_Point(1, 2, 3)));
    EXPECT_TRUE(Same(segment.Point2(), gsl_Point(4, 5, 6)));
    const gsl_ModelSegment picked =
        store_.Read<gsl_ModelSegment>(store_.Write(gsl_ModelSegment(SomeDot(1), SomeDot(2))));
    EXPECT_EQ(picked.Point1().GetEntityId(), 7);
    EXPECT_TRUE(Same(picked.Point2().GetPoint(), gsl_Point(2, 2, 3)));
    const gsl_BBox box(gsl_Point(1, 2, 3), gsl_Point(4, 5, 6));
    EXPECT_TRUE(store_.Read<gsl_BBox>(store_.Write(box)) == box);
    EXPECT_TRUE(store_.Read<gsl_BBox>(store_.Write(gsl_BBox())).IsEmpty());
}

// Everything absent: the object of the default constructor.
TEST_F(GeometryPersistence, AbsentAttributesLeaveTheDefaults)
{
    const int plane = store_.Write(SomePlane());
    store_.LastPart(plane).attributes.clear();
    EXPECT_FALSE(store_.Read<gsl_Plane>(plane).IsValid());
    const int line = store_.Write(SomeLine());
    store_.LastPart(line).attributes.clear();
    EXPECT_FALSE(store_.Read<gsl_StLine>(line).IsValid());
    const int dot = store_.Write(SomeDot());
    store_.LastPart(dot).attributes.clear();
    EXPECT_EQ(store_.Read<gsl_Dot>(dot).GetMethod(), gsl_DotMethod::gsl_DOT_INVALID);
    const int box = store_.Write(gsl_BBox(gsl_Point(1, 2, 3)));
    store_.LastPart(box).attributes.clear();
    EXPECT_TRUE(store_.Read<gsl_BBox>(box).IsEmpty());
    const int point = store_.Write(gsl_Point(1, 2, 3));
    store_.LastPart(point).attributes.clear();
    EXPECT_TRUE(Same(store_.Read<gsl_Point>(point), gsl_Point(0, 0, 0)));
}

// Normals as no writer of ours stores them. Whatever comes, a plane has a unit normal or none.
TEST_F(GeometryPersistence, PlaneMakesItsNormalGood)
{
    struct Row
    {
        const char* what;
        double z;
        bool normal;
    };
    const Row rows[] = {{"unit", 1, true},
                        {"rounded", 1 + 1e-15, true},
                        {"long", -7, true},
                        {"short", 1e-5, true},
                        {"zero", 0, false},
                        {"below the tolerance", 0.9e-6, false},
                        {"NaN", NOT_A_NUMBER, false},
                        {"infinite", std::numeric_limits<double>::infinity(), false}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        const int number = store_.Write(gsl_Plane(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 1)));
        const int normal = std::get<MemoryReference>(store_.LastPart(number).Find("_normal")->value).number;
        store_.LastPart(normal).Set("z", cls_AttributeType::DOUBLE, row.z);
        store_.LastPart(normal).Set("_magnitude", cls_AttributeType::DOUBLE, -1.0);
        const gsl_Plane plane = store_.Read<gsl_Plane>(number);
        EXPECT_EQ(plane.HasNormal(), row.normal);
        EXPECT_EQ(plane.IsValid(), row.normal);
        EXPECT_EQ(plane.Method() == gsl_DirMethod::PLANE_INVALID, !row.normal);
        EXPECT_NEAR(plane.Direction().Magnitude(), row.normal ? 1.0 : 0.0, 1e-14);
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

// By type id each class comes back as itself; a vector is registered under gsl_Point and is none.
TEST_F(GeometryPersistence, ObjectsAreCreatedByTypeId)
{
    const auto created = [&](int number) { return store_.Create(number); };
    EXPECT_NE(cls_PersistentCast<gsl_Point>(created(store_.Write(gsl_Point(1, 2, 3))).get()), nullptr);
    EXPECT_NE(cls_PersistentCast<gsl_PersistentMatrix>(created(store_.Write(gsl_PersistentMatrix())).get()),
              nullptr);
    EXPECT_NE(cls_PersistentCast<gsl_Plane>(created(store_.Write(SomePlane())).get()), nullptr);
    EXPECT_NE(cls_PersistentCast<gsl_StLine>(created(store_.Write(SomeLine())).get()), nullptr);
    EXPECT_NE(cls_PersistentCast<gsl_Dot>(created(store_.Write(SomeDot())).get()), nullptr);
    EXPECT_NE(cls_PersistentCast<gsl_Segment>(created(store_.Write(gsl_Segment())).get()), nullptr);
    EXPECT_NE(cls_PersistentCast<gsl_ModelSegment>(created(store_.Write(gsl_ModelSegment())).get()), nullptr);
    EXPECT_NE(cls_PersistentCast<gsl_BBox>(created(store_.Write(gsl_BBox())).get()), nullptr);
    const std::unique_ptr<cls_Persistent> vector =
        created(store_.Write(gsl_PersistentVector(gsl_Vector(1, 2, 3))));
    EXPECT_NE(cls_PersistentCast<gsl_PersistentVector>(vector.get()), nullptr);
    EXPECT_EQ(cls_PersistentCast<gsl_Point>(vector.get()), nullptr);
    EXPECT_TRUE(Registrar().InheritanceCheck(gsl_PersistentVector::TypeId(), gsl_Point::TypeId()));
}

// A stored box whose corner is a vector: the registered ancestry alone would let it through.
TEST_F(GeometryPersistence, AVectorIsNotTakenForAPoint)
{
    const int box = store_.Write(gsl_BBox(gsl_Point(1, 2, 3)));
    const int vector = store_.Write(gsl_PersistentVector(gsl_Vector(1, 2, 3)));
    store_.LastPart(box).Set("_low", cls_AttributeType::OBJECT, MemoryReference{vector});
    EXPECT_THROW((void)store_.Read<gsl_BBox>(box), nex_PrimException);
}

TEST_F(GeometryPersistence, DestructorHooksDeleteTheirOwnClass)
{
    for (const unsigned typeId : {gsl_Point::TypeId(), gsl_Dot::TypeId(), gsl_Plane::TypeId(),
                                  gsl_StLine::TypeId(), gsl_ModelSegment::TypeId()})
    {
        EXPECT_NE(Registrar().FindDtor(typeId), nullptr) << typeId;
    }
    // Under the leak checker these five calls are the test.
    Registrar().FindDtor(gsl_Point::TypeId())(new gsl_Point(1, 2, 3));
    Registrar().FindDtor(gsl_Dot::TypeId())(new gsl_Dot(SomeDot()));
    Registrar().FindDtor(gsl_Plane::TypeId())(new gsl_Plane(SomePlane()));
    Registrar().FindDtor(gsl_StLine::TypeId())(new gsl_StLine(SomeLine()));
    Registrar().FindDtor(gsl_ModelSegment::TypeId())(new gsl_ModelSegment(SomeDot(), SomeDot()));
}

TEST_F(GeometryPersistence, IsAFollowsTheRegisteredAncestry)
{
    const gsl_Dot dot = SomeDot();
    EXPECT_TRUE(dot.IsA(gsl_Dot::TypeId()));
    EXPECT_TRUE(dot.IsA(cls_UniversalRoot));
    EXPECT_FALSE(dot.IsA(gsl_Point::TypeId()));
    EXPECT_FALSE(dot.IsA(0x7FFF7FFF));
    EXPECT_EQ(dot.DynTypeId(), 0x30A0005u);
}
}
