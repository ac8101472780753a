#include <bat_Interrupted.h>
#include <bat_Part.h>
#include <bat_TravelSearch.h>
#include <bat_WipWatcher.h>
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
    bat_WipWatcher watcher;
    bat_TravelSearch search{fixed, movable, DEPTH, watcher};
};

TEST_F(TravelSearchTest, StopsWhenTheUserInterruptsAndIsUsableAfterwards)
{
    EXPECT_TRUE(movable.Root().TriangleCount() == movable.Count() && movable.Outside() == 0);
    double expected = FAR;
    ASSERT_TRUE(search.FindDirectionalDistance(fixed.Root(), movable.Root(), expected));
    EXPECT_TRUE(expected > 3.0 && expected < 5.0) << expected;
    EXPECT_FALSE(reporter.log.empty()) << "the search asks whether to go on";
    for (const int percent : reporter.percents)
        EXPECT_TRUE(percent >= 0 && percent <= 100) << percent;
    bat_TravelSearch fresh(fixed, movable, DEPTH, watcher);
    double distance = FAR;
    reporter.interrupted = true;
    EXPECT_FALSE(fresh.FindDirectionalDistance(fixed.Root(), movable.Root(), distance));
    EXPECT_EQ(distance, FAR) << "an interrupted search answers nothing";
    reporter.interrupted = false;
    reporter.throwing = true;
    EXPECT_THROW((void)fresh.FindDirectionalDistance(fixed.Root(), movable.Root(), distance),
                 RecordingReporter::Thrown);
    EXPECT_EQ(distance, FAR);
    reporter.throwing = false;
    EXPECT_TRUE(fresh.FindDirectionalDistance(fixed.Root(), movable.Root(), distance));
    EXPECT_EQ(distance, expected);
    reporter.interrupted = true;
    EXPECT_THROW(movable.Plant(gsl_TriOctree::gsl_MODOCTREE, DEPTH, watcher), bat_Interrupted);
}
}
