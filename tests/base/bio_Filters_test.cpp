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

template <class... T>
Bytes Written(const T&... values)
{
    bio_Ofilter out;
    (out.Write(values), ...);
    return out.Take();
}

// One value of every kind; the bytes are little-endian.
using Record = std::tuple<bool, char, std::uint16_t, std::int32_t, std::uint32_t, std::int64_t, std::uint64_t,
                          float, double, cow_String>;
const Record RECORD = {
    true, '\xE9', 0x0102, -2, 0x01020304, -2, 0x0102030405060708, 1.0f, -2.0, cow_String("a\0b", 3)};
const Bytes BYTES = {1,    0xE9, 2,    1,    0xFE, 0xFF, 0xFF, 0xFF, 4, 3, 2, 1, 0xFE, 0xFF, 0xFF, 0xFF,
                     0xFF, 0xFF, 0xFF, 0xFF, 8,    7,    6,    5,    4, 3, 2, 1, 0,    0,    0x80, 0x3F,
                     0,    0,    0,    0,    0,    0,    0,    0xC0, 3, 0, 0, 0, 'a',  0,    'b'};

void Decode(bio_Ifilter& in, Record& record)
{
    std::apply([&in](auto&... values) { (in.Read(values), ...); }, record);
}

TEST(bio_Filters, ARecordIsLittleEndianAndComesBack)
{
    const Bytes bytes = std::apply([](const auto&... values) { return Written(values...); }, RECORD);
    EXPECT_EQ(bytes, BYTES);
    bio_Ifilter in(bytes);
    Record back;
    Decode(in, back);
    EXPECT_EQ(back, RECORD);
    EXPECT_EQ(in.Left(), 0u);
    EXPECT_EQ(in.Position(), bytes.size());
}

TEST(bio_Filters, EveryTruncationIsRefusedWhereTheDataEnds)
{
    for (std::size_t length = 0; length < BYTES.size(); ++length)
    {
        // A copy of its own, so that a sanitizer sees every read past the end.
        const Bytes part(BYTES.begin(), BYTES.begin() + static_cast<std::ptrdiff_t>(length));
        bio_Ifilter in(part);
        Record back = RECORD;
        try
        {
            Decode(in, back);
            ADD_FAILURE() << length << " bytes of " << BYTES.size() << " were enough";
        }
        catch (const bio_DataException& error)
        {
            EXPECT_EQ(error.Position(), length);
            EXPECT_EQ(error.UserReport(), cow_String("data ends at byte " + std::to_string(length) + ", " +
                                                     std::to_string(error.Missing()) + " more needed"));
        }
        EXPECT_EQ(back, RECORD) << "values behind the end are not touched";
        EXPECT_LE(in.Position(), length);
    }
}

TEST(bio_Filters, ArraysAreTheirElementsAndAreReadWholeOrNotAtAll)
{
    const double doubles[] = {1.5, -0.0};
    const std::int32_t ints[] = {1, -1};
    bio_Ofilter out;
    out.WriteArray(std::span<const double>(doubles));
    out.WriteArray(std::span<const std::int32_t>(ints));
    out.WriteArray(std::span<const float>());
    EXPECT_EQ(out.Bytes(), Written(1.5, -0.0, std::int32_t{1}, std::int32_t{-1}));

    bio_Ifilter in(out.Bytes());
    double four[4] = {7, 7, 7, 7};
    EXPECT_RAISE(in.ReadArray(std::span<double>(four)), bio_DataException,
                 "data ends at byte 24, 8 more needed");
    EXPECT_EQ(four[0], 7);
    in.ReadArray(std::span<double>(four, 2));
    EXPECT_EQ(four[0] + four[1] + four[2], 8.5);
}

