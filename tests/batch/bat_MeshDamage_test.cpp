// Damaged mesh files: cut short anywhere, or with a byte changed anywhere. Never a crash, never a coordinate
// that is not finite, never more triangles than the bytes can hold.

#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gtest/gtest.h>
#include <testing/MeshWriter.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{
const std::vector<double> TETRAHEDRON = {0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1,
                                         0, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1};

struct DamageRow
{
    const char* what;
    std::string bytes;
    // OBJ says nowhere how much it holds: cut between faces it is a shorter file, not a broken one.
    bool mayBeShorter;
};

const DamageRow ROWS[] = {
    {"StlBinary", MeshWriter::StlBinary(TETRAHEDRON), false},
    {"StlAscii", MeshWriter::StlAscii(TETRAHEDRON), false},
    {"Obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1/ 3/ 2/\nf 1 2 4\nf -4//\\\n -1// -2//\nf 2 3 4\n", true},
    {"Off",
     "COFF # two\n5 2 0\n0 0 0 1 1 1\n4 0 0 1 1 1\n4 4 0 1 1 1\n1 1 0 1 1 1\n0 4 0 1 1 1\n"
     "5 0 1 2 3 4\n4 0 1 2 4\n",
     false},
};

std::optional<std::vector<double>> Read(const std::string& bytes)
{
    try
    {
        return bat_ParseMesh(bytes, "file").Coordinates();
    }
    catch (const bat_MeshError& error)
    {
        EXPECT_EQ(std::string(error.what()).substr(0, 4), "file");
        return std::nullopt;
    }
}

void CutShort(const DamageRow& row, const std::vector<double>& whole)
{
    std::size_t refused = 0;
    for (std::size_t length = 0; length < row.bytes.size(); ++length)
    {
        // A copy of its own, so that the address sanitizer sees a step past the end.
        const std::optional<std::vector<double>> read = Read(std::string(row.bytes, 0, length));
        refused += !read;
        EXPECT_TRUE(!read || *read == whole ||
                    (row.mayBeShorter && read->size() < whole.size() &&
                     std::equal(read->begin(), read->end(), whole.begin())))
            << "cut to " << length;
    }
    EXPECT_GT(refused, row.bytes.size() / 2);
}

void ChangeBytes(const std::string& bytes, const std::vector<double>& whole)
{
    int refused = 0;
    int different = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        for (int k = 0; k < 18; ++k)
        {
            std::string changed = bytes;
            changed[i] = k < 8 ? static_cast<char>(bytes[i] ^ (1 << k)) : " \n\r\\#-9e/\xff"[k - 8];
            const std::optional<std::vector<double>> read = Read(changed);
            refused += !read;
            different += read && *read != whole;
            EXPECT_TRUE(!read ||
                        (read->size() / 9 <= changed.size() / 2 &&
                         std::all_of(read->begin(), read->end(), [](double x) { return std::isfinite(x); })))
                << "byte " << i << ", change " << k;
        }
    // Both happen in every format, so the loop did look at something.
    EXPECT_TRUE(refused > 0 && different > 0) << refused << " " << different;
}

TEST(MeshDamage, IsRefusedOrHarmless)
{
    for (const DamageRow& row : ROWS)
    {
        SCOPED_TRACE(row.what);
        const std::optional<std::vector<double>> whole = Read(row.bytes);
        ASSERT_TRUE(whole);
        CutShort(row, *whole);
        ChangeBytes(row.bytes, *whole);
    }
}
}
