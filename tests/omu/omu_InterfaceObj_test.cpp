// Interface objects: members, methods, texts, staleness, sequences, dictionaries.

#include <array>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <nex_PrimException.h>
#include <omu_IdSeqIntObj.h>
#include <omu_IndexErrorException.h>
#include <omu_PrimType.h>
#include <testing/ChildTrace.h>
#include <testing/SampleRepository.h>
#include <testing/ValueTesting.h>

namespace
{
template <class T>
std::string Texts(const cow_List<T>& list)
{
    return Text(omu_PrimTuple(list));
}

class Sample : public testing::Test
{
protected:
    static omu_Primitive* Member(const omu_InterfaceObj& object, const char* name)
    {
        bool found = false;
        omu_Primitive* value = object.GetMember(name, found);
        EXPECT_TRUE(found) << name;
        return value;
    }
    static omu_Primitive* Call(const omu_InterfaceObj& object, const char* name, omu_Arguments arguments = {})
    {
        bool found = false;
        omu_Primitive* value = object.CallMethod(name, nullptr, arguments, found);
        EXPECT_TRUE(found) << name;
        return value;
    }
    static void Set(const omu_InterfaceObj& object, const char* name, omu_Arguments value)
    {
        bool found = false;
        object.SetMember(name, value, found);
        EXPECT_TRUE(found) << name;
    }
    template <class T>
    static std::unique_ptr<T> As(omu_Primitive* owned)
    {
        return std::unique_ptr<T>(&dynamic_cast<T&>(*owned));
    }
    std::unique_ptr<sample::PartIntObj> PartOf(const char* name)
    {
        return As<sample::PartIntObj>(parts_->Subscript(name));
    }

    const sample::MdbIntObj mdb_{sample::NewDatabase()};
    const std::unique_ptr<omu_DictIntObj> models_ = As<omu_DictIntObj>(Member(mdb_, "models"));
    const std::unique_ptr<omu_InterfaceObj> model_ = As<omu_InterfaceObj>(models_->Item(omu_PrimString("M")));
    const std::unique_ptr<sample::PartsIntObj> parts_ = As<sample::PartsIntObj>(Member(*model_, "parts"));
    const std::unique_ptr<omu_SeqIntObj> vertices_ = As<omu_SeqIntObj>(Member(*model_, "vertices"));
    const std::unique_ptr<sample::PartIntObj> part_ = PartOf("P1");
};

TEST_F(Sample, TextsOfEveryKind)
{
    const auto odd = PartOf("it's");
    const struct
    {
        const omu_InterfaceObj& object;
        const char* repr;
        const char* text;
        const char* standard;
        const char* bases;
    } rows[] = {
        {mdb_, "mdb", "({'models': mdb.models})", "<Mdb object>", "()"},
        {*models_, "mdb.models", "{'M': mdb.models['M']}", "<OrvexDictionary object>", "()"},
        {*model_, "mdb.models['M']",
         "({'name': 'M', 'parts': mdb.models['M'].parts, 'vertices': mdb.models['M'].vertices})",
         "<Model object named M>", "()"},
        {*odd, "mdb.models['M'].parts[\"it's\"]",
         "({'name': \"it's\", 'width': 1.0, 'copies': 3, 'comment': 'odd'})", "<Part object named it's>",
         "()"},
        {*parts_, "mdb.models['M'].parts",
         "{'P1': mdb.models['M'].parts['P1'], \"it's\": mdb.models['M'].parts[\"it's\"]}",
         "<PartRepository object>", "('OrvexDictionary',)"},
        {*vertices_, "mdb.models['M'].vertices",
         "[mdb.models['M'].vertices[0], mdb.models['M'].vertices[1], mdb.models['M'].vertices[2]]",
         "<VertexArray object>", "('OrvexArray',)"},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.object.AsRepr(), row.repr);
        EXPECT_EQ(row.object.AsString(0), row.text);
        EXPECT_EQ(row.object.DefaultRepr(), row.standard);
        EXPECT_EQ(Texts(row.object.BaseTypes()), row.bases);
        EXPECT_TRUE(row.object.IsA("OrvexObject"));
        EXPECT_TRUE(row.object.IsA(row.object.ExposedTypeName().AsCharPtr()));
        EXPECT_TRUE(row.object.IsA(row.object.BaseType().AsCharPtr()));
        EXPECT_FALSE(row.object.IsA("Par"));
        EXPECT_TRUE(row.object.IsA(omu_Primitive::TypeId()));
        const std::unique_ptr<omu_InterfaceObj> copy(row.object.Copy());
        EXPECT_TRUE(*copy == row.object);
        EXPECT_EQ(copy->NonZero(), 1);
        EXPECT_EQ(copy->Compare(&row.object), 0);
        EXPECT_EQ(copy->ComparePath(row.repr), 0);
        EXPECT_LT(copy->ComparePath("n"), 0);
        EXPECT_EQ(copy->Compare(nullptr), 1);
    }
    EXPECT_TRUE(parts_->IsA("OrvexDictionary"));
    EXPECT_FALSE(*part_ == *odd);
    EXPECT_GT(part_->Compare(odd.get()), 0) << "' sorts behind \"";
    EXPECT_EQ(part_->FullRepr(), "<Part object named P1>\nname: 'P1'\nwidth: 2.0\ncopies: 1\ncomment: ''");
    EXPECT_EQ(omu_PrimType(*part_).Value(), "Part");
    EXPECT_TRUE(omu_PrimType("Part").SameType(*part_) && !omu_PrimType("Part").SameType(*parts_));
}

