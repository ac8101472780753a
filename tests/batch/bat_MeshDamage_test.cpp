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

    friend void PrintTo(const DamageRow& row, std::ostream* out) { *out << row.what; }
};

const DamageRow ROWS[] = {
    {"StlBinary", MeshWriter::StlBinary(TETRAHEDRON), false},
    {"StlAscii", MeshWriter::StlAscii(TETRAHEDRON), false},
    {"Obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1/ 3/ 2/\nf 1 2 4\nf -4//\\\n -1// -2//\nf 2 3 4\n", true},
    {"Off", "OFF # tetrahedron\n4 4 6\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n3 0 2 1\n3 0 1 3\n3 0 3 2\n3 1 2 3\n",
     false},
    {"OffPolygons",
     "COFF\n5 2 0\n0 0 0 1 1 1\n4 0 0 1 1 1\n4 4 0 1 1 1\n1 1 0 1 1 1\n0 4 0 1 1 1\n"
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
        EXPECT_FALSE(error.Reason().empty());
        return std::nullopt;
    }
}

class MeshDamage : public testing::TestWithParam<DamageRow>
{};

TEST_P(MeshDamage, CutShortIsRefusedOrReadTheSame)
{
    const DamageRow& row = GetParam();
    const std::optional<std::vector<double>> whole = Read(row.bytes);
    ASSERT_TRUE(whole);
    std::size_t refused = 0;
    for (std::size_t length = 0; length < row.bytes.size(); ++length)
    {
        // A copy of its own, so that the address sanitizer sees a step past the end.
        const std::optional<std::vector<double>> read = Read(std::string(row.bytes, 0, length));
        refused += !read;
        if (read && row.mayBeShorter)
        {
            ASSERT_LE(read->size(), whole->size()) << "cut to " << length;
            EXPECT_TRUE(std::equal(read->begin(), read->end(), whole->begin())) << "cut to " << length;
        }
        else if (read)
        {
            EXPECT_EQ(*read, *whole) << "cut to " << length;
        }
    }
    EXPECT_GT(refused, row.bytes.size() / 2);
}

TEST_P(MeshDamage, AChangedByteNeverDoesHarm)
{
    const std::string& bytes = GetParam().bytes;
    std::size_t refused = 0;
    std::size_t different = 0;
    const std::optional<std::vector<double>> whole = Read(bytes);
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        std::string values(" \n\r\\#-9e/");
        values += '\0';
        values += '\x7f';
        values += '\xff';
        for (int bit = 0; bit < 8; ++bit)
        {
            values += static_cast<char>(bytes[i] ^ (1 << bit));
        }
        for (const char value : values)
        {
            std::string changed = bytes;
            changed[i] = value;
            const std::optional<std::vector<double>> read = Read(changed);
            if (!read)
            {
                ++refused;
                continue;
            }
            different += *read != *whole;
            EXPECT_LE(read->size() / 9, changed.size() / 2);
            EXPECT_TRUE(std::all_of(read->begin(), read->end(), [](double x) { return std::isfinite(x); }))
                << "byte " << i << " changed to " << int(value);
        }
    }
    // Both happen in every format, so the loop did look at something.
    EXPECT_GT(refused, 0U);
    EXPECT_GT(different, 0U);
}

INSTANTIATE_TEST_SUITE_P(Rows, MeshDamage, testing::ValuesIn(ROWS),
                         [](const testing::TestParamInfo<DamageRow>& each) {
                             return std::string(each.param.what);
                         });
}
