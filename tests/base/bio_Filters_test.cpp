#include <bio_DataException.h>
#include <bio_Ifilter.h>
#include <bio_Ofilter.h>
#include <gtest/gtest.h>
#include <nex_RangeException.h>

#include <bit>
#include <functional>
#include <limits>
#include <random>
#include <string>

namespace
{
using Bytes = std::vector<unsigned char>;

template <class T>
Bytes Written(const T& value)
{
    bio_Ofilter out;
    out.Write(value);
    return out.Bytes();
}

// The message of the exception that the action throws; it names the fault and where it is.
cow_String FaultOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (const bio_DataException& error)
    {
        return error.UserReport();
    }
    return "none";
}

Bytes WithLength(std::uint32_t length, std::size_t padding)
{
    bio_Ofilter out;
    out.Write(length);
    Bytes bytes = out.Bytes();
    bytes.resize(bytes.size() + padding, 'x');
    return bytes;
}
}

TEST(bio_Ofilter, EncodesLittleEndian)
{
    EXPECT_EQ(Written(true), Bytes({1}));
    EXPECT_EQ(Written(false), Bytes({0}));
    EXPECT_EQ(Written('\xE9'), Bytes({0xE9}));
    EXPECT_EQ(Written(std::uint16_t{0x0102}), Bytes({2, 1}));
    EXPECT_EQ(Written(std::int32_t{-2}), Bytes({0xFE, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(Written(std::uint32_t{0x01020304}), Bytes({4, 3, 2, 1}));
    EXPECT_EQ(Written(std::int64_t{-2}), Bytes({0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(Written(std::uint64_t{0x0102030405060708}), Bytes({8, 7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(Written(1.0f), Bytes({0, 0, 0x80, 0x3F}));
    EXPECT_EQ(Written(-2.0), Bytes({0, 0, 0, 0, 0, 0, 0, 0xC0}));
    EXPECT_EQ(Written(cow_String("a\0b", 3)), Bytes({3, 0, 0, 0, 'a', 0, 'b'}));
    EXPECT_EQ(Written(cow_String()), Bytes({0, 0, 0, 0}));
}

TEST(bio_Ofilter, ArraysAreTheirElements)
{
    const double doubles[] = {1.5, -0.0, 1e300};
    const std::int32_t ints[] = {1, -1};
    bio_Ofilter array;
    array.WriteArray(std::span<const double>(doubles));
    array.WriteArray(std::span<const std::int32_t>(ints));
    array.WriteArray(std::span<const float>());
    bio_Ofilter single;
    for (const double value : doubles)
        single.Write(value);
    for (const std::int32_t value : ints)
        single.Write(value);
    EXPECT_EQ(array.Bytes(), single.Bytes());
}

TEST(bio_Ofilter, PatchesWhatWasWritten)
{
    bio_Ofilter out;
    out.Write(std::uint32_t{0});
    out.Write(std::uint64_t{0});
    out.Patch(0, std::uint32_t{0x0A0B0C0D});
    out.Patch(4, std::uint64_t{1});
    EXPECT_EQ(out.Bytes(), Bytes({0x0D, 0x0C, 0x0B, 0x0A, 1, 0, 0, 0, 0, 0, 0, 0}));
    const Bytes before = out.Bytes();
    EXPECT_THROW(out.Patch(9, std::uint32_t{1}), nex_RangeException);
    EXPECT_THROW(out.Patch(5, std::uint64_t{1}), nex_RangeException);
    EXPECT_THROW(out.Patch(std::numeric_limits<std::size_t>::max(), std::uint32_t{1}), nex_RangeException);
    EXPECT_EQ(out.Bytes(), before);
    EXPECT_EQ(out.Take(), before);
    EXPECT_EQ(out.Position(), 0u);
}

TEST(bio_Filters, EveryFloatingPointBitPatternComesBack)
{
    std::mt19937_64 random(7);
    std::vector<std::uint64_t> patterns = {0,
                                           1,
                                           0x8000000000000000,
                                           0x7FF0000000000000,
                                           0xFFF0000000000000,
                                           0x7FF8000000000001,
                                           0x7FF0000000000001};
    for (int i = 0; i < 500; ++i)
        patterns.push_back(random());
    for (const std::uint64_t pattern : patterns)
    {
        bio_Ofilter out;
        out.Write(std::bit_cast<double>(pattern));
        // Floats of a signalling NaN are not passed by value here: copying may quieten them.
        out.Write(static_cast<std::uint32_t>(pattern));
        const Bytes bytes = out.Take();
        bio_Ifilter in(bytes);
        double value = 0;
        in.Read(value);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(value), pattern);
        float single = 0;
        in.Read(single);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(single), static_cast<std::uint32_t>(pattern));
        EXPECT_EQ(in.Left(), 0u);
    }
}

namespace
{
// One value of every kind, as one record.
struct Record
{
    bool flag = true;
    char kind = 'f';
    std::uint16_t major = 0xBEEF;
    std::int32_t count = std::numeric_limits<std::int32_t>::min();
    std::uint32_t crc = 0xFFFFFFFF;
    std::int64_t offset = std::numeric_limits<std::int64_t>::min();
    std::uint64_t total = std::numeric_limits<std::uint64_t>::max();
    float single = 0.1f;
    double value = -1e-300;
    cow_String name = cow_String("two\0halves", 10);

    friend bool operator==(const Record&, const Record&) = default;
};

Bytes Encoded(const Record& record)
{
    bio_Ofilter out;
    out.Write(record.flag);
    out.Write(record.kind);
    out.Write(record.major);
    out.Write(record.count);
    out.Write(record.crc);
    out.Write(record.offset);
    out.Write(record.total);
    out.Write(record.single);
    out.Write(record.value);
    out.Write(record.name);
    return out.Take();
}

void Decode(bio_Ifilter& in, Record& record)
{
    in.Read(record.flag);
    in.Read(record.kind);
    in.Read(record.major);
    in.Read(record.count);
    in.Read(record.crc);
    in.Read(record.offset);
    in.Read(record.total);
    in.Read(record.single);
    in.Read(record.value);
    in.Read(record.name);
}
}

TEST(bio_Filters, ARecordComesBack)
{
    const Bytes bytes = Encoded(Record());
    bio_Ifilter in(bytes);
    Record back;
    back = Record{false, 0, 0, 0, 0, 0, 0, 0, 0, cow_String()};
    Decode(in, back);
    EXPECT_EQ(back, Record());
    EXPECT_EQ(in.Left(), 0u);
    EXPECT_EQ(in.Position(), bytes.size());
}

TEST(bio_Filters, EveryTruncationIsRefusedWhereTheDataEnds)
{
    const Bytes bytes = Encoded(Record());
    for (std::size_t length = 0; length < bytes.size(); ++length)
    {
        // A copy of its own, so that a sanitizer sees every read past the end.
        const Bytes part(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        bio_Ifilter in(part);
        Record back;
        try
        {
            Decode(in, back);
            ADD_FAILURE() << length << " bytes of " << bytes.size() << " were enough";
        }
        catch (const bio_DataException& error)
        {
            EXPECT_EQ(error.Position(), length);
            EXPECT_GT(error.Missing(), 0u);
            EXPECT_EQ(error.UserReport(), cow_String(("data ends at byte " + std::to_string(length) + ", " +
                                                      std::to_string(error.Missing()) + " more needed")
                                                         .c_str()));
        }
        EXPECT_EQ(back, Record()) << "values behind the end are not touched";
        EXPECT_LE(in.Position(), length);
    }
}

TEST(bio_Ifilter, ARefusedReadLeavesPositionAndOutput)
{
    const Bytes bytes = {1, 2, 3};
    bio_Ifilter in(bytes);
    std::int32_t number = 77;
    double value = 1.5;
    cow_String text("kept");
    std::uint64_t wide = 5;
    EXPECT_EQ(FaultOf([&] { in.Read(number); }), "data ends at byte 3, 1 more needed");
    EXPECT_EQ(FaultOf([&] { in.Read(value); }), "data ends at byte 3, 5 more needed");
    EXPECT_EQ(FaultOf([&] { in.Read(wide); }), "data ends at byte 3, 5 more needed");
    EXPECT_EQ(FaultOf([&] { in.Read(text); }), "data ends at byte 3, 1 more needed");
    EXPECT_EQ(FaultOf([&] { in.Skip(4); }), "data ends at byte 3, 1 more needed");
    EXPECT_EQ(FaultOf([&] { in.Sub(10); }), "data ends at byte 3, 7 more needed");
    EXPECT_EQ(in.Position(), 0u);
    EXPECT_EQ(number, 77);
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(wide, 5u);
    EXPECT_EQ(text, "kept");
}

TEST(bio_Ifilter, AByteThatIsNoBoolIsRefused)
{
    for (int byte = 2; byte <= 255; ++byte)
    {
        const Bytes bytes = {static_cast<unsigned char>(byte)};
        bio_Ifilter in(bytes, 100);
        bool flag = true;
        EXPECT_EQ(FaultOf([&] { in.Read(flag); }),
                  cow_String(("bool " + std::to_string(byte) + " at byte 100 is neither 0 nor 1").c_str()));
        EXPECT_TRUE(flag);
        EXPECT_EQ(in.Left(), 1u);
    }
}

struct LengthRow
{
    const char* what;
    std::uint32_t length;
    std::size_t padding;
    const char* fault;
};

class Lengths : public testing::TestWithParam<LengthRow>
{};

TEST_P(Lengths, OfTextsAreHeldAgainstTheBytesLeft)
{
    const Bytes bytes = WithLength(GetParam().length, GetParam().padding);
    bio_Ifilter in(bytes);
    cow_String text("kept");
    EXPECT_EQ(FaultOf([&] { in.Read(text); }), GetParam().fault);
    if (std::string(GetParam().fault) != "none")
    {
        EXPECT_EQ(text, "kept");
        EXPECT_EQ(in.Position(), 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Lengths,
    testing::Values(LengthRow{"fits", 3, 3, "none"}, LengthRow{"empty", 0, 0, "none"},
                    LengthRow{"one_short", 4, 3, "data ends at byte 7, 1 more needed"},
                    LengthRow{"largest", 0x7FFFFFFF, 3, "data ends at byte 7, 2147483644 more needed"},
                    LengthRow{"negative", 0xFFFFFFFF, 3, "length -1 at byte 0 is not possible"},
                    LengthRow{"most_negative", 0x80000000, 3,
                              "length -2147483648 at byte 0 is not possible"}),
    [](const auto& row) { return row.param.what; });

TEST(bio_Ifilter, CountsAreHeldAgainstTheBytesLeft)
{
    const Bytes bytes = WithLength(3, 24);
    EXPECT_EQ(bio_Ifilter(bytes).ReadCount(8), 3);
    EXPECT_EQ(bio_Ifilter(bytes).ReadCount(0), 3) << "elements that take no bytes";
    EXPECT_EQ(FaultOf([&] { bio_Ifilter(bytes).ReadCount(9); }), "data ends at byte 28, 3 more needed");
    EXPECT_EQ(FaultOf([&] { bio_Ifilter(bytes).ReadCount(std::numeric_limits<std::size_t>::max()); }),
              "data ends at byte 28, 18446744073709551591 more needed")
        << "the product is beyond 64 bits";
    const bio_Ifilter in(bytes);
    EXPECT_EQ(FaultOf([&] { in.Require(std::numeric_limits<std::uint64_t>::max(), 2); }),
              "data ends at byte 28, 18446744073709551587 more needed");
    EXPECT_EQ(FaultOf([&] { in.Require(28, 1); }), "none");
    EXPECT_EQ(FaultOf([&] { in.Require(29, 1); }), "data ends at byte 28, 1 more needed");
    EXPECT_EQ(FaultOf([&] { in.Require(0, 8); }), "none");
}

TEST(bio_Ifilter, SubReportsPositionsOfTheWhole)
{
    const Bytes bytes = {9, 9, 1, 2, 3, 9};
    bio_Ifilter in(bytes);
    in.Skip(2);
    bio_Ifilter part = in.Sub(3);
    EXPECT_EQ(in.Position(), 5u);
    EXPECT_EQ(part.Position(), 2u);
    EXPECT_EQ(part.Left(), 3u);
    EXPECT_EQ(part.Rest()[0], 1);
    part.Skip(1);
    std::int32_t number = 0;
    EXPECT_EQ(FaultOf([&] { part.Read(number); }), "data ends at byte 5, 2 more needed")
        << "the part ends before the whole does";
    bio_Ifilter inner = part.Sub(2);
    EXPECT_EQ(inner.Position(), 3u);
    EXPECT_EQ(part.Left(), 0u);
    EXPECT_EQ(part.Sub(0).Left(), 0u);
}

TEST(bio_Ifilter, NothingHoldsNothing)
{
    bio_Ifilter in;
    EXPECT_EQ(in.Left(), 0u);
    char byte = 'k';
    EXPECT_EQ(FaultOf([&] { in.Read(byte); }), "data ends at byte 0, 1 more needed");
    EXPECT_EQ(byte, 'k');
    in.ReadRaw(nullptr, 0);
    in.ReadArray(std::span<double>());
}

TEST(bio_Ifilter, ArraysAreReadWholeOrNotAtAll)
{
    bio_Ofilter out;
    const double doubles[] = {1.5, -2.5};
    out.WriteArray(std::span<const double>(doubles));
    const Bytes bytes = out.Take();
    double three[3] = {7, 7, 7};
    bio_Ifilter in(bytes);
    EXPECT_EQ(FaultOf([&] { in.ReadArray(std::span<double>(three)); }),
              "data ends at byte 16, 8 more needed");
    EXPECT_EQ(three[0], 7);
    in.ReadArray(std::span<double>(three, 2));
    EXPECT_EQ(three[0], 1.5);
    EXPECT_EQ(three[1], -2.5);
    EXPECT_EQ(three[2], 7);
}

TEST(bio_DataException, IsAPrimExceptionWithPosition)
{
    const bio_DataException error = bio_DataException::EndOfData(10, 3);
    EXPECT_EQ(error.AsString(), "bio_DataException: data ends at byte 10, 3 more needed");
    EXPECT_EQ(error.DynTypeId(), nex_PrimException::TypeId());
    const nex_PrimException& base = error;
    try
    {
        base.Propagate();
    }
    catch (const bio_DataException& caught)
    {
        EXPECT_EQ(caught.Position(), 10u);
        EXPECT_EQ(caught.Missing(), 3u);
    }
    EXPECT_EQ(bio_DataException::BadLength(4, -1).Missing(), 0u);
}
