// Geometry that remembers how it was picked: what it asks the model, and what becomes of it without an
// answer.
#include <testing/GeometryTesting.h>

#include <gsl_DirMethod.h>
#include <gsl_Dot.h>
#include <gsl_DotMethod.h>
#include <gsl_HitRecord.h>
#include <gsl_LineMethod.h>
#include <gsl_ModelAccess.h>
#include <gsl_ModelSegment.h>
#include <gsl_Plane.h>
#include <gsl_StLine.h>
#include <memory>
#include <nex_RangeException.h>
#include <stdexcept>
#include <string>

namespace
{
const gsl_Point ORIGIN(0, 0, 0);
const gsl_Vector X(1, 0, 0);
const gsl_Vector Z(0, 0, 1);

/// A model that answers as told and keeps the last question.
class FakeModel : public gsl_ModelAccess
{
public:
    bool FindPlane(gsl_DirMethod method, const cow_List<int>& parentIds, gsl_Point& point,
                   gsl_Vector& normal) const override
    {
        return Answer("plane", static_cast<int>(method), parentIds, point, normal);
    }
    bool FindLine(gsl_LineMethod method, const cow_List<int>& parentIds, gsl_Point& point,
                  gsl_Vector& dir) const override
    {
        return Answer("line", static_cast<int>(method), parentIds, point, dir);
    }
    bool FindDot(gsl_DotMethod method, int instanceId, int entityId, const cow_List<double>& geometryData,
                 gsl_Point& point) const override
    {
        gsl_Vector none;
        data = geometryData;
        return Answer("dot", static_cast<int>(method), cow_List<int>{instanceId, entityId}, point, none);
    }
    int FindOwner(int instanceId, int entityId) const override { return 100 * instanceId + entityId; }

    bool answers = true;
    bool fails = false;
    gsl_Point place = gsl_Point(1, 2, 3);
    gsl_Vector direction = gsl_Vector(0, 0, 4);
    mutable std::string question;
    mutable cow_List<double> data;

private:
    bool Answer(const char* what, int method, const cow_List<int>& ids, gsl_Point& point,
                gsl_Vector& vector) const
    {
        question = what + std::string(" ") + std::to_string(method);
        for (const int id : ids)
        {
            question += " " + std::to_string(id);
        }
        if (fails)
        {
            throw std::runtime_error("the model is being edited");
        }
        point = place;
        vector = direction;
        return answers;
    }
};

gsl_Plane PickedPlane(bool flip = false)
{
    gsl_Plane plane(ORIGIN, X);
    plane.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4, 9}, flip);
    plane.SetCentroid(gsl_Point(0, 5, 0));
    return plane;
}

gsl_StLine PickedLine(bool flip = false)
{
    gsl_StLine line(ORIGIN, X);
    line.SetParents(gsl_LineMethod::FROM_EDGE, cow_List<int>{7}, flip);
    return line;
}

gsl_Dot PickedDot()
{
    gsl_Dot dot;
    dot.SetValues(gsl_Point(5, 5, 5), gsl_DotMethod::gsl_FROM_EDGE_PARAM, 2, 31);
    dot.SetGeometryData(cow_List<double>{0.25});
    return dot;
}

TEST(ModelAccess, IsNoneUntilOneIsMadeAndAfterItDied)
{
    EXPECT_EQ(gsl_ModelAccess::Current(), nullptr);
    {
        const FakeModel first;
        EXPECT_EQ(gsl_ModelAccess::Current(), &first);
        {
            const FakeModel second;
            EXPECT_EQ(gsl_ModelAccess::Current(), &second);
        }
        EXPECT_EQ(gsl_ModelAccess::Current(), nullptr);
    }
    EXPECT_EQ(gsl_ModelAccess::Current(), nullptr);
}

