// Bytes that no writer of ours wrote: each is read or refused with one clear exception.

#include <cow_COW.h>
#include <gsl_BBox.h>
#include <gsl_Segment.h>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoSummary.h>
#include <idb_MementoWrite.h>
#include <omu_PrimDictionary.h>
#include <testing/ExpectRaise.h>
#include <testing/LibraryGuard.h>
#include <testing/MementoMaker.h>
#include <testing/ValueTesting.h>

namespace
{
using Value = cow_COW<omu_Primitive>;
using Part = MementoMaker::Part;

constexpr unsigned char FLIPS[] = {0x01, 0x80, 0xFF};
constexpr std::uint16_t INT = 5;
constexpr std::uint16_t DOUBLE = 10;
constexpr std::uint16_t STRING = 11;
constexpr std::uint16_t ENUM = 14;
constexpr std::uint16_t CHAR = 1;
constexpr std::uint16_t OBJECT = 15;
constexpr std::uint16_t LIST = 1;

class Damage : public testing::Test
{
protected:
    /// The classes of texts and tuples, by index: omu_Primitive, omu_PrimString, omu_PrimTuple.
    Damage()
    {
        maker_.Class(omu_Primitive::TypeId(), "omu_Primitive", 514, 1, {{"type", CHAR, 1, 0}});
        maker_.Class(omu_PrimString::TypeId(), "omu_PrimString", 800, omu_Primitive::TypeId(),
                     {{"value", STRING, 1, 0}, {"later", INT, 1, 0}});
        maker_.Class(omu_PrimTuple::TypeId(), "omu_PrimTuple", 800, omu_Primitive::TypeId(),
                     {{"primVector", OBJECT, 0x230001, LIST}});
    }
    static Part TextPart(const char* text) { return {1, {{0, STRING, 0, Payload(cow_String(text))}}}; }
    template <class... N>
    static Part TuplePart(N... numbers)
    {
        return {2, {{0, OBJECT, LIST, Payload(int{sizeof...(N)}, numbers...)}}};
    }
    /// What reading the object "r" comes to.
    std::string Result(const idb_MementoLimits& limits = {})
    {
        maker_.Root("r", 1);
        return ResultOf(maker_.Make(), limits);
    }
    static std::string ResultOf(const Bytes& bytes, const idb_MementoLimits& limits = {})
    {
        const Value before(new omu_PrimString("before"));
        Value value = before;
        const std::string outcome = Outcome([&] {
            idb_MementoRead memento(bytes, limits);
            memento.Root("r", value);
            return Text(*value);
        });
        constexpr std::string_view REFUSED = "idb_MementoException: idb_MementoRead: ";
        if (!outcome.starts_with(REFUSED))
            return outcome;
        EXPECT_TRUE(value.SharesWith(before)) << "what the caller passed stays";
        return outcome.substr(REFUSED.size());
    }

