// Mesh files made by others: the parts of examples/parts, and the npm package stl-models where it is unpacked
// (scripts/fetch-models), whose folder broken/ holds files that are wrong in one way each.

#include <bat_FileBytes.h>
#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>

namespace
{
struct PartRow
{
    const char* file;
    bat_MeshFormat format;
    std::size_t triangles;

    friend void PrintTo(const PartRow& row, std::ostream* out) { *out << row.file; }
};

class ExampleParts : public testing::TestWithParam<PartRow>
{};

TEST_P(ExampleParts, AreReadWithoutANote)
{
    const std::string path = std::string(ORVEX_EXAMPLE_PARTS "/") + GetParam().file;
    const bat_FileBytes bytes(path);
    EXPECT_EQ(bat_TellMeshFormat(bytes.View(), path), GetParam().format);
    const bat_TriangleMesh mesh = bat_ReadMesh(path);
    EXPECT_EQ(mesh.Length(), GetParam().triangles);
    EXPECT_EQ(mesh.Notes(), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(Rows, ExampleParts,
                         testing::Values(PartRow{"bolt.stl", bat_MeshFormat::STL_BINARY, 4032},
                                         PartRow{"threaded-hole.obj", bat_MeshFormat::OBJ, 4800},
                                         PartRow{"pin.stl", bat_MeshFormat::STL_ASCII, 3264},
                                         PartRow{"plate.stl", bat_MeshFormat::STL_BINARY, 2880},
                                         PartRow{"bracket.obj", bat_MeshFormat::OBJ, 2544},
                                         PartRow{"rail.off", bat_MeshFormat::OFF, 3090}));

/// The unpacked package, from the environment or the build folder.
class StlModels : public testing::Test
{
protected:
    void SetUp() override
    {
        const char* named = std::getenv("ORVEX_STL_MODELS");
        folder_ = named ? named : ORVEX_STL_MODELS_FOLDER;
        if (!std::filesystem::is_directory(folder_))
        {
            GTEST_SKIP() << "the package stl-models is not unpacked in " << folder_
                         << ": run scripts/fetch-models, or set ORVEX_STL_MODELS to its folder";
        }
    }

    /// "4 triangles", with the notes; or the refusal, with the file's name alone.
    std::string Outcome(const std::string& file) const
    {
        try
        {
            const bat_TriangleMesh mesh = bat_ReadMesh((folder_ / file).string());
            std::string outcome = std::to_string(mesh.Length()) + " triangles";
            for (const std::string& note : mesh.Notes())
            {
                outcome += "; " + note;
            }
            return outcome;
        }
        catch (const bat_MeshError& error)
        {
            return std::string(error.what()).substr((folder_ / file).string().size());
        }
    }

    std::filesystem::path folder_;
};

TEST_F(StlModels, BrokenFilesAreRefusedOrReadWithAClearWord)
{
    const std::string normals =
        " stored normals are zero, not finite or contrary to the corners; the corners count";
    const std::string open =
        "the surface is open or not turned consistently: its area vectors do not cancel out";
    const std::map<std::string, std::string> expected = {
        {"empty.stl", ": the file is empty"},
        {"fourVertices.ascii.stl", ", line 7: a facet has three corners, here is a fourth"},
        {"incorrectFaceCounter.bin.stl",
         ", byte 80: read as binary STL, 66 facets make 3384 bytes, the file has 284"},
        {"missingEndsolid.ascii.stl",
         ", line 30: the file ends inside the solid 'tetrahedron', before its \"endsolid\""},
        {"missingFace.ascii.stl", "3 triangles; " + open},
        {"missingNormal.ascii.stl", ", line 24: a facet's normal needs three numbers, 'outer' is none"},
        {"notANumberNormal.ascii.stl", "4 triangles; 1 of 4" + normals},
        {"quad.ascii.stl", ", line 7: a facet has three corners, here is a fourth"},
        {"singleFace.ascii.stl", "1 triangles; " + open},
        {"solidNameMismatch.ascii.stl",
         "4 triangles; the solid 'tetrahedron' ends under the name 'anything but tetrahedron'"},
        {"twoVertices.ascii.stl", ", line 6: a facet has three corners, this one has 2"},
        {"wrongHeader.bin.stl",
         "12 triangles; the header begins with \"solid\" as text does, the content is binary STL"},
        {"wrongNormal.ascii.stl", "4 triangles; 1 of 4" + normals},
        {"wrongNormals.ascii.stl", "4 triangles; 4 of 4" + normals},
    };
    std::map<std::string, std::string> outcomes;
    for (const auto& entry : std::filesystem::directory_iterator(folder_ / "broken"))
    {
        const std::string name = entry.path().filename().string();
        outcomes[name] = Outcome("broken/" + name);
    }
    EXPECT_EQ(outcomes, expected);
}

TEST_F(StlModels, SoundFilesAreReadInBothFormats)
{
    EXPECT_EQ(Outcome("objects/gearwheel.bin.stl"), "2444 triangles");
    EXPECT_EQ(Outcome("objects/gearwheel.ascii.stl"), "2444 triangles");
    EXPECT_EQ(Outcome("polytopes/cube.bin.stl"), "12 triangles");
    EXPECT_EQ(Outcome("polytopes/tetrahedron.min.ascii.stl"), "4 triangles");
    EXPECT_EQ(Outcome("polytopes/tetrahedronMinusZero.bin.stl"), "4 triangles");
    EXPECT_EQ(Outcome("misc/multiWordName.ascii.stl"), "4 triangles");
    EXPECT_EQ(Outcome("misc/namelessSolid.ascii.stl"), "4 triangles");
    EXPECT_EQ(Outcome("misc/faceless.ascii.stl"), ": the file holds no triangle");
}
}