TEST(Regenerate, TakesThePlaceFromTheModel)
{
    const FakeModel model;
    gsl_Plane plane = PickedPlane();
    EXPECT_TRUE(plane.Regenerate());
    EXPECT_EQ(model.question, "plane 1 4 9");
    EXPECT_TRUE(Same(plane.PointOn(), model.place));
    EXPECT_TRUE(Same(plane.Direction(), Z));
    EXPECT_TRUE(Same(plane.Centroid(), model.place)) << "the old centroid is forgotten";
    EXPECT_EQ(plane.Method(), gsl_DirMethod::FROM_FACE);
    gsl_StLine line = PickedLine();
    EXPECT_TRUE(line.Regenerate());
    EXPECT_EQ(model.question, "line 1 7");
    EXPECT_TRUE(Same(line.PointOn(), model.place));
    EXPECT_TRUE(Same(line.Direction(), Z));
    gsl_Dot dot = PickedDot();
    EXPECT_TRUE(dot.Regenerate());
    EXPECT_EQ(model.question, "dot 3 2 31");
    EXPECT_EQ(model.data, (cow_List<double>{0.25}));
    EXPECT_TRUE(Same(dot.GetPoint(), model.place));
    EXPECT_EQ(dot.GetMethod(), gsl_DotMethod::gsl_FROM_EDGE_PARAM);
}

TEST(Regenerate, FlippedOnesReverseTheModelsDirection)
{
    const FakeModel model;
    gsl_Plane plane = PickedPlane(true);
    EXPECT_TRUE(plane.Regenerate());
    EXPECT_TRUE(plane.IsFlipped());
    EXPECT_TRUE(Same(plane.Direction(), Z * -1));
    gsl_StLine line = PickedLine();
    line.FlipDirection();
    EXPECT_TRUE(line.Regenerate());
    EXPECT_TRUE(line.IsFlipped());
    EXPECT_TRUE(Same(line.Direction(), Z * -1));
    EXPECT_TRUE(Same(line.DirectionForDatum(), Z));
}

// Four ways not to get an answer; each leaves the invalid method and the last geometry.
enum class Refusal { NO_HOOK, SAYS_NO, NO_DIRECTION };

void ExpectInvalid(Refusal refusal)
{
    std::unique_ptr<FakeModel> model;
    if (refusal != Refusal::NO_HOOK)
    {
        model = std::make_unique<FakeModel>();
        model->answers = refusal != Refusal::SAYS_NO;
        model->direction = refusal == Refusal::NO_DIRECTION ? gsl_Vector(0, 0, 0.9e-6) : model->direction;
    }
    gsl_Plane plane = PickedPlane();
    EXPECT_FALSE(plane.Regenerate());
    EXPECT_FALSE(plane.IsValid());
    EXPECT_EQ(plane.Method(), gsl_DirMethod::PLANE_INVALID);
    EXPECT_TRUE(Same(plane.PointOn(), ORIGIN));
    EXPECT_TRUE(Same(plane.Direction(), X));
    EXPECT_TRUE(Same(plane.Centroid(), gsl_Point(0, 5, 0)));
    gsl_StLine line = PickedLine();
    EXPECT_FALSE(line.Regenerate());
    EXPECT_FALSE(line.IsValid());
    EXPECT_EQ(line.Method(), gsl_LineMethod::STLINE_INVALID);
    EXPECT_TRUE(Same(line.PointOn(), ORIGIN));
    EXPECT_TRUE(Same(line.Direction(), X));
    if (refusal != Refusal::NO_DIRECTION)
    {
        gsl_Dot dot = PickedDot();
        EXPECT_FALSE(dot.Regenerate());
        EXPECT_EQ(dot.GetMethod(), gsl_DotMethod::gsl_DOT_INVALID);
        EXPECT_TRUE(Same(dot.GetPoint(), gsl_Point(5, 5, 5)));
        EXPECT_EQ(dot.GetEntityId(), 31);
    }
    // Invalid for good: a model that answers again cannot know what was picked.
    model = std::make_unique<FakeModel>();
    EXPECT_FALSE(plane.Regenerate() || line.Regenerate());
    EXPECT_EQ(model->question, "");
}

TEST(Regenerate, WithoutAHookMakesInvalid)
{
    ExpectInvalid(Refusal::NO_HOOK);
}