TEST_F(Sample, MembersAndMethodsGoByTheTables)
{
    EXPECT_EQ(Text(Member(*part_, "width")), "2.0");
    Set(*part_, "size", Args(2.5));
    EXPECT_EQ(Text(Member(*part_, "size")), "2.5") << "a deprecated name answers like the current one";
    EXPECT_EQ(Text(Call(*part_, "resize", Args(2.0))), "5.0");
    EXPECT_STREQ(part_->Description().ReplacedBy("size"), "width");
    EXPECT_EQ(part_->Description().ReplacedBy("width"), nullptr);
    EXPECT_EQ(Texts(part_->MemberList()), "('name', 'width', 'copies', 'comment')");
    EXPECT_EQ(Texts(part_->MemberListForQry()), "('name', 'width', 'copies')");
    EXPECT_EQ(Texts(part_->MethodList()), "('setValues', 'scale', 'area')");
    EXPECT_TRUE(part_->ShouldJournal("scale") && !part_->ShouldJournal("area") && !part_->ShouldJournal("x"));
    omu_Arguments arguments = Args(1.5, Keyword("times", 2));
    EXPECT_EQ(part_->CommandPath("", "scale", arguments), "mdb.models['M'].parts['P1'].scale(1.5, times=2)");
    part_->DeleteMember("comment");

    bool found = true;
    EXPECT_EQ(part_->CallMethod("nothing", nullptr, arguments, found), nullptr);
    EXPECT_FALSE(found);
    for (const char* unknown : {"nothing", "scale", "", static_cast<const char*>(nullptr)})
    {
        found = true;
        EXPECT_EQ(part_->GetMember(unknown, found), nullptr);
        EXPECT_FALSE(found);
        found = true;
        part_->SetMember(unknown, arguments, found);
        EXPECT_FALSE(found);
    }
    EXPECT_FALSE(part_->IsMethod("width", found) || found);
    EXPECT_TRUE(part_->IsMethod("resize", found) && found);
}

TEST_F(Sample, Refusals)
{
    EXPECT_ERROR(Set(*part_, "name", Args("x")), "AttributeError: name is read-only");
    EXPECT_ERROR(part_->DeleteMember("width"), "AttributeError: width is read-only");
    EXPECT_ERROR(part_->DeleteMember("x"), "AttributeError: 'Part' object has no attribute 'x'");
    EXPECT_ERROR(Call(*part_, "scale"), "TypeError: not all required arguments specified; expected 1, got 0");
    omu_Arguments none;
    const char* const withStop = "nex_PrimException: Error: Illegal operation for type.";
    const char* const withoutStop = "nex_PrimException: Error: Illegal operation for type"; // on purpose
    EXPECT_ERROR(part_->Coerce(none), "nex_PrimException: Error: Cannot coerce.");
    EXPECT_ERROR(part_->Absolute(), withStop);
    EXPECT_ERROR(part_->UnaryNegative(), withStop);
    EXPECT_ERROR(part_->AddOperation(nullptr), withoutStop);
    EXPECT_ERROR(part_->SubOperation(nullptr), withoutStop);
    EXPECT_ERROR(part_->MulOperation(nullptr), withoutStop);
    EXPECT_ERROR(part_->DivOperation(nullptr), withoutStop);
    EXPECT_EQ(part_->Cast(none), nullptr);
}

