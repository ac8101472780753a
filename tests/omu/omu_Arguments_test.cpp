// Arguments of two forms, nested arguments, and what an argument list is as a value. The protocol itself is
// held against a model.

#include <omu_InterfaceObj.h>
#include <testing/ValueTesting.h>

namespace
{
using DataTypeConst = omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>;
using Ints = cow_List<int>;
const Ints THREE = {1, 2, 3};

// A point: a tuple of two, read at once.
std::string GetPoint(omu_Arguments& arguments, const char* keyword)
{
    omu_PrimTuple point;
    double x = 0.0;
    double y = 0.0;
    if (!arguments.Get(point, keyword))
        return "-";
    point.Begin();
    point.Get(x);
    point.Get(y);
    point.End();
    return Text(point);
}

// What comes of a command with the arguments (to, from = -), where `to` is a constant or a point.
std::string Move(omu_Arguments arguments, const char* nesting)
{
    arguments.SetNesting(nesting);
    return Outcome([&] {
        DataTypeConst name;
        arguments.Begin();
        std::string read = arguments.Get(name, "to") ? Text(name) : "";
        if (arguments.Alternative())
            read = GetPoint(arguments, "to");
        arguments.Optional();
        read += GetPoint(arguments, "from");
        arguments.End();
        return read;
    });
}

struct Row : NamedRow
{
    omu_Arguments given;
    const char* outcome;
    const char* nested; // what follows "TypeError: ", as an entry of s.f
};
using TwoForms = testing::TestWithParam<Row>;

TEST_P(TwoForms, ComeToTheirOutcome)
{
    const Row& row = GetParam();
    const std::string error = "TypeError: ";
    EXPECT_EQ(Move(row.given, ""), *row.nested ? error + row.outcome : row.outcome);
    EXPECT_EQ(Move(row.given, "s.f"), *row.nested ? error + row.nested : row.outcome);
}

INSTANTIATE_ROWS(TwoForms, Row{"First", Args(DataTypeConst(omu_PrimNumber::DataTypeEnm::INT)), "INT-", ""},
                 Row{"Second", Args(Keyword("to", Ints{5, 6}), Keyword("from", Ints{7, 8})), "(5, 6)(7, 8)",
                     ""},
                 Row{"Neither", Args(Keyword("to", 5)), "to; found int, expecting tuple",
                     "s.f['to']; found int, expecting tuple"},
                 Row{"NeitherByPosition", Args(5), "arg1; found int, expecting tuple",
                     "s.f[0]; found int, expecting tuple"},
                 Row{"Missing", Args(Keyword("from", Ints{7, 8})),
                     "not all required arguments specified; expected 1, got 0",
                     "s.f; not all required arguments specified; expected 1, got 0"},
                 Row{"Unknown", Args(Keyword("to", Ints{5, 6}), Keyword("x", 1)), "keyword error on x",
                     "s.fkeyword error on x"}, // the nesting text runs straight into "keyword", on purpose
                 Row{"TooLong", Args(Keyword("to", THREE)), "to; too many arguments; expected 2, got 3",
                     "s.f['to']; too many arguments; expected 2, got 3"},
                 Row{"TooLongByPosition", Args(THREE), "to; too many arguments; expected 2, got 3",
                     "s.f['to']; too many arguments; expected 2, got 3"});

TEST(Arguments, PutFillsBothKinds)
{
    omu_Arguments arguments;
    EXPECT_EQ(Text(arguments), "()");
    arguments.Put(1);
    EXPECT_EQ(Text(arguments), "(1)") << "no comma, unlike a tuple";
    arguments.Put(2.0f);
    arguments.Put("name", "x");
    arguments.Put("flag", true);
    arguments.Put("none", static_cast<omu_Primitive*>(nullptr));
    EXPECT_EQ(Text(arguments), "(1, 2.0, name='x', flag=True, none=None)");
    EXPECT_EQ(Text(Args(Keyword("n", 1))), "(n=1)");
    EXPECT_ERROR(arguments.Put("flag", 0), "TypeError: keyword error on flag");

    const std::unique_ptr<omu_Arguments> copy(arguments.Copy());
    EXPECT_TRUE(*copy == arguments);
    EXPECT_EQ(copy->Keywords().Get("name"), arguments.Keywords().Get("name")) << "shared";
    copy->Put("more", 1);
    EXPECT_FALSE(*copy == arguments);
    EXPECT_EQ(arguments.DynTypeId(), omu_PrimTuple::TypeId());
}

// A tuple that was read holds the items alone: not the cursor, not the faults of the one it came from.
TEST(PrimTuple, ReadTupleStartsAfresh)
{
    omu_PrimTuple inner(THREE);
    cow_String text;
    EXPECT_FALSE(inner.Get(text));
    omu_PrimTuple outer = TupleOf(inner);
    omu_PrimList taken(0, 1);
    EXPECT_ERROR(outer.Get(taken), "OverflowError: list is full; maximum size is 1");
    EXPECT_EQ(taken.Length(), 0);
    omu_PrimTuple found;
    outer.Begin();
    EXPECT_TRUE(outer.Get(found));
    EXPECT_EQ(found.Cursor(), 0);
    EXPECT_ERROR(found.End(), "TypeError: arg1; too many arguments; expected 0, got 3");
    EXPECT_ERROR(found.End("s.v"), "TypeError: s.v; too many arguments; expected 0, got 3");
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
    omu_Arguments arguments = Args("a");
    arguments.Put(handle);
    EXPECT_EQ(Text(arguments), "('a', mdb.x)");
    const omu_InterfaceObj* found = nullptr;
    std::unique_ptr<omu_Primitive> any;
    arguments.Begin();
    EXPECT_FALSE(arguments.Get(found, "object"));
    EXPECT_TRUE(arguments.Alternative());
    EXPECT_TRUE(arguments.Get(any));
    EXPECT_EQ(Text(*any), "'a'");
    EXPECT_TRUE(arguments.Get(found, "object"));
    EXPECT_EQ(found, handle);
}
}
