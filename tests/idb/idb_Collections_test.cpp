// The collection readers and writers: which codes they take, how they lie in the stream, and what they say on
// standard error.

#include <cls_MetadataRegistrar.h>
#include <cls_TypeAdapter.h>
#include <cls_TypeId.h>
#include <cow_COW.h>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <nex_RangeException.h>
#include <testing/ExpectRaise.h>
#include <testing/LibraryGuard.h>
#include <testing/MementoMaker.h>

#include <new>
#include <tuple>

namespace
{
using Code = cls_CollectionType;

// A memento that holds nothing: something whose factories can be asked.
Bytes Empty()
{
    return MementoMaker().Make();
}

// Which of all codes a factory takes, and what it said about the first that it did not take.
template <class F>
std::string Asked(F make)
{
    const Bytes empty = Empty();
    idb_MementoRead memento(empty);
    const Bytes none = Payload(0, 1);
    std::string codes;
    std::string told;
    EXPECT_EQ(make(memento), nullptr) << "no attribute";
    for (unsigned code = 0; code <= 130; ++code)
    {
        memento.BeginCollection(static_cast<Code>(code), bio_Ifilter(none));
        testing::internal::CaptureStderr();
        const bool made = make(memento) != nullptr;
        const std::string error = testing::internal::GetCapturedStderr();
        EXPECT_EQ(error.empty(), made) << code;
        codes += made ? std::to_string(code) + " " : "";
        if (code == 86)
            told = error;
    }
    return codes + told;
}

TEST(Factories, TakeTheirCodesAndNameTheOthers)
{
    using M = idb_MementoRead;
    const auto list = [](auto type) { return Asked([=](M& m) { return m.MakeReadListPrim(type); }); };
    const auto byInt = [](auto type) { return Asked([=](M& m) { return m.MakeReadMapInt2Prim(type); }); };
    const auto byText = [](auto type) { return Asked([=](M& m) { return m.MakeReadMapString2Prim(type); }); };
    const cow_String text;
    EXPECT_EQ(list(true), "51 81 error getting ReadListPrim for bool collection type: 86\n");
    EXPECT_EQ(list(1.0), "52 82 error getting ReadListPrim for double collection type: 86\n");
    EXPECT_EQ(list(1.0F), "53 83 error getting ReadListPrim for float collection type: 86\n");
    EXPECT_EQ(list(1), "54 84 error getting ReadListPrim for int collection type: 86\n");
    EXPECT_EQ(list(text), "55 85 error getting ReadListPrim for string collection type: 86\n");
    EXPECT_EQ(list(1u), "57 87 error getting ReadListPrim for unsigned int collection type: 86\n");
    EXPECT_EQ(byText(1.0), "62 error getting ReadListMap string to double collection type: 86\n");
    EXPECT_EQ(byText(1.0F), "63 error getting ReadListMap string to float collection type: 86\n");
    EXPECT_EQ(byText(1), "64 error getting ReadListMap string to int collection type: 86\n");
    EXPECT_EQ(byText(text), "65 error getting ReadListMap string to string collection type: 86\n");
    EXPECT_EQ(byText(1u), "66 error getting ReadListMap string to uint collection type: 86\n");
    EXPECT_EQ(byInt(1.0), "72 error getting ReadListMap int to double collection type: 86\n");
    EXPECT_EQ(byInt(1.0F), "73 error getting ReadListMap int to float collection type: 86\n");
    EXPECT_EQ(byInt(1), "74 error getting ReadListMap int to int collection type: 86\n");
    EXPECT_EQ(byInt(text), "75 error getting ReadListMap int to string collection type: 86\n");
    EXPECT_EQ(byInt(1u), "76 error getting ReadListMap int to uint collection type: 86\n");
    EXPECT_EQ(Asked([](M& m) { return m.MakeReadListObj(); }),
              "1 error getting ReadListPrim for object collection type: 86\n");
    EXPECT_EQ(Asked([](M& m) { return m.MakeReadMapString2Obj(); }),
              "2 93 112 error getting ReadMap string to obj collection type: 86\n");
    EXPECT_EQ(Asked([](M& m) { return m.MakeReadMapInt2Obj(); }),
              "3 error getting ReadMap int to obj collection type: 86\n");
    const Bytes empty = Empty();
    M memento(empty);
    memento.BeginCollection(Code::MAP_INT_OBJ, bio_Ifilter());
    EXPECT_EQ(memento.MakeAltReadMapInt2Obj(), nullptr);
    EXPECT_EQ(memento.MakeAltReadMapInt2Prim(1.0), nullptr);
    EXPECT_EQ(idb_MementoWrite().MakeAltWriteMapInt2Prim(1.0), nullptr);
}

TEST(Factories, ServeTheSameBytesAgain)
{
    const Bytes empty = Empty();
    idb_MementoRead memento(empty);
    const Bytes two = Payload(2, 1, 7, 8);
    memento.BeginCollection(Code::LIST_INT, bio_Ifilter(two));
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(memento.MakeReadListPrim(1)->Elements(), (cow_List<int>{7, 8}));
    memento.EndCollection();
}

TEST(Maps, RefuseAKeyThatStandsTwice)
{
    const Bytes empty = Empty();
    idb_MementoRead memento(empty);
    const Bytes twice = Payload(3, 5, 1, -4, 2, 5, 3);
    memento.BeginCollection(Code::MAP_INT_INT, bio_Ifilter(twice));
    EXPECT_RAISE(memento.MakeReadMapInt2Prim(1), idb_MementoException,
                 "idb_MementoRead: key 5 stands twice in the map at byte 0");
    bio_Ofilter out;
    idb_WriteMapString2Prim<int> writer(out);
    for (const char* key : {"b", "a", "b"})
        writer.Write(key, 1);
    EXPECT_RAISE(writer.Finish(), idb_MementoException, "idb_MementoWrite: key b is given twice");
}

template <class T>
void ExpectList(const cow_List<T>& values, int columns, const Bytes& wanted)
{
    bio_Ofilter out;
    {
        idb_WriteListPrim<T> writer(out, columns);
        EXPECT_TRUE(writer.NeedsDeletion());
        writer.Write(values.Data(), 0);
        writer.Write(values.Data(), values.Length() - 1);
        if (!values.IsEmpty())
            writer.Write(values.Get(values.Length() - 1));
        EXPECT_EQ(out.Position(), 0u) << "nothing before it ends";
    }
    EXPECT_EQ(out.Bytes(), wanted);
    bio_Ifilter in(out.Bytes());
    const idb_ReadListPrim<T> reader(in);
    EXPECT_TRUE(reader.Elements() == values && reader.Size() == values.Length());
    EXPECT_EQ(reader.Columns(), columns);
    EXPECT_EQ(in.Left(), 0u);
}

TEST(ListOfPrimitives, IsCountColumnsElements)
{
    ExpectList<int>({7, -1, 9}, 3, Payload(3, 3, 7, -1, 9));
    ExpectList<unsigned>({4000000000u}, 1, Payload(1, 1, 4000000000u));
    ExpectList<bool>({true, false}, 1, Payload(2, 1, true, false));
    ExpectList<float>({0.5F}, 1, Payload(1, 1, 0.5F));
    ExpectList<double>({0.5, -0.0}, 2, Payload(2, 2, 0.5, -0.0));
    ExpectList<cow_String>({"a", cow_String("\0", 1)}, 1,
                           Payload(2, 1, cow_String("a"), cow_String("\0", 1)));
    ExpectList<double>({}, 5, Payload(0, 5));
    for (const int count : {-1, -2147483647})
    {
        const Bytes negative = Payload(count, 2, 9.0);
        bio_Ifilter in(negative);
        const idb_ReadListPrim<double> reader(in);
        EXPECT_TRUE(reader.Size() == 0 && reader.Columns() == 2 && in.Left() == 8);
    }
}

/// Memory runs out just when the record is emitted.
struct Failing
{
    void Append(int) {}
    int Length() const { throw std::bad_alloc(); }
    const int* Data() const { return nullptr; }
};

TEST(ListOfPrimitives, FailureInADestructorMarksTheStream)
{
    bio_Ofilter out;
    {
        idb_WriteListPrim<int, Failing> writer(out, 1);
        writer.Write(5);
        EXPECT_THROW(writer.Finish(), std::bad_alloc);
        writer.Finish();
        EXPECT_FALSE(out.Failed()) << "told already";
    }
    {
        const idb_WriteListPrim<int, Failing> writer(out, 1);
    }
    EXPECT_TRUE(out.Failed());
}

TEST(ListOfPrimitives, CursorNeverReadsOutside)
{
    const Bytes bytes = Payload(4, 1, 10, 20, 30, 40);
    bio_Ifilter in(bytes);
    idb_ReadListPrim<int> reader(in);
    int buffer[4] = {1, 2, 3, 4};
    EXPECT_RAISE(reader.Read(), nex_RangeException, "index -1 out of range, length 4");
    EXPECT_FALSE(reader.Next(-3));
    EXPECT_RAISE(reader.Read(), nex_RangeException, "index -3 out of range, length 4");
    EXPECT_RAISE(reader.Read(buffer, 1), nex_RangeException, "index -3 out of range, length 4");
    EXPECT_FALSE(reader.Next(4));
    EXPECT_RAISE(reader.Read(), nex_RangeException, "index 4 out of range, length 4");
    EXPECT_TRUE(reader.Next(1));
    EXPECT_RAISE(reader.Read(buffer, 4), nex_RangeException, "index 4 out of range, length 4");
    EXPECT_RAISE(reader.Read(buffer, 2147483647), nex_RangeException,
                 "index 2147483647 out of range, length 4");
    reader.Read(buffer, -1);
    EXPECT_TRUE(buffer[0] == 1 && reader.Read() == 20);
    reader.Read(buffer, 2);
    EXPECT_TRUE(buffer[0] == 20 && buffer[1] == 30 && buffer[2] == 3 && reader.Read() == 40);
}

constexpr unsigned Id(unsigned index)
{
    return cls_MakeTypeId(0x7E50, index);
}

/// A shared body; Hooked below has the destructor hook in its metadata.
template <unsigned Index>
class Item : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return Id(Index); }
    explicit Item(int n) : number(n) {}
    explicit Item(const cls_ReadVisitor& reader) { reader.ReadInt({0, "n"}, number); }
    Item* Copy() const { return new Item(*this); }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (writer.AnnounceValue(TypeId()))
            writer.WriteInt({0, "n"}, number);
    }
    friend bool operator==(const Item& a, const Item& b) { return a.number == b.number; }

    int number = 0;
};
using Plain = Item<1>;
using Hooked = Item<2>;