/// An object that nobody described, and one with each permission taken alone.
class Plain : public omu_InterfaceObj
{
public:
    explicit Plain(unsigned rules = omu_OperationRules::ALL)
        : omu_InterfaceObj(omu_OperationRules(rules), omu_PythonType::NUMBER)
    {}
    Plain* Copy() const override { return new Plain(*this); }
};
class Ruled : public Plain
{
public:
    explicit Ruled(unsigned rules) : Plain(rules)
    {
        static const methodTable METHODS[] = {
            {"run", [](const omu_InterfaceObj&, omu_Arguments&) { return Null(); }}, {}};
        static const memberTable MEMBERS[] = {{"name", [](const omu_InterfaceObj&) { return Null(); }, PLAIN,
                                               [](const omu_InterfaceObj&, omu_Arguments&) {}},
                                              {"bad", [](const omu_InterfaceObj&) { return Fail(); }},
                                              {}};
        static const TypeDesc description = DescribeType("Ruled", METHODS, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    static omu_Primitive* Null() { return nullptr; }
    static omu_Primitive* Fail() { nex_RaisePrim("no such luck", "test", 1); }
};

TEST(OperationRules, TakeWholeKindsOfOperationsAway)
{
    using Rules = omu_OperationRules;
    bool found = false;
    omu_Arguments none;
    EXPECT_EQ(Ruled(Rules::READABLE).GetMember("name", found), nullptr);
    EXPECT_TRUE(found) << "null is None";
    const char* const refused = "nex_PrimException: Error: Illegal operation for type.";
    EXPECT_ERROR(Ruled(Rules::CALLABLE).GetMember("name", found), refused);
    EXPECT_ERROR(Ruled(Rules::READABLE).CallMethod("run", nullptr, none, found), refused);
    EXPECT_FALSE(Ruled(Rules::READABLE).IsMethod("run", found));
    EXPECT_TRUE(found);
    Ruled(Rules::WRITABLE).SetMember("name", none, found);
    EXPECT_ERROR(Ruled(Rules::READABLE).SetMember("name", none, found),
                 "AttributeError: read-only attributes");
    EXPECT_ERROR(Ruled(Rules::READABLE).DeleteMember("name"), "AttributeError: read-only attributes");
}

TEST(InterfaceObj, TellsWhatCannotBeWritten)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(Ruled(omu_OperationRules::ALL).AsString(0), "({'name': None, 'bad': 'unknown'})");
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "interface object <Ruled object>, member bad, type=Ruled: GetMember(bad) failed: no such luck\n");
    const Plain plain;
    testing::internal::CaptureStderr();
    EXPECT_EQ(plain.AsRepr(), "<OrvexObject object>");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "WARNING omu_InterfaceObj::AsRepr - repr not implemented: OrvexObject\n");
    EXPECT_TRUE(plain.IsA("OrvexObject") && plain.ExposedTypeName().IsEmpty() && plain.BaseTypes().IsEmpty());
    EXPECT_TRUE(plain == plain);
    EXPECT_FALSE(plain == Plain()) << "without a path, itself alone";
    EXPECT_EQ(plain.PythonType(), omu_PythonType::NUMBER);
}

TEST_F(Sample, AStaleHandleCanBeTracedPrintedAndCompared)
{
    const std::unique_ptr<omu_InterfaceObj> copy(part_->Copy());
    parts_->Remove("P1");
    EXPECT_TRUE(part_->IsStale());
    const char* const gone = "AccessError: mdb.models['M'].parts['P1'] no longer exists";
    bool found = false;
    omu_Arguments none;
    EXPECT_ERROR(part_->GetMember("width", found), gone);
    EXPECT_ERROR(part_->GetMember("x", found), gone);
    EXPECT_ERROR(part_->SetMember("width", none, found), gone);
    EXPECT_ERROR(part_->DeleteMember("comment"), gone);
    EXPECT_ERROR(part_->CallMethod("area", "p", none, found), "AccessError: p no longer exists");
    EXPECT_EQ(part_->AsRepr(), "mdb.models['M'].parts['P1']");
    EXPECT_EQ(part_->AsString(0), "<Part object>");
    EXPECT_EQ(part_->FullRepr(), "<Part object>");
    EXPECT_TRUE(*copy == *part_);
    vertices_->SetStale(true);
    EXPECT_EQ(vertices_->AsString(0), "<VertexArray object>");
}

