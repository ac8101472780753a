#include <bat_Part.h>
#include <bat_TravelSearch.h>
#include <gsl_Point.h>
#include <gsl_TriOctreeNode.h>
#include <gtest/gtest.h>
#include <limits>
#include <testing/PartShapes.h>
#include <testing/RecordingReporter.h>

namespace
{
bat_Part Planted(const PartShapes::Mesh& corners, int depth)
{
    bat_TriangleMesh mesh;
    for (std::size_t i = 0; i < corners.size(); i += 9)
        mesh.Add(std::span<const double, 9>(&corners[i], 9));
    bat_Part part("part", std::move(mesh));
    part.Plant(gsl_TriOctree::gsl_OCTREE, depth);
    return part;
}

constexpr int DEPTH = 7;
constexpr double FAR = std::numeric_limits<double>::max();

class TravelSearchTest : public testing::Test
{
protected:
    RecordingReporter reporter;
    ReporterScope scope{&reporter};
    bat_Part fixed = Planted(PartShapes::HeightField(60, 5, 1, 1), DEPTH);
    bat_Part movable = Planted(PartShapes::HeightField(60, 0, 1, 2), DEPTH);
    bat_TravelSearch search{fixed, movable, DEPTH};
};

TEST_F(TravelSearchTest, ReportsItsProgress)
{
    reporter.percents.clear();
    double distance = FAR;
    EXPECT_TRUE(search.FindDirectionalDistance(fixed.Root(), movable.Root(), distance));
    EXPECT_GT(distance, 3.0);
    EXPECT_LT(distance, 5.0);
    for (const int percent : reporter.percents)
    {
        EXPECT_GE(percent, 0);
        EXPECT_LE(percent, 100);
    }
    EXPECT_FALSE(reporter.log.empty()) << "the search asks whether to go on";
}

TEST_F(TravelSearchTest, StopsWhenTheUserInterruptsAndIsUsableAfterwards)
{
    double expected = FAR;
    ASSERT_TRUE(search.FindDirectionalDistance(fixed.Root(), movable.Root(), expected));

    for (const bool throwing : {false, true})
    {
        bat_TravelSearch fresh(fixed, movable, DEPTH);
        reporter.interrupted = true;
        reporter.throwing = throwing;
        double distance = FAR;
        if (throwing)
        {
            EXPECT_THROW((void)fresh.FindDirectionalDistance(fixed.Root(), movable.Root(), distance),
                         RecordingReporter::Thrown);
        }
        else
        {
            EXPECT_FALSE(fresh.FindDirectionalDistance(fixed.Root(), movable.Root(), distance));
        }
        EXPECT_EQ(distance, FAR) << "an interrupted search answers nothing";
        reporter.interrupted = false;
        reporter.throwing = false;
        EXPECT_TRUE(fresh.FindDirectionalDistance(fixed.Root(), movable.Root(), distance));
        EXPECT_EQ(distance, expected);
    }
}

TEST(TravelPart, PlantingIsInterruptible)
{
    RecordingReporter reporter;
    ReporterScope scope(&reporter);
    bat_Part part = Planted(PartShapes::HeightField(30, 0, 1, 1), DEPTH);
    EXPECT_EQ(part.Root().TriangleCount(), part.Count());
    EXPECT_EQ(part.Outside(), 0);
    reporter.throwing = true;
    EXPECT_THROW(part.Plant(gsl_TriOctree::gsl_MODOCTREE, DEPTH), RecordingReporter::Thrown);
}
}