template <class T>
using Handle = cow_COW<T>;
template <class V>
using ByText = cow_Map<cow_String, V>;
template <class V>
using ByInt = cow_Map<int, V>;

template <class C>
concept IsMap = requires(const C& collection)
{
    collection.KeyAt(0);
};

template <class C>
concept HoldsObjects = requires(const C& collection)
{
    collection.Get({}).IsNull();
};

template <class C>
bool Read(const cls_ReadVisitor& r, const cls_FieldHandle& field, C& to)
{
    if constexpr (IsMap<C> && HoldsObjects<C>)
        return r.ReadSharedMap(field, to);
    else if constexpr (IsMap<C>)
        return r.ReadMap(field, to);
    else if constexpr (HoldsObjects<C>)
        return r.ReadSharedList(field, to);
    else
        return r.ReadList(field, to);
}
template <class C>
void Write(const cls_WriteVisitor& w, const cls_FieldHandle& field, const C& from)
{
    if constexpr (IsMap<C> && HoldsObjects<C>)
        w.WriteSharedMap(field, from);
    else if constexpr (IsMap<C>)
        w.WriteMap(field, from);
    else if constexpr (HoldsObjects<C>)
        w.WriteSharedList(field, from);
    else
        w.WriteList(field, from);
}

/// A collection of every kind under a name that is its declared code. `Codes` is 0 for the first series of
/// codes, 1 for the second, 2 for codes that are not those of the collections.
template <int Codes>
struct All
{
    static constexpr unsigned TypeId() { return Id(10 + Codes); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar)
    {
        All all;
        int index = 0;
        cls_ClassMetadata& meta = registrar.Create(cow_String(std::to_string(TypeId())), TypeId(), 1,
                                                   cls_TypeAdapter<All>::Instance(), cls_UniversalRoot);
        all.Each([&](const char* name, const auto&) {
            int code = std::stoi(name);
            if (Codes == 1)
                code += code / 10 == 5 ? 30 : code == 2 ? 110 : 0;
            meta.AddAttribute({index++, name}, cls_AttributeType::OBJECT, cls_ListTypeId,
                              static_cast<Code>(Codes == 2 ? 86 : code));
        });
    }
    All() = default;
    explicit All(const cls_ReadVisitor& reader)
    {
        int index = 0;
        Each([&](const char* name, auto& to) { present += Read(reader, {index++, name}, to) ? 1 : 0; });
    }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        int index = 0;
        if (writer.AnnounceValue(TypeId()))
            const_cast<All*>(this)->Each([&](const char* name, const auto& from) {
                Write(writer, {index++, name}, from);
            });
    }
    void Fill()
    {
        lists = {{true, false}, {1, -2}, {3000000000u}, {0.5F}, {1e300, -0.0}, {"", "b"}};
        byText = {{{"b", 1}, {"a", 2}}, {{"", 3u}}, {{"x", 0.5F}}, {{"y", -0.0}}, {{"z", "t"}}};
        byInt = {{{9, 1}, {-1, 2}}, {{0, 3u}}, {{1, 0.5F}}, {{2, -0.0}}, {{3, ""}}};
        const Handle<Plain> one(new Plain(1));
        const Handle<Hooked> two(new Hooked(2));
        std::get<0>(objects) = {one, Handle<Plain>(), one};
        std::get<1>(objects) = {{"p", one}, {"q", Handle<Plain>()}};
        std::get<2>(objects) = {{5, two}, {4, two}};
    }
    template <class F>
    void Each(F look)
    {
        constexpr const char* NAMES[] = {"51", "54", "57", "53", "52", "55", "64", "66", "63", "62",
                                         "65", "74", "76", "73", "72", "75", "1",  "2",  "3"};
        int at = 0;
        const auto all = [&](auto&... members) { (look(NAMES[at++], members), ...); };
        std::apply(all, lists);
        std::apply(all, byText);
        std::apply(all, byInt);
        std::apply(all, objects);
    }

    int present = 0;
    std::tuple<cow_List<bool>, cow_List<int>, cow_List<unsigned>, cow_List<float>, cow_List<double>,
               cow_List<cow_String>>
        lists;
    std::tuple<ByText<int>, ByText<unsigned>, ByText<float>, ByText<double>, ByText<cow_String>> byText;
    std::tuple<ByInt<int>, ByInt<unsigned>, ByInt<float>, ByInt<double>, ByInt<cow_String>> byInt;
    std::tuple<cow_List<Handle<Plain>>, ByText<Handle<Plain>>, ByInt<Handle<Hooked>>> objects;
};