TEST(Regenerate, ARefusalMakesInvalid)
{
    ExpectInvalid(Refusal::SAYS_NO);
}

TEST(Regenerate, AnAnswerWithoutADirectionMakesInvalid)
{
    ExpectInvalid(Refusal::NO_DIRECTION);
}

TEST(Regenerate, FreeGeometryAsksNobody)
{
    const gsl_Plane made(ORIGIN, X);
    for (const bool hooked : {false, true})
    {
        std::unique_ptr<FakeModel> model;
        if (hooked)
        {
            model = std::make_unique<FakeModel>();
            model->answers = false;
        }
        gsl_Plane plane = made;
        gsl_StLine fromVector(ORIGIN, X);
        gsl_StLine fromPoints(ORIGIN, gsl_Point(1, 0, 0));
        gsl_Dot dot(1, 2, 3);
        EXPECT_TRUE(plane.Regenerate() && fromVector.Regenerate() && fromPoints.Regenerate() &&
                    dot.Regenerate());
        EXPECT_TRUE(plane.IsValid() && fromVector.IsValid() && fromPoints.IsValid());
        EXPECT_TRUE(Same(plane.Direction(), X));
        EXPECT_TRUE(Same(dot.GetPoint(), gsl_Point(1, 2, 3)));
        EXPECT_EQ(model ? model->question : "", "");
    }
    gsl_Plane never;
    gsl_Dot unset;
    EXPECT_FALSE(never.Regenerate() || unset.Regenerate());
}

TEST(Regenerate, AnExceptionLeavesTheObject)
{
    FakeModel model;
    model.fails = true;
    gsl_Plane plane = PickedPlane();
    gsl_StLine line = PickedLine();
    gsl_Dot dot = PickedDot();
    EXPECT_THROW((void)plane.Regenerate(), std::runtime_error);
    EXPECT_THROW((void)line.Regenerate(), std::runtime_error);
    EXPECT_THROW((void)dot.Regenerate(), std::runtime_error);
    EXPECT_TRUE(plane.IsValid() && line.IsValid());
    EXPECT_TRUE(Same(plane.PointOn(), ORIGIN));
    EXPECT_TRUE(Same(line.PointOn(), ORIGIN));
    EXPECT_TRUE(Same(dot.GetPoint(), gsl_Point(5, 5, 5)));
}

TEST(Regenerate, ASegmentRegeneratesBothDots)
{
    FakeModel model;
    gsl_ModelSegment segment(PickedDot(), PickedDot());
    EXPECT_TRUE(segment.Regenerate());
    EXPECT_TRUE(Same(segment.Point2().GetPoint(), model.place));
    gsl_ModelSegment half(gsl_Dot(), PickedDot());
    model.place = gsl_Point(8, 8, 8);
    EXPECT_FALSE(half.Regenerate());
    EXPECT_TRUE(Same(half.Point2().GetPoint(), gsl_Point(8, 8, 8))) << "also when the first dot fails";
}

TEST(Dot, Construction)
{
    struct Row
    {
        const char* what;
        gsl_Dot dot;
        gsl_DotMethod method;
        gsl_Point place;
        int instance, entity, parents;
    };
    const Row rows[] = {
        {"default", gsl_Dot(), gsl_DotMethod::gsl_DOT_INVALID, ORIGIN, 0, 0, 0},
        {"ids", gsl_Dot(3, 4), gsl_DotMethod::gsl_FROM_VERTEX, ORIGIN, 3, 4, 1},
        {"coordinates", gsl_Dot(1, 2, 3), gsl_DotMethod::gsl_FROM_POINT, gsl_Point(1, 2, 3), 0, 0, 0},
        {"point", gsl_Dot(gsl_Point(1, 2, 3)), gsl_DotMethod::gsl_FROM_POINT, gsl_Point(1, 2, 3), 0, 0, 0},
        {"values", PickedDot(), gsl_DotMethod::gsl_FROM_EDGE_PARAM, gsl_Point(5, 5, 5), 2, 31, 1}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.dot.GetMethod(), row.method);
        EXPECT_TRUE(Same(row.dot.GetPoint(), row.place));
        EXPECT_EQ(row.dot.GetInstanceId(), row.instance);
        EXPECT_EQ(row.dot.GetEntityId(), row.entity);
        EXPECT_EQ(row.dot.NmrParents(), row.parents);
        EXPECT_EQ(row.dot.GetUserNodeLabel(), -1);
        EXPECT_THROW((void)row.dot.GetNthParentId(row.parents), nex_RangeException);
        EXPECT_THROW((void)row.dot.GetNthParentId(-1), nex_RangeException);
    }
    EXPECT_EQ(PickedDot().GetNthParentId(0), 31);
}

