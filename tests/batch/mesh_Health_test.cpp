// The health of meshes, class by class and against the quadratic operations.

#include <algorithm>
#include <bat_MeshCheck.h>
#include <bat_MeshJson.h>
#include <bat_MeshOracle.h>
#include <bat_MeshText.h>
#include <bat_Part.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <numeric>
#include <optional>
#include <random>
#include <testing/PartShapes.h>

namespace
{
using PartShapes::AddTriangle;
using PartShapes::Cube;
using PartShapes::Mesh;

bat_Part PartOf(const Mesh& mesh)
{
    bat_TriangleMesh triangles;
    for (std::size_t i = 0; i < mesh.size(); i += 9)
        triangles.Add(std::span<const double, 9>(&mesh[i], 9));
    return {"part.off", std::move(triangles)};
}

bat_MeshHealth HealthOf(const Mesh& mesh, const bat_MeshQuestion& question = {})
{
    const bat_Part part = PartOf(mesh);
    bat_MeshHealth health = bat_MeshCheck(part, bat_Watcher::Nobody(), bat_MeshCheck::SHARE).Find(question);
    if (part.Count() <= bat_MeshOracle::LIMIT / 5)
    {
        EXPECT_EQ(bat_MeshOracle(part, bat_Watcher::Nobody()).Compare(health), "");
    }
    return health;
}

Mesh Without(Mesh mesh, std::size_t triangle)
{
    const auto at = mesh.begin() + static_cast<long>(9 * triangle);
    mesh.erase(at, at + 9);
    return mesh;
}

Mesh Turned(Mesh mesh, std::size_t triangle)
{
    std::swap_ranges(&mesh[9 * triangle], &mesh[9 * triangle + 3], &mesh[9 * triangle + 3]);
    return mesh;
}

Mesh Joined(Mesh mesh, const Mesh& other)
{
    mesh.insert(mesh.end(), other.begin(), other.end());
    return mesh;
}

const Mesh CUBE = Cube({0, 0, 0});

TEST(MeshHealth, WhatHinders)
{
    Mesh insideOut = CUBE;
    for (std::size_t i = 0; i < 12; ++i)
        insideOut = Turned(insideOut, i);
    Mesh flat = CUBE;
    AddTriangle(flat, {0, 0, 0}, {1, 0, 0}, {0, 0, 0}); // no edges of its own
    Mesh line = CUBE;
    AddTriangle(line, {5, 0, 0}, {6, 0, 0}, {7, 0, 0});
    Mesh sliver = Cube({0, 0, 0});
    AddTriangle(sliver, {5, 0, 0}, {6, 0, 0}, {5.5, 1e-4, 0});
    bat_MeshQuestion open;
    open.open = true;
    bat_MeshQuestion strict = open;
    strict.sliver = 0.5;
    strict.sliversHinder = true;
    Mesh needle = CUBE;
    AddTriangle(needle, {5, 0, 0}, {5.001, 0, 0}, {5, 1e-10, 0}); // with an area that counts as none
    bat_MeshQuestion anyShape = open;
    anyShape.sliver = 0.0;
    anyShape.sliversHinder = true;
    bat_MeshQuestion all;
    all.tolerance = 1e100;
    struct Row
    {
        const char* what;
        Mesh mesh;
        bat_MeshQuestion question;
        std::vector<std::string> hindrances;
        bool closed;
        std::optional<double> volume;
        std::size_t groups;
    };
    using Names = std::vector<std::string>;
    const std::optional<double> none;
    const Row rows[] = {
        {"a cube", CUBE, {}, {}, true, 1.0, 1},
        {"far away", Cube({1e6, -1e6, 1e6}), {}, {}, true, 1.0, 1},
        {"two cubes that share an edge",
         Joined(CUBE, Cube({1, 1, 0})),
         {},
         Names{"non-manifold"},
         true,
         2.0,
         1},
        {"two that share a corner", Joined(CUBE, Cube({1, 1, 1})), {}, {}, true, 2.0, 1},
        {"two apart", Joined(CUBE, Cube({3, 3, 3})), {}, {}, true, 2.0, 2},
        {"two far apart", Joined(Cube({-1e9, 0, 0}), Cube({1e9, 1e9, 0})), {}, {}, true, 2.0, 2},
        {"inside out", insideOut, {}, Names{"inside out"}, true, -1.0, 1},
        {"a triangle missing", Without(CUBE, 5), {}, Names{"open"}, false, none, 1},
        {"a triangle missing on purpose", Without(CUBE, 5), open, {}, false, none, 1},
        {"a triangle turned", Turned(CUBE, 3), {}, Names{"misturned"}, true, none, 1},
        {"a triangle twice", Joined(CUBE, {CUBE.begin(), CUBE.begin() + 9}), open,
         Names{"duplicate", "non-manifold"}, true, none, 1},
        {"a point as a triangle", flat, {}, Names{"coincident"}, true, 1.0, 1},
        {"a line", line, open, Names{"collinear"}, false, none, 2},
        {"a sliver is told", sliver, open, {}, false, none, 2},
        {"a sliver hinders", sliver, strict, Names{"sliver"}, false, none, 2},
        {"no shape factor is below 0", needle, anyShape, {}, false, none, 2},
        {"too small", PartShapes::Scaled(CUBE, 1e-7), {}, Names{"out of scale"}, true, 1e-21, 1},
        {"too large", PartShapes::Scaled(CUBE, 1e30), {}, Names{"out of scale"}, true, 1e90, 1},
        {"all one point", CUBE, all, Names{"coincident"}, false, none, 1}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        const bat_MeshHealth health = HealthOf(row.mesh, row.question);
        EXPECT_EQ(health.Hindrances(), row.hindrances);
        EXPECT_EQ(health.closed, row.closed);
        EXPECT_EQ(health.volume.has_value(), row.volume.has_value());
        if (health.volume && row.volume)
        {
            EXPECT_NEAR(*health.volume / *row.volume, 1.0, 1e-9);
        }
        EXPECT_EQ(health.groupSizes.size(), row.groups);
    }
    EXPECT_EQ(HealthOf(sliver).findings[bat_MeshHealth::SLIVER].triangles, std::vector<std::uint32_t>{12});
}

// Small numbers, so that points coincide, edges are shared by many, and triangles come twice.
TEST(MeshHealth, RandomMeshesAgreeWithTheQuadraticOperations)
{
    std::mt19937 random(11);
    std::size_t merged = 0;
    for (int turn = 0; turn < 60; ++turn)
    {
        std::uniform_int_distribution<int> grid(0, 1 + turn % 6);
        std::uniform_real_distribution<double> near(-0.2, 0.2);
        Mesh mesh(9 * 60);
        for (double& x : mesh)
            x = grid(random) + (turn % 2 ? near(random) : 0.0);
        bat_MeshQuestion question;
        question.tolerance = turn % 3 * 0.3;
        const bat_MeshHealth health = HealthOf(mesh, question); // compares
        merged += health.points.size() > 8 && health.points.size() < 150;
        EXPECT_EQ(std::accumulate(health.histogram.begin(), health.histogram.end(), std::size_t{0}), 60u);
        EXPECT_EQ(std::accumulate(health.groupSizes.begin(), health.groupSizes.end(), std::size_t{0}), 60u);
        std::vector<double> sorted = health.factors;
        std::sort(sorted.begin(), sorted.end());
        for (std::size_t i = 0; i < health.worst.size(); ++i)
            EXPECT_EQ(health.worst[i].factor, sorted[i]);
    }
    EXPECT_GT(merged, 20u);
}

// Recursion would end on the stack, a quadratic search never.
TEST(MeshHealth, LongChainsAndGreatFans)
{
    constexpr std::size_t COUNT = 100000;
    Mesh chain;
    Mesh fan;
    for (std::size_t i = COUNT; i-- > 0;)
    {
        const double x = static_cast<double>(i);
        AddTriangle(chain, {x, 0, 0}, {x + 0.5, 1, 0}, {x + 1, 0, 0});
        AddTriangle(fan, {0, 0, 0}, {x, 1, 0}, {x + 1, 1, 0});
    }
    for (const Mesh* mesh : {&chain, &fan})
    {
        const bat_MeshHealth health = HealthOf(*mesh);
        EXPECT_EQ(health.groupSizes, std::vector{COUNT});
        EXPECT_EQ(health.points.size(), mesh == &fan ? COUNT + 2 : 2 * COUNT + 1);
        EXPECT_EQ(health.openEdges.size(), mesh == &fan ? COUNT + 2 : 3 * COUNT);
    }
}

TEST(MeshHealth, TextsAndJson)
{
    bat_MeshQuestion question;
    question.named = 2;
    const bat_MeshHealth health = HealthOf(Without(Joined(CUBE, Cube({3, 3, 3})), 0), question);
    EXPECT_THAT(bat_MeshText(health),
                testing::StartsWith("file          part.off\n"
                                    "triangles     23\n"
                                    "points        16 of 69 corners, merged where equal\n"
                                    "edges         36\n"
                                    "groups        2: 12, 11 triangles\n"
                                    "size          4 x 4 x 4 from (0, 0, 0) to (4, 4, 4)\n"
                                    "surface       open\n"
                                    "area          11.5\n"
                                    "volume        none: the surface is not closed\n"));
    EXPECT_THAT(bat_MeshText(health),
                testing::EndsWith("worst         triangles 0: 0.7698, 1: 0.7698\n"
                                  "open          3 edges of one triangle alone: at triangles 0, 6, ...\n"
                                  "verdict       not fit for use: 3 open edges\n"));
    const auto json = nlohmann::json::parse(bat_MeshJson(health));
    EXPECT_EQ(json["hindrances"], nlohmann::json({"open"}));
    EXPECT_EQ(json["flaws"]["open"].dump(), R"({"count":3,"triangles":[0,6]})");
    EXPECT_EQ(json["shape"]["classes"].dump(), "[0,0,0,0,0,0,0,23,0,0]");
    EXPECT_TRUE(json["volume"].is_null());
    EXPECT_EQ(json["groups"].dump(), R"({"count":2,"largest":[12,11]})");
}
}
