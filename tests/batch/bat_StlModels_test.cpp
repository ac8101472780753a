// Mesh files made by others: the parts of examples/parts, and the npm package stl-models where it is unpacked
// (scripts/fetch-models), whose folder broken/ holds files that are wrong in one way each.

#include <bat_FileBytes.h>
#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

namespace
{
/// "4 triangles", with the notes; or the refusal, with the file's name alone.
std::string Outcome(const std::filesystem::path& file)
{
    try
    {
        const bat_TriangleMesh mesh = bat_ReadMesh(file.string());
        std::string outcome = std::to_string(mesh.Length()) + " triangles";
        for (const std::string& note : mesh.Notes())
            outcome += "; " + note;
        return outcome;
    }
    catch (const bat_MeshError& error)
    {
        return std::string(error.what()).substr(file.string().size());
    }
}

TEST(ExampleParts, AreReadWithoutANoteAndComeInEveryFormat)
{
    std::set<bat_MeshFormat> formats;
    for (const auto& [file, outcome] : {std::pair{"bolt.stl", "4032 triangles"},
                                        {"threaded-hole.obj", "4800 triangles"},
                                        {"pin.stl", "3264 triangles"},
                                        {"plate.stl", "2880 triangles"},
                                        {"bracket.obj", "2544 triangles"},
                                        {"rail.off", "3090 triangles"}})
    {
        const std::string path = std::string(ORVEX_EXAMPLE_PARTS "/") + file;
        EXPECT_EQ(Outcome(path), outcome) << file;
        formats.insert(bat_TellMeshFormat(bat_FileBytes(path).View(), path));
    }
    EXPECT_EQ(formats.size(), 4U);
}

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

    std::filesystem::path folder_;
};

TEST_F(StlModels, AreReadAsTheyAreOrRefusedWithAClearWord)
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
        outcomes[name] = Outcome(entry.path());
    }
    EXPECT_EQ(outcomes, expected);
    EXPECT_EQ(Outcome(folder_ / "objects/gearwheel.bin.stl"), "2444 triangles");
    EXPECT_EQ(Outcome(folder_ / "objects/gearwheel.ascii.stl"), "2444 triangles");
}
}
