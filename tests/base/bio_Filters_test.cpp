#include <bio_DataException.h>
#include <bio_Ifilter.h>
#include <bio_Ofilter.h>
#include <nex_RangeException.h>
#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <tuple>

namespace
{
using Bytes = std::vector<unsigned char>;

// One value of every kind; the bytes are little-endian.
using Record = std::tuple<bool, char, std::uint16_t, std::int32_t, std::uint32_t, std::int64_t, std::uint64_t,
                          float, double, cow_String>;
const Record RECORD = {
    true, '\xE9', 0x0102, -2, 0x01020304, -2, 0x0102030405060708, 1.0f, -2.0, cow_String("a\0b", 3)};
const Bytes BYTES = {1,    0xE9, 2,    1,    0xFE, 0xFF, 0xFF, 0xFF, 4, 3, 2, 1, 0xFE, 0xFF, 0xFF, 0xFF,
                     0xFF, 0xFF, 0xFF, 0xFF, 8,    7,    6,    5,    4, 3, 2, 1, 0,    0,    0x80, 0x3F,
                     0,    0,    0,    0,    0,    0,    0,    0xC0, 3, 0, 0, 0, 'a',  0,    'b'};

// A record comes back whole, and from every truncation of its bytes is refused where the data ends.
TEST(bio_Filters, ARecordIsLittleEndianAndComesBackFromAllOfItsBytes)
{
    bio_Ofilter out;
    std::apply([&](const auto&... values) { (out.Write(values), ...); }, RECORD);
    EXPECT_EQ(out.Take(), BYTES);
    for (std::size_t length = 0; length <= BYTES.size(); ++length)
    {
        // A copy of its own, so that a sanitizer sees every read past the end.
        const Bytes part(BYTES.begin(), BYTES.begin() + static_cast<std::ptrdiff_t>(length));
        bio_Ifilter in(part);
        Record back;
        try
        {
            std::apply([&in](auto&... values) { (in.Read(values), ...); }, back);
            EXPECT_EQ(length, BYTES.size());
            EXPECT_EQ(back, RECORD);
            EXPECT_EQ(in.Left(), 0u);
        }
        catch (const bio_DataException& error)
        {
            EXPECT_LT(length, BYTES.size());
            EXPECT_EQ(error.Position(), length);
            EXPECT_EQ(error.UserReport(), cow_String("data ends at byte " + std::to_string(length) + ", " +
                                                     std::to_string(error.Missing()) + " more needed"));
        }
    }
}

TEST(bio_Filters, ArraysAreTheirElementsAndPatchesStayInside)
{
    const double doubles[] = {1.5, -0.0};
    bio_Ofilter out;
    out.WriteArray(std::span<const double>(doubles));
    bio_Ifilter in(out.Bytes());
    double values[4] = {7, 7, 7, 7};
    EXPECT_RAISE(in.ReadArray(std::span<double>(values)), bio_DataException,
                 "data ends at byte 16, 16 more needed");
    in.ReadArray(std::span<double>(values, 2));
    EXPECT_EQ(values[0] + values[1] + values[2], 8.5);

    out.Patch(12, std::uint32_t{0x0A0B0C0D});
    EXPECT_EQ(Bytes(out.Bytes().begin() + 12, out.Bytes().end()), Bytes({0x0D, 0x0C, 0x0B, 0x0A}));
    EXPECT_THROW(out.Patch(13, std::uint32_t{1}), nex_RangeException);
    EXPECT_THROW(out.Patch(std::numeric_limits<std::size_t>::max(), std::uint64_t{1}), nex_RangeException);
}

template <class T>
void Read(bio_Ifilter& in)
{
    T value{};
    in.Read(value);
}

TEST(bio_Ifilter, NamesTheFaultAndLeavesThePosition)
{
    constexpr std::size_t HUGE_SIZE = std::numeric_limits<std::size_t>::max();
    using Call = std::function<void(bio_Ifilter&)>;
    const std::tuple<Bytes, Call, const char*> rows[] = {
        {{2, 0, 0}, Read<bool>, "bool 2 at byte 100 is neither 0 nor 1"},
        {{255, 255, 255, 127, 'x'}, Read<cow_String>, "data ends at byte 105, 2147483646 more needed"},
        {{0, 0, 0, 128, 'x'}, Read<cow_String>, "length -2147483648 at byte 100 is not possible"},
        // The product is beyond 64 bits.
        {{2, 0, 0, 0, 9},
         [](auto& in) { in.ReadCount(HUGE_SIZE); },
         "data ends at byte 105, 18446744073709551614 more needed"}};
    for (const auto& [bytes, read, fault] : rows)
    {
        bio_Ifilter in(bytes, 100);
        EXPECT_RAISE(read(in), bio_DataException, fault);
        EXPECT_EQ(in.Position(), 100u) << fault;
    }
    bio_Ifilter in(BYTES, 100);
    in.Skip(2);
    bio_Ifilter part = in.Sub(3);
    part.Skip(1);
    EXPECT_EQ(part.Position(), 103u) << "of the whole";
}
}