template <class T>
void DeclareItem(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create(std::is_same_v<T, Plain> ? "idb_Plain" : "idb_Hooked", T::TypeId(), 1,
                         cls_TypeAdapter<T>::Instance(), cls_UniversalRoot);
    meta.AddAttribute({0, "n"}, cls_AttributeType::INT, 1, Code::SINGLE);
    if (std::is_same_v<T, Hooked>)
        meta.AddDtor([](void* body) { delete static_cast<T*>(body); });
}

/// A class and its bases, of which each has an attribute of the same name.
template <int N>
class Level : public Level<N - 1>
{
public:
    static constexpr unsigned TypeId() { return Id(30 + N); }
    Level() = default;
    explicit Level(const cls_ReadVisitor& reader) : Level<N - 1>(reader.BaseReader())
    {
        reader.ReadInt({0, "n"}, n);
    }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (!writer.AnnounceValue(TypeId()))
            return;
        Level<N - 1>::DBWrite(writer.BaseWriter());
        writer.WriteInt({0, "n"}, n);
    }

    int n = 0;
};
template <>
class Level<0> : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_UniversalRoot; }
    Level() = default;
    explicit Level(const cls_ReadVisitor&) {}
    void DBWrite(const cls_WriteVisitor&) const {}
};

template <int N>
void DeclareLevel(cls_ClassRegistrar& registrar)
{
    registrar
        .Create(cow_String(std::to_string(Level<N>::TypeId())), Level<N>::TypeId(), 1,
                cls_TypeAdapter<Level<N>>::Instance(), Level<N - 1>::TypeId())
        .AddAttribute({0, "n"}, cls_AttributeType::INT, 1, Code::SINGLE);
}

