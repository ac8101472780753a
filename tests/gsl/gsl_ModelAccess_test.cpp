// Geometry that remembers how it was picked: what it asks the model, and what becomes of it without an
// answer.
#include <testing/GeometryTesting.h>

#include <gsl_DirMethod.h>
#include <gsl_Dot.h>
#include <gsl_DotMethod.h>
#include <gsl_HitRecord.h>
#include <gsl_LineMethod.h>
#include <gsl_ModelAccess.h>
#include <gsl_Plane.h>
#include <gsl_StLine.h>
#include <memory>
#include <string>

namespace
{
using namespace geometry;
const gsl_Point PLACE(1, 2, 3);

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
    bool FindDot(gsl_DotMethod method, int instanceId, int entityId, const cow_List<double>& data,
                 gsl_Point& point) const override
    {
        gsl_Vector none;
        return Answer(data == cow_List<double>{0.25} ? "dot" : "dot without its data",
                      static_cast<int>(method), {instanceId, entityId}, point, none);
    }
    int FindOwner(int instanceId, int entityId) const override { return 100 * instanceId + entityId; }

    bool answers = true;
    gsl_Vector direction = gsl_Vector(0, 0, 4);
    mutable std::string question;

private:
    bool Answer(const char* what, int method, const cow_List<int>& ids, gsl_Point& point,
                gsl_Vector& vector) const
    {
        question += what + std::string(" ") + std::to_string(method) + ": " + std::to_string(ids[0]) + " " +
                    std::to_string(ids[ids.Length() - 1]) + "; ";
        point = PLACE;
        vector = direction;
        return answers;
    }
};

/// A plane, a line and a dot as picked.
struct Picked
{
    explicit Picked(bool flip = false)
    {
        plane.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4, 9}, flip);
        plane.SetCentroid(gsl_Point(0, 5, 0));
        line.SetParents(gsl_LineMethod::FROM_EDGE, cow_List<int>{7}, flip);
        dot.SetValues(gsl_Point(5, 5, 5), gsl_DotMethod::gsl_FROM_EDGE_PARAM, 2, 31);
        dot.SetGeometryData(cow_List<double>{0.25});
    }

    gsl_Plane plane{ORIGIN, X};
    gsl_StLine line{ORIGIN, X};
    gsl_Dot dot;
};

TEST(Regenerate, TakesThePlaceFromTheModel)
{
    for (const bool flip : {false, true})
    {
        const FakeModel first;
        const FakeModel model; // the latest one is asked
        Picked picked(flip);
        EXPECT_TRUE(picked.plane.Regenerate() && picked.line.Regenerate() && picked.dot.Regenerate());
        EXPECT_EQ(model.question, "plane 1: 4 9; line 1: 7 7; dot 3: 2 31; ");
        EXPECT_TRUE(Same(picked.plane.PointOn(), PLACE) && Same(picked.line.PointOn(), PLACE) &&
                    Same(picked.dot.GetPoint(), PLACE));
        EXPECT_TRUE(Same(picked.plane.Centroid(), PLACE)) << "the old centroid is forgotten";
        const gsl_Vector direction = Z * (flip ? -1 : 1);
        EXPECT_TRUE(Same(picked.plane.Direction(), direction) && Same(picked.line.Direction(), direction));
        EXPECT_TRUE(Same(picked.line.DirectionForDatum(), Z));
        EXPECT_EQ(picked.dot.OwnerFeatID(), 231);
    }
    EXPECT_EQ(gsl_ModelAccess::Current(), nullptr);
}

// Ways not to get an answer; each leaves the invalid method and the last geometry.
TEST(Regenerate, WithoutAnAnswerMakesInvalidForGood)
{
    enum { NO_HOOK, SAYS_NO, NO_DIRECTION };
    for (const int refusal : {NO_HOOK, SAYS_NO, NO_DIRECTION})
    {
        std::unique_ptr<FakeModel> model(refusal == NO_HOOK ? nullptr : new FakeModel);
        if (model)
        {
            model->answers = refusal != SAYS_NO;
            model->direction = Z * (refusal == NO_DIRECTION ? 0.9e-6 : 4.0);
        }
        auto [plane, line, dot] = Picked();
        EXPECT_FALSE(plane.Regenerate() || line.Regenerate());
        EXPECT_EQ(plane.Method(), gsl_DirMethod::PLANE_INVALID);
        EXPECT_EQ(line.Method(), gsl_LineMethod::STLINE_INVALID);
        EXPECT_TRUE(Same(plane.Direction(), X) && Same(plane.Centroid(), gsl_Point(0, 5, 0)) &&
                    Same(line.PointOn(), ORIGIN) && Same(line.Direction(), X));
        EXPECT_EQ(dot.Regenerate(), refusal == NO_DIRECTION) << "it needs none";
        EXPECT_EQ(dot.GetMethod() == gsl_DotMethod::gsl_DOT_INVALID, refusal != NO_DIRECTION);
        // A model that answers again cannot know what was picked; nor does free geometry ask it.
        model = std::make_unique<FakeModel>();
        gsl_HitRecord none;
        EXPECT_FALSE(plane.Regenerate() || line.Regenerate() || plane.CreateHitRecord(none));
        gsl_Plane free(ORIGIN, X);
        gsl_Dot freeDot(1, 2, 3);
        EXPECT_TRUE(free.Regenerate() && freeDot.Regenerate() && model->question.empty());
        EXPECT_FALSE(free.CreateHitRecord(none) || freeDot.CreateHitRecord(none));
    }
}

TEST(HitRecord, TellsWhatWasPicked)
{
    const Picked picked;
    gsl_HitRecord record;
    EXPECT_TRUE(picked.plane.CreateHitRecord(record) && record.typeId == gsl_Plane::TypeId() &&
                record.method == 1 && record.parentIds == (cow_List<int>{4, 9}) &&
                Same(record.point, gsl_Point(0, 5, 0)) && Same(record.direction, X));
    EXPECT_TRUE(picked.dot.CreateHitRecord(record) && record.typeId == gsl_Dot::TypeId() &&
                record.method == 3 && record.parentIds == (cow_List<int>{2, 31}) &&
                Same(record.point, gsl_Point(5, 5, 5)) && Same(record.direction, gsl_Vector()));
}
}