    const LibraryGuard running_;
    MementoMaker maker_;
};

Bytes Small()
{
    idb_MementoWrite memento;
    omu_PrimDictionary<cow_String> dictionary;
    dictionary.Put("a", omu_PrimNumber(1));
    dictionary.Put("b", TupleOf("x", true));
    memento.Add("r", dictionary);
    memento.Finish();
    return memento.TakeBytes();
}

TEST_F(Damage, EveryFlippedByteAndEveryTruncationIsRefused)
{
    const Bytes good = Small();
    ASSERT_EQ(ResultOf(good), "{'a': 1, 'b': ('x', True)}");
    for (std::size_t i = 0; i < good.size(); ++i)
    {
        for (const unsigned char flip : FLIPS)
        {
            Bytes bad = good;
            bad[i] ^= flip;
            EXPECT_THROW(idb_MementoRead{bad}, idb_MementoException) << i;
        }
        EXPECT_THROW(idb_MementoRead{std::span(good).first(i)}, idb_MementoException) << i;
    }
    Bytes longer = good;
    longer.push_back(0);
    EXPECT_EQ(ResultOf(longer), "data goes on at byte " + std::to_string(good.size()) + ", 1 bytes too many");
    EXPECT_EQ(ResultOf({}), "not a memento");
    EXPECT_EQ(ResultOf(Bytes(good.begin(), good.begin() + 20)), "data ends at byte 20, 4 more needed");
    EXPECT_EQ(ResultOf(Bytes(good.begin(), good.end() - 1)),
              "data ends at byte " + std::to_string(good.size() - 1) + ", 1 more needed");
    Bytes bad = good;
    bad[idb_MementoFormat::HEADER_BYTES + 20] ^= 1;
    EXPECT_EQ(ResultOf(bad), "checksum mismatch in section CLAS at byte 28");
}

// With the checksums made right again there is more to find: an object, or one clear exception.
TEST_F(Damage, EveryFlippedByteWithRightChecksumsIsAnswered)
{
    const Bytes good = Small();
    int refused = 0;
    for (std::size_t i = 0; i < good.size(); ++i)
        for (const unsigned char flip : FLIPS)
        {
            Bytes bad = good;
            bad[i] ^= flip;
            Reseal(bad);
            testing::internal::CaptureStderr();
            try
            {
                idb_MementoRead memento(bad);
                static_cast<void>(idb_MementoSummary(memento));
                for (const cow_String& name : memento.RootNames())
                    static_cast<void>(memento.Root(name));
            }
            catch (const idb_MementoException&)
            {
                ++refused;
            }
            testing::internal::GetCapturedStderr();
        }
    EXPECT_GT(refused, static_cast<int>(good.size()));
}

TEST_F(Damage, MoreAndLessThanExpectedIsRead)
{
    Part text = TextPart("t");
    text.attributes.push_back({1, INT, 0, Payload(5)});
    maker_.Object(2, {TuplePart(2u, 0u, 3u, 2u)});
    maker_.Object(1, {{0, {}}, text});
    maker_.Object(1, {{1, {}}});
    maker_.Section("XTRA", 0, Bytes(5));
    maker_.Class(0x12345, "nobody", 1, 1, {});
    maker_.Class(omu_PrimNumber::TypeId(), "omu_PrimNumber", 900, 1, {});
    maker_.Root("r", 1);
    maker_.Root("second", 2);
    maker_.minorFormat = 3;
    const Bytes bytes = maker_.Make();
    EXPECT_EQ(ResultOf(bytes), "('t', None, '', 't')");
    idb_MementoRead memento(bytes);
    EXPECT_EQ(memento.Warnings().Get(0), "format 1.3 is newer than 1.0");
    EXPECT_EQ(memento.Warnings().Get(1), "class omu_PrimNumber has version 900, newer than the known 835");
    const idb_MementoSummary summary(memento);
    EXPECT_EQ(std::string(summary.warnings.Get(2).View()).substr(0, 21), "section XTRA at byte ");
    EXPECT_EQ(summary.warnings.Get(3), "class nobody (0x12345) is not known");
    maker_.majorFormat = 2;
    EXPECT_EQ(ResultOf(maker_.Make()), "format 2.3 is newer than 1.0");
    EXPECT_TRUE(summary.objects == 3 && summary.bytes == bytes.size() && summary.sections.size() == 5);
    EXPECT_TRUE(summary.classes[1].objects == 2 && summary.classes[1].parent == "omu_Primitive");
    EXPECT_EQ(summary.classes[1].bytes, 32u + 32u + 14u + 5u + 14u + 4u + 32u);
    EXPECT_TRUE(summary.roots[1].name == "second" && summary.roots[1].className == "omu_PrimString");
    EXPECT_TRUE(summary.classes[1].isKnown && !summary.classes[3].isKnown);
}

TEST_F(Damage, ANumberOfAnEarlierReleaseIsRead)
{
    maker_.Class(omu_PrimNumber::TypeId(), "omu_PrimNumber", 800, 1,
                 {{"value", DOUBLE, 1, 0}, {"dataType", ENUM, 1, 0}});
    maker_.Object(3,
                  {{3, {{1, ENUM, 0, Payload(cow_String("UINT"))}, {0, DOUBLE, 0, Payload(4294967295.0)}}}});
    EXPECT_EQ(Result(), "4294967295");
}

const MementoMaker::Attribute GOOD = {0, STRING, 0, Payload(cow_String("t"))};
const std::vector<Part> TEXT = {{1, {GOOD}}};

// A part of the tuple's class, or of the class that a row adds, with a list attribute.
template <class... T>
std::vector<Part> Listing(std::uint32_t classIndex, std::uint16_t collection, const T&... payload)
{
    return {{classIndex, {{0, OBJECT, collection, Payload(payload...)}}}};
}

/// An object of that class and parts, and what else is wrong.
struct BadObject
{
    const char* name;
    const char* result;
    std::uint32_t classIndex;
    std::vector<Part> parts;
    void (*more)(MementoMaker&) = [](MementoMaker&) {};
    std::uint32_t number = 0;
};

const BadObject BAD_OBJECTS[] = {
    {"WrongType",
     "object 1 (omu_PrimString): attribute value has type 5, expected 11",
     1,
     {{1, {{0, INT, 0, Payload(5)}}}}},
    {"WrongCollection", "object 1 (omu_PrimTuple): attribute primVector has collection type 54, expected 1",
     2, Listing(2, 54, 1, 1, 5)},
    {"SingleExpected",
     "object 1 (omu_PrimString): attribute value has collection type 55, expected 0",
     1,
     {{1, {{0, STRING, 55, Payload(1, 1, cow_String())}}}}},
    {"ShortPayload",
     "object 1 (omu_PrimString): data ends at byte 311, 6 more needed",
     1,
     {{1, {{0, STRING, 0, Payload(7, 'x')}}}}},
    {"LongPayload",
     "data goes on at byte 311, 1 bytes too many",
     1,
     {{1, {{0, STRING, 0, Payload(cow_String("t"), 'x')}}}}},
    {"ManyElements", "object 1 (omu_PrimTuple): data ends at byte 310, 8000000000 more needed", 2,
     Listing(2, LIST, 2000000000)},
    {"AttributeTwice", "object 1 (omu_PrimString): attribute value stands twice", 1, {{1, {GOOD, GOOD}}}},
    {"AttributeOfNoIndex",
     "object 1 (omu_PrimString): attribute index 2 at byte 292, the class has 2",
     1,
     {{1, {{2, INT, 0, {}}}}}},
    {"NoParts", "object 1 (omu_PrimString): its last part is of class none", 1, {}},
    {"NoBase",
     "object 1 (omu_PrimString): part omu_PrimTuple is no base of part omu_PrimString",
     1,
     {{2, {}}, {1, {GOOD}}}},
    {"Abstract", "object 1: class omu_Primitive (0x130011) is abstract", 0, {{0, {}}}},
    {"BadReference", "object number 9, there are 1 objects", 2, Listing(2, LIST, 1, 9)},
    {"Cycle", "object 1 is part of a cyclic reference", 2, Listing(2, LIST, 1, 2),
     [](MementoMaker& m) { m.Object(2, Listing(2, LIST, 1, 1)); }},
    {"UnknownClass",
     "object 1: class nobody (0x7f0001) is not known",
     3,
     {{3, {}}},
     [](MementoMaker& m) { m.Class(0x7F0001, "nobody", 1, 1, {}); }},
    {"OtherName",
     "object 1: class number (0x130016) is known as omu_PrimNumber",
     3,
     {{3, {}}},
     [](MementoMaker& m) { m.Class(0x130016, "number", 1, 1, {}); }},
    {"KeyTwice", "key k stands twice in the map at byte 364", 3,
     Listing(3, 2, 2, cow_String("k"), 0, cow_String("k"), 0),
     [](MementoMaker& m) {
         m.Class(0x130014, "omu_PrimStrDictionary", 800, 1, {{"m_map", OBJECT, 0, 2}});
     }},
    // What the object itself refuses comes as the one exception too.
    {"OwnRefusal",
     "object 1 (omu_OnOffConst): omu_PrimEnum(const cls_ReadVisitor&) - str not allowed:   "
     "Permissible: {ON: 1, OFF: 0}",
     3,
     {{3, {}}},
     [](MementoMaker& m) { m.Class(0x130025, "omu_OnOffConst", 800, 1, {}); }},
    {"NumberTwice", "object number 1 stands twice, at byte 311", 1, TEXT,
     [](MementoMaker& m) { m.Object(1, TEXT, 1); }},
    {"NumberNotDense", "object number 2 at byte 244, there are 1 objects", 1, TEXT, [](MementoMaker&) {}, 2},
    {"NoSuchClassIndex", "class index 7 at byte 244, there are 3 classes", 7, TEXT},
    {"ClassTwice", "class other (0x130018) stands twice, at byte 220", 1, TEXT,
     [](MementoMaker& m) { m.Class(omu_PrimString::TypeId(), "other", 1, 1, {}); }},
    {"AttributeNameTwice", "name a stands twice, at byte 257", 1, TEXT,
     [](MementoMaker& m) {
         m.Class(5, "five", 1, 1, {{"a", INT, 1, 0}, {"a", INT, 1, 0}});
     }},
    {"RootTwice", "name r stands twice, at byte 344", 1, TEXT, [](MementoMaker& m) { m.Root("r", 1); }},
    {"UnknownSection", "section MU?T at byte 348 must be understood", 1, TEXT,
     [](MementoMaker& m) { m.Section("MU\x7FT", 1, {}); }},
    {"HugeCount", "data ends at byte 311, 143999933 more needed", 1, TEXT,
     [](MementoMaker& m) { m.objectCount = 9000000; }},
};

// Byte 244 is where the objects begin, 292 the attributes of the first one's first part.
class BadObjects : public Damage, public testing::WithParamInterface<BadObject>
{};

TEST_P(BadObjects, AreRefusedByName)
{
    const BadObject& row = GetParam();
    maker_.Object(row.classIndex, row.parts, row.number);
    row.more(maker_);
    testing::internal::CaptureStderr();
    EXPECT_EQ(Result(), row.result);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              std::string(row.name) == "WrongCollection"
                  ? "error getting ReadListPrim for object collection type: 54\n"
                  : "");
}

