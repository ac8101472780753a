// Interface objects: texts, tables, what cannot be written, sequences, dictionaries, traces. What scripts see
// of them (refusals, indices, staleness) is held from Python, with the same sample application.

#include <cstdint>
#include <cstdio>
#include <omu_IdSeqIntObj.h>
#include <regex>
#include <testing/ChildTrace.h>
#include <testing/MemoryStore.h>
#include <testing/SampleRepository.h>
#include <testing/ValueTesting.h>

namespace
{
omu_Primitive* Call(const omu_InterfaceObj& object, const char* name, omu_Arguments arguments = {})
{
    bool found = false;
    return object.CallMethod(name, nullptr, arguments, found);
}

template <class T>
std::unique_ptr<T> Member(const omu_InterfaceObj& object, const char* name)
{
    bool found = false;
    return std::unique_ptr<T>(&dynamic_cast<T&>(*object.GetMember(name, found)));
}

class Sample : public testing::Test
{
protected:
    std::unique_ptr<omu_InterfaceObj> Part(const char* name) const
    {
        return std::unique_ptr<omu_InterfaceObj>(&dynamic_cast<omu_InterfaceObj&>(*parts_->Subscript(name)));
    }

    const std::shared_ptr<sample::Database> database_ = sample::NewDatabase();
    const sample::ModelIntObj model_{omu_SimpleTermShortcutImpl("m"), database_->front()};
    const std::unique_ptr<sample::PartsIntObj> parts_ = Member<sample::PartsIntObj>(model_, "parts");
    const std::unique_ptr<omu_InterfaceObj> part_ = Part("P1");
};

TEST_F(Sample, TextsOfEveryKind)
{
    const auto odd = Part("it's");
    const auto vertices = Member<omu_SeqIntObj>(model_, "vertices");
    const struct
    {
        const omu_InterfaceObj& object;
        const char* repr;
        const char* text;
        const char* standard;
        const char* base;
    } rows[] = {
        {*odd, "m.parts[\"it's\"]", "({'name': \"it's\", 'width': 1.0, 'copies': 3, 'comment': 'odd'})",
         "<Part object named it's>", "OrvexObject"},
        {*parts_, "m.parts", "{'P1': m.parts['P1'], \"it's\": m.parts[\"it's\"]}", "<PartRepository object>",
         "OrvexDictionary"},
        {*vertices, "m.vertices", "[m.vertices[0], m.vertices[1], m.vertices[2]]", "<VertexArray object>",
         "OrvexArray"},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.object.AsRepr(), row.repr);
        EXPECT_EQ(row.object.AsString(0), row.text);
        EXPECT_EQ(row.object.DefaultRepr(), row.standard);
        EXPECT_TRUE(row.object.IsA("OrvexObject") && row.object.IsA(row.base) && !row.object.IsA("Par"));
        EXPECT_TRUE(*std::unique_ptr<omu_InterfaceObj>(row.object.Copy()) == row.object);
    }
    EXPECT_EQ(part_->FullRepr(), "<Part object named P1>\nname: 'P1'\nwidth: 2.0\ncopies: 1\ncomment: ''");
}

TEST_F(Sample, MembersAndMethodsGoByTheTables)
{
    EXPECT_EQ(Text(Call(*part_, "resize", Args(2.0))), "4.0") << "a deprecated name";
    EXPECT_STREQ(part_->Description().ReplacedBy("size"), "width");
    EXPECT_EQ(Text(omu_PrimTuple(part_->MemberListForQry())), "('name', 'width', 'copies')");
    EXPECT_EQ(Text(omu_PrimTuple(part_->MethodList())), "('setValues', 'scale', 'area')");
    EXPECT_TRUE(part_->ShouldJournal("scale") && !part_->ShouldJournal("area") && !part_->ShouldJournal("x"));
    omu_Arguments arguments = Args(1.5, Keyword("times", 2));
    EXPECT_EQ(part_->CommandPath("", "scale", arguments), "m.parts['P1'].scale(1.5, times=2)");
    bool found = true;
    EXPECT_TRUE(part_->GetMember("scale", found) == nullptr && !found) << "a method is no member";
}

TEST_F(Sample, Dictionaries)
{
    EXPECT_EQ(Text(Call(*parts_, "_summaryRow", Args("P1"))), "('P1', 'Part')");
    EXPECT_ERROR(Call(*parts_, "_summary"), "nex_PrimException: Summary NOT IMPLEMENTED");
    EXPECT_ERROR(Call(*parts_, "changeKey", Args("it's", "P1")), "ValueError: toName P1  already exists");
}

[[noreturn]] omu_Primitive* Fail()
{
    nex_RaisePrim("no such luck", "test", 1);
}

// Objects that fail, in no application.

