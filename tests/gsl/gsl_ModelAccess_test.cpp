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
#include <sstream>
#include <string>

namespace
{
using namespace geometry;

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
            question += " " + std::to_string(id);
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

TEST(Regenerate, TakesThePlaceFromTheModel)
{
    EXPECT_EQ(gsl_ModelAccess::Current(), nullptr);
    {
        const FakeModel first;
        const FakeModel model;
        EXPECT_EQ(gsl_ModelAccess::Current(), &model);
        for (const bool flip : {false, true})
        {
            gsl_Plane plane = PickedPlane(flip);
            EXPECT_TRUE(plane.Regenerate());
            EXPECT_EQ(model.question, "plane 1 4 9");
            EXPECT_TRUE(Same(plane.PointOn(), model.place) && Same(plane.Direction(), Z * (flip ? -1 : 1)));
            EXPECT_TRUE(Same(plane.Centroid(), model.place)) << "the old centroid is forgotten";
            EXPECT_TRUE(plane.Method() == gsl_DirMethod::FROM_FACE && plane.IsFlipped() == flip);
            gsl_StLine line = PickedLine(flip);
            EXPECT_TRUE(line.Regenerate());
            EXPECT_EQ(model.question, "line 1 7");
            EXPECT_TRUE(Same(line.PointOn(), model.place) && Same(line.Direction(), Z * (flip ? -1 : 1)));
            EXPECT_TRUE(Same(line.DirectionForDatum(), Z));
        }
        gsl_Dot dot = PickedDot();
        EXPECT_TRUE(dot.Regenerate());
        EXPECT_EQ(model.question, "dot 3 2 31");
        EXPECT_EQ(model.data, (cow_List<double>{0.25}));
        EXPECT_TRUE(Same(dot.GetPoint(), model.place));
        EXPECT_EQ(dot.GetMethod(), gsl_DotMethod::gsl_FROM_EDGE_PARAM);
    }
    EXPECT_EQ(gsl_ModelAccess::Current(), nullptr);
}

// Ways not to get an answer; each leaves the invalid method and the last geometry.
enum class Refusal { NO_HOOK, SAYS_NO, NO_DIRECTION };

void ExpectInvalidForGood(Refusal refusal)
{
    std::unique_ptr<FakeModel> model;
    if (refusal != Refusal::NO_HOOK)
    {
        model = std::make_unique<FakeModel>();
        model->answers = refusal != Refusal::SAYS_NO;
        model->direction = Z * (refusal == Refusal::NO_DIRECTION ? 0.9e-6 : 4.0);
    }
    gsl_Plane plane = PickedPlane();
    gsl_StLine line = PickedLine();
    EXPECT_FALSE(plane.Regenerate() || plane.IsValid() || line.Regenerate() || line.IsValid());
    EXPECT_EQ(plane.Method(), gsl_DirMethod::PLANE_INVALID);
    EXPECT_EQ(line.Method(), gsl_LineMethod::STLINE_INVALID);
    EXPECT_TRUE(Same(plane.PointOn(), ORIGIN) && Same(plane.Direction(), X) &&
                Same(plane.Centroid(), gsl_Point(0, 5, 0)));
    EXPECT_TRUE(Same(line.PointOn(), ORIGIN) && Same(line.Direction(), X));
    gsl_Dot dot = PickedDot();
    const bool needsNoDirection = refusal == Refusal::NO_DIRECTION;
    EXPECT_EQ(dot.Regenerate(), needsNoDirection);
    EXPECT_EQ(dot.GetMethod() == gsl_DotMethod::gsl_DOT_INVALID, !needsNoDirection);
    EXPECT_TRUE(needsNoDirection || Same(dot.GetPoint(), gsl_Point(5, 5, 5)));
    // A model that answers again cannot know what was picked.
    model = std::make_unique<FakeModel>();
    gsl_HitRecord record;
    record.method = 77;
    EXPECT_FALSE(plane.Regenerate() || line.Regenerate() || plane.CreateHitRecord(record) ||
                 line.CreateHitRecord(record));
    EXPECT_TRUE(model->question.empty() && record.method == 77);
}

TEST(Regenerate, WithoutAnAnswerMakesInvalidForGood)
{
    for (const Refusal refusal : {Refusal::NO_HOOK, Refusal::SAYS_NO, Refusal::NO_DIRECTION})
        ExpectInvalidForGood(refusal);
}

TEST(Regenerate, FreeGeometryAsksNobody)
{
    const FakeModel model;
    const auto free = [](auto geometry, bool valid) {
        gsl_HitRecord none;
        return geometry.Regenerate() == valid && geometry.IsValid() == valid &&
               !geometry.CreateHitRecord(none);
    };
    EXPECT_TRUE(free(gsl_Plane(ORIGIN, X), true) && free(gsl_StLine(ORIGIN, X), true) &&
                free(gsl_StLine(ORIGIN, gsl_Point(1, 0, 0)), true));
    EXPECT_TRUE(free(gsl_Plane(), false) && free(gsl_StLine(), false));
    gsl_HitRecord none;
    gsl_Dot dot(1, 2, 3);
    EXPECT_TRUE(dot.Regenerate() && Same(dot.GetPoint(), gsl_Point(1, 2, 3)) && !dot.CreateHitRecord(none));
    EXPECT_FALSE(gsl_Dot().Regenerate() || gsl_Dot().CreateHitRecord(none));
    EXPECT_EQ(model.question, "");
}

TEST(Regenerate, ASegmentRegeneratesBothDots)
{
    const FakeModel model;
    gsl_ModelSegment segment(PickedDot(), PickedDot());
    EXPECT_TRUE(segment.Regenerate());
    EXPECT_TRUE(Same(segment.Point1().GetPoint(), model.place));
    gsl_ModelSegment half(gsl_Dot(), PickedDot());
    EXPECT_FALSE(half.Regenerate());
    EXPECT_TRUE(Same(half.Point2().GetPoint(), model.place)) << "also when the first dot fails";
}

TEST(Dot, Construction)
{
    gsl_Dot node;
    node.SetValues(ORIGIN, gsl_DotMethod::gsl_FROM_NODE, 2, 1234);
    const struct
    {
        gsl_Dot dot;
        const char* expected; // method, x, instance, entity, parents, label
    } rows[] = {{gsl_Dot(), "11 0 0 0 0 -1"},
                {gsl_Dot(3, 4), "1 0 3 4 1 -1"},
                {gsl_Dot(1, 2, 3), "0 1 0 0 0 -1"},
                {node, "10 0 2 1234 1 1234"}};
    for (const auto& [dot, expected] : rows)
    {
        std::ostringstream text;
        text << static_cast<int>(dot.GetMethod()) << " " << dot.GetPoint().X() << " " << dot.GetInstanceId()
             << " " << dot.GetEntityId() << " " << dot.NmrParents() << " " << dot.GetUserNodeLabel();
        EXPECT_EQ(text.str(), expected);
        EXPECT_THROW((void)dot.GetNthParentId(dot.NmrParents()), nex_RangeException);
        EXPECT_EQ(dot.OwnerFeatID(), 0) << "without a model";
    }
    const FakeModel model;
    EXPECT_EQ(PickedDot().GetNthParentId(0), 31);
    EXPECT_EQ(PickedDot().OwnerFeatID(), 231);
    EXPECT_EQ(gsl_Dot(1, 2, 3).OwnerFeatID(), 0);
}

TEST(HitRecord, TellsWhatWasPicked)
{
    const auto told = [](const auto& picked, int method, const cow_List<int>& ids, const gsl_Point& point,
                         const gsl_Vector& direction) {
        gsl_HitRecord record;
        EXPECT_TRUE(picked.CreateHitRecord(record));
        return record.typeId == picked.DynTypeId() && record.method == method && record.parentIds == ids &&
               Same(record.point, point) && Same(record.direction, direction);
    };
    EXPECT_TRUE(told(PickedPlane(), 1, {4, 9}, gsl_Point(0, 5, 0), X));
    EXPECT_TRUE(told(PickedLine(), 1, {7}, ORIGIN, X));
    EXPECT_TRUE(told(PickedDot(), 3, {2, 31}, gsl_Point(5, 5, 5), gsl_Vector()));
}
}