TEST(bio_Ofilter, PatchesWhatWasWritten)
{
    bio_Ofilter out;
    out.Write(std::uint32_t{0});
    out.Write(std::uint64_t{0});
    out.Patch(0, std::uint32_t{0x0A0B0C0D});
    out.Patch(4, std::uint64_t{1});
    EXPECT_THROW(out.Patch(9, std::uint32_t{1}), nex_RangeException);
    EXPECT_THROW(out.Patch(5, std::uint64_t{1}), nex_RangeException);
    EXPECT_THROW(out.Patch(std::numeric_limits<std::size_t>::max(), std::uint32_t{1}), nex_RangeException);
    EXPECT_EQ(out.Take(), Bytes({0x0D, 0x0C, 0x0B, 0x0A, 1, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(out.Position(), 0u);
}

struct RefusalRow
{
    const char* what;
    Bytes bytes;
    std::function<void(bio_Ifilter&)> read;
    const char* fault;
};

template <class T>
void Read(bio_Ifilter& in)
{
    T value{};
    in.Read(value);
    EXPECT_EQ(value, T{});
}

Bytes WithLength(std::uint32_t length, std::size_t padding)
{
    Bytes bytes = Written(length);
    bytes.resize(bytes.size() + padding, 'x');
    return bytes;
}

constexpr std::size_t HUGE_SIZE = std::numeric_limits<std::size_t>::max();
const RefusalRow REFUSALS[] = {
    {"bool_of_2", {2}, Read<bool>, "bool 2 at byte 0 is neither 0 nor 1"},
    {"bool_of_255", {255}, Read<bool>, "bool 255 at byte 0 is neither 0 nor 1"},
    {"text_largest", WithLength(0x7FFFFFFF, 3), Read<cow_String>,
     "data ends at byte 7, 2147483644 more needed"},
    {"text_negative", WithLength(0xFFFFFFFF, 3), Read<cow_String>, "length -1 at byte 0 is not possible"},
    {"text_most_negative", WithLength(0x80000000, 3), Read<cow_String>,
     "length -2147483648 at byte 0 is not possible"},
    {"skip", {1, 2, 3}, [](auto& in) { in.Skip(4); }, "data ends at byte 3, 1 more needed"},
    {"sub", {1, 2, 3}, [](auto& in) { in.Sub(10); }, "data ends at byte 3, 7 more needed"},
    {"count", WithLength(3, 24), [](auto& in) { in.ReadCount(9); }, "data ends at byte 28, 3 more needed"},
    {"count_beyond_64_bits", WithLength(3, 24), [](auto& in) { in.ReadCount(HUGE_SIZE); },
     "data ends at byte 28, 18446744073709551591 more needed"},
    {"require", {1, 2}, [](auto& in) { in.Require(3, 1); }, "data ends at byte 2, 1 more needed"},
    {"require_beyond_64_bits", WithLength(3, 24), [](auto& in) { in.Require(HUGE_SIZE, 2); },
     "data ends at byte 28, 18446744073709551587 more needed"}};

TEST(bio_Ifilter, NamesTheFaultAndLeavesThePosition)
{
    for (const RefusalRow& row : REFUSALS)
    {
        SCOPED_TRACE(row.what);
        bio_Ifilter in(row.bytes);
        EXPECT_RAISE(row.read(in), bio_DataException, row.fault);
        EXPECT_EQ(in.Position(), 0u);
    }
}

TEST(bio_Ifilter, TakesWhatJustFits)
{
    const Bytes bytes = WithLength(3, 24);
    EXPECT_EQ(bio_Ifilter(bytes).ReadCount(8), 3);
    EXPECT_EQ(bio_Ifilter(bytes).ReadCount(0), 3) << "elements that take no bytes";
    bio_Ifilter(bytes).Require(28, 1);
    bio_Ifilter(bytes).Require(0, 8);
    bio_Ifilter().ReadRaw(nullptr, 0);
}

TEST(bio_Ifilter, SubReportsPositionsOfTheWhole)
{
    const Bytes bytes = {9, 9, 1, 2, 3, 9};
    bio_Ifilter in(bytes, 100);
    in.Skip(2);
    bio_Ifilter part = in.Sub(3);
    EXPECT_EQ(in.Position(), 105u);
    EXPECT_EQ(part.Position(), 102u);
    EXPECT_EQ(part.Rest()[0], 1);
    part.Skip(1);
    EXPECT_RAISE(Read<std::int32_t>(part), bio_DataException, "data ends at byte 105, 2 more needed");
    EXPECT_EQ(part.Sub(2).Position(), 103u);
    EXPECT_EQ(part.Left(), 0u);
}

TEST(bio_DataException, IsAPrimExceptionWithPosition)
{
    const nex_PrimException& base = bio_DataException::EndOfData(10, 3);
    EXPECT_EQ(base.AsString(), "bio_DataException: data ends at byte 10, 3 more needed");
    EXPECT_EQ(base.DynTypeId(), nex_PrimException::TypeId());
    EXPECT_THROW(base.Propagate(), bio_DataException);
    EXPECT_EQ(bio_DataException::BadLength(4, -1).Missing(), 0u);
}
}