class FailingObject : public omu_InterfaceObj
{
public:
    explicit FailingObject(unsigned rules = omu_OperationRules::ALL)
        : omu_InterfaceObj(omu_OperationRules(rules), omu_PythonType::NUMBER)
    {
        static const memberTable MEMBERS[] = {{"bad", [](const omu_InterfaceObj&) { return Fail(); }}, {}};
        static const TypeDesc description = DescribeType("Failing", nullptr, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    FailingObject* Copy() const override { return new FailingObject(*this); }
};

class FailingSequence : public omu_SeqIntObj
{
public:
    explicit FailingSequence(const omu_PrimTuple& values) : values_(values) {}
    FailingSequence* Copy() const override { return new FailingSequence(*this); }
    int Length() const override { return values_.Length(); }
    omu_Primitive* Index(int position) const override
    {
        return values_[position] != nullptr && values_[position]->IsType('x') ? Fail()
                                                                              : values_.Index(position);
    }

private:
    omu_PrimTuple values_;
};

class FailingDictionary : public omu_DictIntObjABC<int>
{
public:
    FailingDictionary* Copy() const override { return new FailingDictionary(*this); }
    int Length() const override { return 3; }
    cow_List<int> Keys() const override { return {7, 8, 9}; }
    omu_Primitive* Subscript(const int& key) const override
    {
        return key == 8 ? Fail() : key == 7 ? new omu_PrimNumber(0) : nullptr;
    }
    omu_PrimList* Values() const override { return new omu_PrimList(cow_List<int>{1}); }
};

TEST(InterfaceObj, TellsWhatCannotBeWritten)
{
    const FailingObject object;
    EXPECT_EQ(
        ToldBy([&] { EXPECT_EQ(object.AsString(0), "({'bad': 'unknown'})"); }),
        "interface object <Failing object>, member bad, type=Failing: GetMember(bad) failed: no such luck\n");
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(object.AsRepr(), "<Failing object>"); }),
              "WARNING omu_InterfaceObj::AsRepr - repr not implemented: Failing\n");
    bool found = false;
    EXPECT_ERROR(FailingObject(omu_OperationRules::WRITABLE).GetMember("bad", found),
                 "nex_PrimException: Error: Illegal operation for type.");
    const FailingSequence sequence(Args(1, omi_complex(1, 2)));
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(sequence.AsString(0), "[1, 'unknown']"); }),
              "sequence object <OrvexArray object>, index 1, type=OrvexArray: no such luck\n");
    const FailingDictionary dictionary;
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(dictionary.AsString(0), "{7: 0, 8: 'unknown', 9: 'unknown'}"); }),
              "dictionary object <OrvexDictionary object>: 1 Length != keyList->Length:3\n"
              "dictionary object <OrvexDictionary object>, key 8: Subscript(8) failed: no such luck\n"
              "dictionary object <OrvexDictionary object>, key 9: val == 0, type=OrvexDictionary\n");
}

TEST(SeqIntObj, Operations)
{
    omu_PrimTuple values = Args(1, "a", 1.0, "a", true, 2);
    values.Put(static_cast<omu_Primitive*>(nullptr));
    const FailingSequence sequence(values);
    EXPECT_EQ(Text(sequence.RemoveDuplicates()), "[1, 'a', True, 2, None]") << "1 equals 1.0";
    EXPECT_EQ(Text(Call(sequence, "isUnique", Args(-2))), "True");
    EXPECT_EQ(Text(Call(FailingSequence(Args("x")), "_summary")), "\"Index  Value\\n0      'x'\\n\"");
}

// Nothing could create it again: what holds one is refused, by name, and not written unreadable.
TEST(InterfaceObj, IsNotStoredWhereverItLies)
{
    const char* const refused = "nex_PrimException: Failing cannot be stored";
    const FailingObject object;
    EXPECT_ERROR(MemoryStore().Write(TupleOf("x", TupleOf(object))), refused);
    EXPECT_ERROR(MemoryStore().Write(DictionaryOf(cow_List<cow_String>{"part"}, TupleOf(object))), refused);
}

TEST(PrimTuple, ReadInterfaceObjectsAreLookedAt)
{
    auto* const handle = new FailingObject;
    omu_Arguments arguments = Args("a");
    arguments.Put(handle);
    const omu_InterfaceObj* found = nullptr;
    EXPECT_FALSE(arguments.Get(found, "object"));
    EXPECT_TRUE(arguments.Alternative());
    std::unique_ptr<omu_Primitive> any;
    EXPECT_TRUE(arguments.Get(any) && arguments.Get(found, "object") && found == handle);
}

TEST(IdSeqIntObj, EntriesByInstance)
{
    struct : omu_IdSeqIntObj
    {
        using omu_IdSeqIntObj::SetEntries;
    } ids;
    ids.SetEntries({10, 20, 30}, omu_ListArrayInt(cow_List<cow_List<int>>{{5, 6}, {}, {7, 8, 9}}));
    EXPECT_EQ(ids.AsString(0), "{10: [5, 6], 20: [], 30: [7, 8, 9]}");
    omu_ListArrayInt some;
    ids.Subscripts(some, 1, 4);
    EXPECT_EQ(some, (cow_List<cow_List<int>>{{6}, {}, {7, 8}}));
}

/// What an object tells while it is live, made stale, and compared; its address first.
void Tell(omu_InterfaceObj& object)
{
    std::fprintf(stderr, "|0x%x|", static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(&object)));
    object.omu_InterfaceObj::IsStale();
    object.SetStale(true);
    object.ComparePath("x");
}

// What stands behind the address, with "@" in its place.
std::string Told(const std::string& all)
{
    const std::size_t from = all.find('|') + 1;
    const std::size_t to = all.find('|', from);
    return std::regex_replace(all.substr(to + 1), std::regex(all.substr(from, to - from)), "@");
}

using StaleTraceDeathTest = Sample;

TEST_F(StaleTraceDeathTest, TwoAddsTheMarkOrThePath)
{
    const char* const told = "omu_InterfaceObj::IsStale  stale:0   this:@   m.parts['P1']"
                             "omu_InterfaceObj::SetStale(value=1)  this:@   <stale handle>"
                             "omu_InterfaceObj::ComparePath m.parts['P1']  x -> -1\n";
    EXPECT_CHILD_TRACE("ORX_STALEHANDLE_INFO", "2", Tell(*part_),
                       testing::ResultOf(Told, testing::StrEq(told)));
}
}