// Clamped below, refused above: on purpose.
TEST_F(Sample, ConvertIndexOfASequenceOfThree)
{
    constexpr int LEAST = std::numeric_limits<int>::min();
    constexpr int MOST = std::numeric_limits<int>::max();
    for (const auto& [index, position] : {std::pair(LEAST, 0), {-5, 0}, {-3, 0}, {-2, 1}, {0, 0}, {2, 2}})
    {
        EXPECT_EQ(vertices_->ConvertIndex(index), position) << index;
        EXPECT_EQ(vertices_->ConvertSubscrIndex(index), position) << index;
    }
    EXPECT_EQ(vertices_->ConvertIndex(3), 3);
    EXPECT_ERROR(vertices_->ConvertSubscrIndex(3), "IndexError: 3");
    EXPECT_ERROR(vertices_->ConvertIndex(4), "IndexError: 4");
    EXPECT_ERROR(vertices_->ConvertSubscrIndex(MOST), "IndexError: 2147483647");
}

/// Numbers and what else a sequence may hold, in no application.
class Numbers : public omu_SeqIntObj
{
public:
    explicit Numbers(const omu_PrimTuple& values) : values_(values) {}
    Numbers* Copy() const override { return new Numbers(*this); }
    int Length() const override { return values_.Length(); }
    omu_Primitive* Index(int position) const override
    {
        if (values_[position] != nullptr && values_[position]->IsType('x'))
            nex_RaisePrim("no such luck", "test", 1);
        return values_.Index(position);
    }

private:
    omu_PrimTuple values_;
};

TEST_F(Sample, Sequences)
{
    omu_PrimTuple values = Args(1, "a", 1.0, "a", true, 2);
    values.Put(static_cast<omu_Primitive*>(nullptr));
    const Numbers numbers(values);
    EXPECT_EQ(Text(numbers.RemoveDuplicates()), "[1, 'a', True, 2, None]");
    EXPECT_EQ(Text(Call(numbers, "isUnique", Args(-2))), "True");
    EXPECT_EQ(Text(Call(numbers, "isUnique", Args(0))), "False") << "1 equals 1.0";
    EXPECT_EQ(Text(numbers.Slice(1, 3)), "['a', 1.0]");
    EXPECT_EQ(Text(Numbers(Args(1, 2)).Repeat(2)), "[1, 2, 1, 2]");
    EXPECT_EQ(Text(Numbers(Args(1)).Concat(&numbers)), "[1, 1, 'a', 1.0, 'a', True, 2, None]");
    EXPECT_EQ(Text(Call(Numbers(Args("x")), "_summary")), "\"Index  Value\\n0      'x'\\n\"");
    EXPECT_ERROR(numbers.Remove(0), "nex_PrimException: Error: Illegal operation for type.");
    values.Put(omi_complex(1, 2));
    testing::internal::CaptureStderr();
    EXPECT_EQ(Numbers(values).AsString(0), "[1, 'a', 1.0, 'a', True, 2, None, 'unknown']");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "sequence object <OrvexArray object>, index 7, type=OrvexArray: no such luck\n");

    const auto last = As<omu_InterfaceObj>(vertices_->Index(2));
    vertices_->RemoveSlice(1, 2);
    EXPECT_TRUE(last->IsStale());
}

class Ids : public omu_IdSeqIntObj
{
public:
    Ids(const cow_List<int>& instances, const cow_List<cow_List<int>>& entries)
    {
        SetEntries(instances, omu_ListArrayInt(entries));
    }
};

