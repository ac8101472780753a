// The protocol by which positional arguments are read.

#include <functional>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_Arguments.h>
#include <omu_InterfaceObj.h>
#include <omu_PrimList.h>
#include <omu_PrimString.h>
#include <ostream>
#include <testing/Outcome.h>

#include <gtest/gtest.h>

namespace
{
using DataTypeConst = omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>;

template <class... Items>
omu_PrimTuple TupleOf(const Items&... items)
{
    omu_PrimTuple tuple;
    (tuple.Put(items), ...);
    return tuple;
}

struct Protocol
{
    const char* name;
    omu_PrimTuple items;
    std::function<void(omu_PrimTuple&, int* out)> reads; // between Begin and End
    const char* outcome;                                 // what the three outputs hold, or the exception
};

void PrintTo(const Protocol& row, std::ostream* out)
{
    *out << row.name;
}

class ReadingTuple : public testing::TestWithParam<Protocol>
{};

TEST_P(ReadingTuple, ComesToItsOutcome)
{
    omu_PrimTuple tuple = GetParam().items;
    // Twice: a second reading starts over, whatever became of the first.
    for (int pass = 0; pass < 2; ++pass)
    {
        int out[3] = {-1, -2, -3};
        EXPECT_EQ(Outcome([&] {
                      tuple.Begin();
                      GetParam().reads(tuple, out);
                      // Reading may be given up; nothing is asked of End then.
                      const bool error = tuple.Error();
                      try
                      {
                          tuple.End();
                      }
                      catch (...)
                      {
                          EXPECT_TRUE(error);
                          throw;
                      }
                      EXPECT_FALSE(error);
                      return std::to_string(out[0]) + " " + std::to_string(out[1]) + " " +
                             std::to_string(out[2]);
                  }),
                  GetParam().outcome);
    }
}

// One required read of each output.
void ReadThree(omu_PrimTuple& tuple, int* out)
{
    tuple.Get(out[0]);
    tuple.Get(out[1]);
    tuple.Get(out[2]);
}

void ReadTwoAndOne(omu_PrimTuple& tuple, int* out)
{
    tuple.Get(out[0]);
    tuple.Get(out[1]);
    tuple.Optional();
    tuple.Get(out[2]);
}

void ReadIntOrDouble(omu_PrimTuple& tuple, int* out)
{
    double value = 0.0;
    if (!tuple.Get(out[0]) && tuple.Alternative() && tuple.Get(value))
        out[1] = static_cast<int>(value * 2.0);
    EXPECT_FALSE(tuple.Alternative()) << "nothing failed";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReadingTuple,
    testing::Values(
        Protocol{"AllGiven", TupleOf(1, 2, 3), ReadThree, "1 2 3"},
        Protocol{"OptionalKeepsItsDefault", TupleOf(1, 2), ReadTwoAndOne, "1 2 -3"},
        Protocol{"OptionalGiven", TupleOf(1, 2, 3), ReadTwoAndOne, "1 2 3"},
        Protocol{"RequiredMissing", TupleOf(1), ReadTwoAndOne,
                 "TypeError: not all required arguments specified; expected 2, got 1"},
        Protocol{"NothingGiven", TupleOf(), ReadThree,
                 "TypeError: not all required arguments specified; expected 3, got 0"},
        // What is expected is the required number also when there are too many, on purpose.
        Protocol{"TooMany", TupleOf(1, 2, 3, 4),
                 [](omu_PrimTuple& tuple, int* out) {
                     tuple.Get(out[0]);
                     tuple.Optional();
                     tuple.Get(out[1]);
                     tuple.Get(out[2]);
                 },
                 "TypeError: too many arguments; expected 1, got 4"},
        Protocol{"TooManyForNone", TupleOf(1), [](omu_PrimTuple&, int*) {},
                 "TypeError: too many arguments; expected 0, got 1"},
        Protocol{"FirstWrongTypeStays", TupleOf(1, "a", 2.5), ReadThree,
                 "TypeError: arg2; found string, expecting int"},
        Protocol{"WrongTypeBeforeWrongCount", TupleOf("a"), ReadThree,
                 "TypeError: arg1; found string, expecting int"},
        Protocol{"ConstantIsNamed", TupleOf(omu_PrimEnumBase("DASHED"), 2, 3), ReadThree,
                 "TypeError: arg1; found DASHED, expecting int"},
        Protocol{"ConstantIsListedAsExpected", TupleOf(1),
                 [](omu_PrimTuple& tuple, int*) {
                     DataTypeConst constant;
                     tuple.Get(constant);
                 },
                 "TypeError: arg1; found int, expecting SCHAR or SHORT or INT or FLOAT or DOUBLE or UINT"},
        Protocol{"IntegralDoubleIsNoInt", TupleOf(1.0, 2, 3), ReadThree,
                 "TypeError: arg1; found float, expecting int"},
        // Odd, and kept: the name of the type found is the one expected.
        Protocol{"UnsignedIsNoInt", TupleOf(1u, 2, 3), ReadThree,
                 "TypeError: arg1; found int, expecting int"},
        Protocol{"Alternative", TupleOf(2.5), ReadIntOrDouble, "-1 5 -3"},
        Protocol{"NoAlternativeNeeded", TupleOf(4), ReadIntOrDouble, "4 -2 -3"},
        Protocol{"NoAlternativeToTheMissing", TupleOf(), ReadIntOrDouble,
                 "TypeError: not all required arguments specified; expected 1, got 0"},
        Protocol{"AlternativeTooLate", TupleOf("a", 2),
                 [](omu_PrimTuple& tuple, int* out) {
                     tuple.Get(out[0]);
                     tuple.Get(out[1]);
                     EXPECT_FALSE(tuple.Alternative()) << "it was not the argument just read";
                 },
                 "TypeError: arg1; found string, expecting int"},
        // The undone read had counted as required, though Optional came before it was undone.
        Protocol{"OptionalBetweenReadAndAlternative", TupleOf(2.5),
                 [](omu_PrimTuple& tuple, int* out) {
                     double value = 0.0;
                     tuple.Get(out[0]);
                     tuple.Optional();
                     EXPECT_TRUE(tuple.Alternative());
                     EXPECT_TRUE(tuple.Get(value));
                 },
                 "-1 -2 -3"},
        Protocol{"SecondAlternativeFails", TupleOf("a"),
                 [](omu_PrimTuple& tuple, int* out) {
                     double value = 0.0;
                     tuple.Get(out[0]);
                     EXPECT_TRUE(tuple.Alternative());
                     tuple.Get(value);
                     EXPECT_EQ(tuple.Cursor(), 1);
                 },
                 "TypeError: arg1; found string, expecting float"}),
    [](const auto& row) { return row.param.name; });

TEST(PrimTuple, NestingTellsWhereItStands)
{
    int number = 0;
    omu_PrimTuple tuple = TupleOf(1, TupleOf(2, "a"));
    const auto readBoth = [&] {
        omu_PrimTuple inner;
        tuple.Begin();
        tuple.Get(number);
        EXPECT_TRUE(tuple.Get(inner));
        tuple.End();
        inner.Begin();
        inner.Get(number);
        inner.Get(number);
        inner.End();
        return std::string();
    };
    EXPECT_EQ(Outcome(readBoth), "TypeError: arg2[1]; found string, expecting int");
    tuple.SetNesting("s.f");
    EXPECT_EQ(Outcome(readBoth), "TypeError: s.f[1][1]; found string, expecting int");

    const auto wrong = [&](const char* nesting) {
        return Outcome([&] {
            tuple.Begin();
            tuple.Get(number);
            tuple.Get(number);
            tuple.End(nesting);
            return std::string();
        });
    };
    EXPECT_EQ(wrong("s.v"), "TypeError: s.v[1]; found tuple, expecting int")
        << "the text given, before the stored one";
    EXPECT_EQ(wrong(""), "TypeError: s.f[1]; found tuple, expecting int");
    const auto tooMany = [&] {
        tuple.Begin();
        tuple.Get(number);
        tuple.End();
        return std::string();
    };
    EXPECT_EQ(Outcome(tooMany), "TypeError: s.f; too many arguments; expected 1, got 2");
}

TEST(PrimTuple, RaiseNamesItsSource)
{
    try
    {
        omu_PrimTuple tuple = TupleOf(1);
        tuple.Begin();
        tuple.End();
        FAIL();
    }
    catch (const omu_ArgNumberErrorException& fault)
    {
        EXPECT_EQ(fault.m_Found, 1);
        EXPECT_NE(fault.DeveloperReport().Find("(KTLOxuOmu.m/src/omu_PrimTuple, line "), -1);
    }
}

// A tuple that was read holds the items alone: not the cursor, not the faults of the one it came from.
TEST(PrimTuple, ReadTupleStartsAfresh)
{
    omu_PrimTuple inner = TupleOf(1, "a");
    int number = 0;
    inner.Begin();
    inner.Get(number);
    omu_PrimTuple outer = TupleOf(inner);
    omu_PrimList taken(0, 1);
    EXPECT_EQ(Outcome([&] {
                  outer.Begin();
                  outer.Get(taken);
                  return std::string();
              }),
              "OverflowError: list is full; maximum size is 1");
    EXPECT_EQ(taken.Length(), 0);
    omu_PrimTuple found;
    outer.Begin();
    EXPECT_TRUE(outer.Get(found));
    EXPECT_EQ(found.Cursor(), 0);
    EXPECT_EQ(found.Nesting(), "arg1");
    EXPECT_EQ(found.AsString(0), "(1, 'a')");
}

TEST(PrimTuple, ReadsAnyValueAsACopy)
{
    omu_PrimTuple tuple = TupleOf("a");
    std::unique_ptr<omu_Primitive> value;
    tuple.Begin();
    EXPECT_TRUE(tuple.Get(value));
    EXPECT_FALSE(tuple.Get(value)) << "there is no second one";
    ASSERT_NE(value, nullptr);
    EXPECT_NE(value.get(), tuple[0]);
    EXPECT_EQ(value->AsString(0), "'a'");
}

class Handle : public omu_InterfaceObj
{
public:
    Handle* Copy() const override { return new Handle(*this); }
    cow_String AsRepr() const override { return "mdb.x"; }
};

TEST(PrimTuple, InterfaceObjectsAreLookedAt)
{
    auto* const handle = new Handle;
    omu_PrimTuple tuple = TupleOf("a");
    tuple.Put(handle);
    EXPECT_EQ(tuple.AsString(0), "('a', mdb.x)");
    const omu_InterfaceObj* found = nullptr;
    omu_Arguments arguments(tuple);
    arguments.Begin();
    EXPECT_FALSE(arguments.Get(found));
    EXPECT_TRUE(arguments.Alternative());
    cow_String text;
    EXPECT_TRUE(arguments.Get(text));
    EXPECT_TRUE(arguments.Get(found, "object"));
    EXPECT_EQ(found, handle);
    EXPECT_EQ(Outcome([&] {
                  tuple.Begin();
                  tuple.Get(found);
                  tuple.End();
                  return std::string();
              }),
              "TypeError: arg1; found string, expecting OrvexObject");
}
}