INSTANTIATE_TEST_SUITE_P(Rows, BadObjects, testing::ValuesIn(BAD_OBJECTS),
                         [](const auto& row) { return std::string(row.param.name); });

// The line has no end on purpose.
TEST_F(Damage, AWrongClassIsToldAndRaised)
{
    maker_.Class(gsl_Segment::TypeId(), "gsl_Segment", 800, 1, {{"_point1", OBJECT, gsl_Point::TypeId(), 0}});
    maker_.Object(3, {{3, {{0, OBJECT, 0, Payload(2)}}}});
    maker_.Object(1, {TextPart("t")});
    maker_.Root("r", 1);
    const Bytes bytes = maker_.Make();
    gsl_Segment segment;
    idb_MementoRead memento(bytes);
    testing::internal::CaptureStderr();
    try
    {
        memento.Root("r", segment);
        ADD_FAILURE() << "nothing was raised";
    }
    catch (const idb_MementoException& raised)
    {
        EXPECT_EQ(raised.UserReport(), "idb_MementoRead: object 2 is a omu_PrimString, expected a gsl_Point");
        EXPECT_TRUE(raised.ObjectNumber() == 2 && raised.ClassName() == "omu_PrimString");
        EXPECT_EQ(raised.ByteOffset(), 376);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Error reading object ptr for 130018 does not inherit from 30a0001");
}

TEST_F(Damage, LimitsHoldAndCanBeMoved)
{
    const Bytes good = Small();
    const auto with = [&](auto member, auto value) {
        idb_MementoLimits limits;
        limits.*member = value;
        return ResultOf(good, limits);
    };
    const auto bytes = static_cast<std::uint64_t>(good.size());
    EXPECT_EQ(with(&idb_MementoLimits::bytes, bytes - 1), "limit exceeded: total bytes");
    EXPECT_EQ(with(&idb_MementoLimits::objects, 4u), "limit exceeded: objects");
    EXPECT_EQ(with(&idb_MementoLimits::classes, 3u), "limit exceeded: classes");
    EXPECT_EQ(with(&idb_MementoLimits::attributes, 2u), "limit exceeded: attributes of a class");
    EXPECT_EQ(with(&idb_MementoLimits::depth, 2u), "limit exceeded: nesting depth");
    EXPECT_EQ(with(&idb_MementoLimits::text, std::uint64_t{5}), "limit exceeded: text length");
    idb_MementoLimits tight;
    tight.budgetFactor = 0;
    tight.budgetBase = 900;
    EXPECT_EQ(ResultOf(good, tight), "limit exceeded: allocation budget");
    EXPECT_THROW(idb_MementoRead(good, tight), idb_MementoException) << "tables count";
    // 200 tuples in each other are read, 201 are not.
    for (const unsigned depth : {200u, 201u})
    {
        MementoMaker deep = maker_;
        for (unsigned i = 1; i < depth; ++i)
            deep.Object(2, {TuplePart(i + 1)});
        deep.Object(2, {TuplePart()});
        deep.Root("r", 1);
        const std::string result = ResultOf(deep.Make());
        EXPECT_EQ(result == "limit exceeded: nesting depth", depth == 201) << result;
    }
}
}