TEST(IdSeqIntObj, EntriesByInstance)
{
    const Ids ids({10, 20, 30}, {{5, 6}, {}, {7, 8, 9}});
    EXPECT_EQ(ids.Length(), 5);
    EXPECT_EQ(ids.AsString(0), "{10: [5, 6], 20: [], 30: [7, 8, 9]}");
    omu_ListArrayInt some;
    ids.Subscripts(some, 1, 4);
    EXPECT_EQ(some, (cow_List<cow_List<int>>{{6}, {}, {7, 8}}));
    ids.Subscripts(some, -9, 99);
    omu_ListArrayInt all;
    ids.Subscripts(all);
    EXPECT_EQ(some, all);
    for (const auto& [index, instance, place] : {std::array{1, 0, 1}, {2, 2, 0}, {-1, 2, 2}, {-99, 0, 0}})
    {
        int i = -1;
        int p = -1;
        ids.ConvertSubscrIndex(index, i, p, ids.Length());
        EXPECT_EQ(std::pair(i, p), std::pair(instance, place)) << index;
    }
    int i = 0;
    EXPECT_ERROR(ids.ConvertSubscrIndex(5, i, i, 5), "IndexError: 5");
    EXPECT_ERROR(ids.ConvertSubscrIndex(5, i, i, 9), "IndexError: 5"); // beyond what is there
    EXPECT_EQ(ids.ConvertIndex(5, true, 5), 5);
    EXPECT_ERROR(ids.ConvertIndex(5, false, 5), "IndexError: 5");
    int id = -7;
    EXPECT_FALSE(ids.GetSingleInstanceId(id));
    EXPECT_EQ(id, -7);
    EXPECT_TRUE(Ids({1, 2}, {{}, {4}}).GetSingleInstanceId(id));
    EXPECT_EQ(id, 2);
    EXPECT_FALSE(Ids({1}, {{4}}).IsUnique(0)) << "on purpose";
    for (omu_Primitive* nothing : {ids.Index(0), ids.Slice(0, 1), ids.Repeat(2), ids.Concat(&ids),
                                   ids.Remove(0), ids.RemoveSlice(0, 1), ids.RemoveDuplicates()})
        EXPECT_EQ(nothing, nullptr);
}

TEST_F(Sample, Dictionaries)
{
    EXPECT_EQ(Text(Call(*parts_, "has_key", Args("P1"))), "True");
    EXPECT_EQ(Text(Call(*parts_, "keys")), "['P1', \"it's\"]");
    EXPECT_EQ(Text(Call(*parts_, "values")),
              "[mdb.models['M'].parts['P1'], mdb.models['M'].parts[\"it's\"]]");
    EXPECT_EQ(Text(Call(*models_, "items")), "[('M', mdb.models['M'])]");
    EXPECT_EQ(Text(Call(*parts_, "_summary")), "\"Name  Type\\nP1    Part\\nit's  Part\\n\"");
    EXPECT_EQ(Text(Call(*parts_, "_summaryRow", Args("P1"))), "('P1', 'Part')");
    EXPECT_ERROR(Call(*models_, "_summary"), "nex_PrimException: Summary NOT IMPLEMENTED");
    EXPECT_ERROR(Call(*models_, "changeKey", Args("M", "N")), "nex_PrimException: ChangeKey NOT IMPLEMENTED");
    omu_Arguments names = Args(Keyword("toName", "P2"), Keyword("fromName", "P1"));
    EXPECT_EQ(Text(Call(*parts_, "changeKey", names)), "None");
    EXPECT_ERROR(Call(*parts_, "changeKey", Args("it's", "P2")), "ValueError: toName P2  already exists");
    EXPECT_ERROR(Call(*parts_, "changeKey", Args("P1", "P3")), "KeyError: P1");
    EXPECT_FALSE(parts_->HasItem(omu_PrimNumber(1)) || parts_->HasItem(omu_PrimString("P1")));
    EXPECT_ERROR(parts_->Item(omu_PrimString("P1")), "KeyError: P1");
    EXPECT_ERROR(parts_->Item(omu_PrimNumber(1)), "KeyError: 1");
    EXPECT_ERROR(parts_->RemoveItem(omu_PrimString("P1")), "KeyError: P1");
    EXPECT_ERROR(parts_->AssignItem(omu_PrimString("P1"), names),
                 "nex_PrimException: Error: Illegal operation for type.");
    EXPECT_ERROR(parts_->AssignItem(omu_PrimNumber(1), names),
                 "TypeError: illegal argument type for built-in operation");
    parts_->RemoveItem(omu_PrimString("P2"));
}