class Collections : public testing::Test
{
protected:
    Collections()
    {
        for (const auto declare : {&DeclareItem<Plain>, &DeclareItem<Hooked>, &All<0>::InitializeMetadata,
                                   &All<1>::InitializeMetadata, &All<2>::InitializeMetadata, &DeclareLevel<1>,
                                   &DeclareLevel<2>, &DeclareLevel<3>})
            cls_MetadataRegistrar::Instance().initClassMetadata(declare, 7);
    }

    template <int Codes>
    void ExpectComesBack(const char* said)
    {
        All<Codes> all;
        all.Fill();
        idb_MementoWrite out;
        out.Add("filled", all);
        out.Add("empty", All<Codes>());
        out.Finish();
        idb_MementoRead in(out.Bytes());
        All<Codes> filled, empty;
        testing::internal::CaptureStderr();
        in.Root("filled", filled);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), said);
        in.Root("empty", empty);
        EXPECT_TRUE(filled.present == 19 && empty.present == 19);
        EXPECT_TRUE(filled.lists == all.lists && filled.byText == all.byText && filled.byInt == all.byInt);
        EXPECT_TRUE(filled.objects == all.objects);
        EXPECT_TRUE(empty.lists == All<Codes>().lists && empty.objects == All<Codes>().objects);
        const auto& [list, byText, byInt] = filled.objects;
        EXPECT_TRUE(list[0].SharesWith(list[2]) && list[0].SharesWith(byText.Get("p")));
        EXPECT_TRUE(byInt.Get(4).SharesWith(byInt.Get(5)));
    }

    const LibraryGuard running_;
};