TEST(Dot, NodeLabelIsTheEntityOfANode)
{
    gsl_Dot dot;
    dot.SetValues(ORIGIN, gsl_DotMethod::gsl_FROM_NODE, 2, 1234);
    EXPECT_EQ(dot.GetUserNodeLabel(), 1234);
}

TEST(Dot, OwnerComesFromTheModel)
{
    EXPECT_EQ(PickedDot().OwnerFeatID(), 0);
    const FakeModel model;
    EXPECT_EQ(PickedDot().OwnerFeatID(), 231);
    EXPECT_EQ(gsl_Dot(1, 2, 3).OwnerFeatID(), 0);
}

TEST(Dot, CopyIsIndependent)
{
    gsl_Dot dot = PickedDot();
    const std::unique_ptr<gsl_Dot> copy(dot.Copy());
    dot.SetValues(ORIGIN, gsl_DotMethod::gsl_FROM_NODE, 0, 0);
    dot.SetGeometryData(cow_List<double>{});
    EXPECT_EQ(copy->GetMethod(), gsl_DotMethod::gsl_FROM_EDGE_PARAM);
    EXPECT_EQ(copy->GetGeometryData(), (cow_List<double>{0.25}));
}

TEST(HitRecord, TellsWhatWasPicked)
{
    gsl_HitRecord record;
    ASSERT_TRUE(PickedPlane().CreateHitRecord(record));
    EXPECT_EQ(record.typeId, gsl_Plane::TypeId());
    EXPECT_EQ(record.method, 1);
    EXPECT_EQ(record.parentIds, (cow_List<int>{4, 9}));
    EXPECT_TRUE(Same(record.point, gsl_Point(0, 5, 0)));
    EXPECT_TRUE(Same(record.direction, X));
    ASSERT_TRUE(PickedLine().CreateHitRecord(record));
    EXPECT_EQ(record.typeId, gsl_StLine::TypeId());
    EXPECT_EQ(record.parentIds, (cow_List<int>{7}));
    EXPECT_TRUE(Same(record.point, ORIGIN));
    ASSERT_TRUE(PickedDot().CreateHitRecord(record));
    EXPECT_EQ(record.typeId, gsl_Dot::TypeId());
    EXPECT_EQ(record.method, 3);
    EXPECT_EQ(record.parentIds, (cow_List<int>{2, 31}));
    EXPECT_TRUE(Same(record.point, gsl_Point(5, 5, 5)));
    EXPECT_TRUE(Same(record.direction, gsl_Vector(0, 0, 0)));
}

TEST(HitRecord, IsRefusedForWhatWasNotPicked)
{
    gsl_HitRecord record;
    record.method = 77;
    gsl_Plane lost = PickedPlane();
    EXPECT_FALSE(lost.Regenerate());
    EXPECT_FALSE(lost.CreateHitRecord(record) || gsl_Plane().CreateHitRecord(record) ||
                 gsl_Plane(ORIGIN, X).CreateHitRecord(record) || gsl_StLine().CreateHitRecord(record) ||
                 gsl_StLine(ORIGIN, X).CreateHitRecord(record) ||
                 gsl_StLine(ORIGIN, gsl_Point(1, 0, 0)).CreateHitRecord(record) ||
                 gsl_Dot().CreateHitRecord(record) || gsl_Dot(ORIGIN).CreateHitRecord(record));
    EXPECT_EQ(record.method, 77);
    EXPECT_EQ(record.typeId, 0u);
}
}