/// A dictionary whose parts can be made to disagree.
template <class K>
class Entries : public omu_DictIntObjABC<K>
{
public:
    explicit Entries(const cow_List<K>& keys) : keys_(keys) {}
    Entries* Copy() const override { return new Entries(*this); }
    int Length() const override { return keys_.Length(); }
    cow_List<K> Keys() const override { return keys_; }
    omu_Primitive* Subscript(const K& key) const override
    {
        if (keys_.Find(key) == 1)
            nex_RaisePrim("no such luck", "test", 1);
        return keys_.Find(key) == 0 ? new omu_PrimNumber(0) : nullptr;
    }
    omu_PrimList* Values() const override
    {
        auto list = std::make_unique<omu_PrimList>();
        list->Put(1);
        return list.release();
    }

private:
    cow_List<K> keys_;
};

TEST(DictIntObj, TellsWhatCannotBeWritten)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(Entries<int>({7, 8, 9}).AsString(0), "{7: 0, 8: 'unknown', 9: 'unknown'}");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "dictionary object <OrvexDictionary object>: 1 Length != keyList->Length:3\n"
              "dictionary object <OrvexDictionary object>, key 8: Subscript(8) failed: no such luck\n"
              "dictionary object <OrvexDictionary object>, key 9: val == 0, type=OrvexDictionary\n");
    const Entries<omu_PrimEnumBase> constants({omu_PrimEnumBase("SOLID")});
    EXPECT_EQ(constants.AsString(0), "{SOLID: 1}");
    EXPECT_FALSE(constants.HasItem(omu_PrimString("SOLID")));
    EXPECT_FALSE(Entries<int>({7}).HasItem(omu_PrimNumber(7.0)));
    EXPECT_ERROR(constants.Item(omu_PrimEnumBase("DASHED")), "KeyError: DASHED");
}

/// What an object tells while it is live, made stale, and stale; its address first.
void Tell(omu_InterfaceObj& object)
{
    std::fprintf(stderr, "|0x%x|", static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(&object)));
    object.omu_InterfaceObj::IsStale();
    object.SetStale(true);
    object.omu_InterfaceObj::IsStale();
    object.ComparePath("x");
    std::_Exit(0);
}

// The lines behind the address, with "@" in its place.
std::string Told(const std::string& all)
{
    const std::size_t from = all.find('|') + 1;
    const std::size_t to = all.find('|', from);
    const std::string address = all.substr(from, to - from);
    std::string told = all.substr(to + 1);
    for (std::size_t at = told.find(address); at != told.npos; at = told.find(address))
        told.replace(at, address.size(), "@");
    return told;
}

using StaleTraceDeathTest = Sample;

TEST_F(StaleTraceDeathTest, OneLineForAnyValueAndTwoAddsTheMarkOrThePath)
{
    const auto expectTrace = [](omu_InterfaceObj& object, const char* value, const char* wanted) {
        const orvex_testing::ChildSwitch childSwitch("ORX_STALEHANDLE_INFO", value);
        EXPECT_EXIT(Tell(object), testing::ExitedWithCode(0), testing::ResultOf(Told, testing::Eq(wanted)));
    };
    for (const char* value : {"", "22"})
        expectTrace(*part_, value,
                    "omu_InterfaceObj::IsStale  stale:0   this:@ "
                    "omu_InterfaceObj::SetStale(value=1)  this:@ "
                    "omu_InterfaceObj::IsStale  stale:1   this:@ "
                    "omu_InterfaceObj::ComparePath mdb.models['M'].parts['P1']  x -> -1\n");
    expectTrace(*part_, "2",
                "omu_InterfaceObj::IsStale  stale:0   this:@   mdb.models['M'].parts['P1']"
                "omu_InterfaceObj::SetStale(value=1)  this:@   <stale handle>"
                "omu_InterfaceObj::IsStale  stale:1   this:@   <stale handle>"
                "omu_InterfaceObj::ComparePath mdb.models['M'].parts['P1']  x -> -1\n");
    // Without a path: the text asks again whether the object is stale.
    Plain plain;
    expectTrace(plain, "2",
                "omu_InterfaceObj::IsStale  stale:0   this:@ "
                "WARNING omu_InterfaceObj::AsRepr - repr not implemented: OrvexObject\n"
                "  <OrvexObject object>"
                "omu_InterfaceObj::SetStale(value=1)  this:@   <stale handle>"
                "omu_InterfaceObj::IsStale  stale:1   this:@   <stale handle>"
                "WARNING omu_InterfaceObj::AsRepr - repr not implemented: OrvexObject\n"
                "omu_InterfaceObj::IsStale  stale:1   this:@   <stale handle>"
                "omu_InterfaceObj::ComparePath <OrvexObject object>  x -> -1\n");
}
}