// A class whose shared bodies nobody could free is told once for each reader, when the body is released.
TEST_F(Collections, ComeBackInBothSeriesOfCodes)
{
    const char* const twice = "Warning: objectCOW dtor not defined in ddbAPI metadata for: idb_Plain\n"
                              "Warning: objectCOW dtor not defined in ddbAPI metadata for: idb_Plain\n";
    ExpectComesBack<0>(twice);
    ExpectComesBack<1>(twice);
}

// The memento shares them, wherever they stand in an object, and its owner may change them.
TEST_F(Collections, LongListsStayAsTheyWereWritten)
{
    const auto fill = [](All<0>& all) {
        all.Fill();
        std::get<1>(all.lists) = cow_List<int>::Filled(20000, 7);
        std::get<4>(all.lists) = cow_List<double>::Filled(30000, 0.5);
    };
    All<0> all, wanted, back;
    fill(all);
    fill(wanted);
    idb_MementoWrite out;
    out.Add("first", all);
    std::get<4>(all.lists)[29999] = 1;
    std::get<1>(all.lists) = {};
    out.Add("second", all);
    out.Finish();
    idb_MementoRead in(out.Bytes());
    testing::internal::CaptureStderr();
    in.Root("second", back);
    EXPECT_TRUE(back.lists == all.lists && back.byText == all.byText);
    in.Root("first", back);
    testing::internal::GetCapturedStderr();
    EXPECT_TRUE(back.lists == wanted.lists && back.byText == wanted.byText);
}

TEST_F(Collections, BasePartsAreFoundByTheirClass)
{
    MementoMaker maker;
    for (const unsigned id : {Level<1>::TypeId(), Level<3>::TypeId()})
        maker.Class(id, std::to_string(id).c_str(), 1, 1, {{"n", 5, 1, 0}});
    maker.Object(1, {{0, {{0, 5, 0, Payload(10)}}}, {1, {{0, 5, 0, Payload(30)}}}});
    maker.Root("r", 1);
    const Bytes bytes = maker.Make();
    Level<3> back;
    idb_MementoRead(bytes).Root("r", back);
    EXPECT_TRUE(back.n == 30 && back.Level<2>::n == 0 && back.Level<1>::n == 10);
    idb_MementoLimits limits;
    for (const unsigned depth : {2u, 3u})
    {
        limits.depth = depth;
        idb_MementoWrite out(limits);
        EXPECT_EQ(orvex_testing::Raised<idb_MementoException>([&] { out.Add("r", back); }),
                  depth == 2 ? "idb_MementoWrite: limit exceeded: nesting depth" : "nothing was raised")
            << depth;
    }
}

TEST_F(Collections, CodesThatAreNotDeclaredAreToldAndRefused)
{
    idb_MementoWrite out;
    testing::internal::CaptureStderr();
    EXPECT_RAISE(
        out.Add("all", All<2>()), idb_MementoException,
        "idb_MementoWrite: class 2119172108 writes the attribute 51 as collection type 51, declared 86");
    EXPECT_FALSE(idb_MementoWrite().CheckCollectionType(Code::LIST_INT, "x"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Error in collections types have: 86 looking for: 51 51\n"
              "Error in collections types have: 0 looking for: 54 x\n");
}
}
