#include <cls_AbsTypeAdapter.h>
#include <cls_MetadataRegistrar.h>
#include <cls_TypeAdapter.h>
#include <cow_ArrayCOW.h>
#include <cow_Btree.h>
#include <cow_COW.h>
#include <cow_CountedHld.h>
#include <cow_Map.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <testing/ExpectRaise.h>
#include <testing/MemoryStore.h>

// Persistent classes of every shape through a writer and a reader in memory.

namespace
{
constexpr unsigned Id(unsigned index)
{
    return cls_MakeTypeId(0x7E40, index);
}

/// A plain value without identifier, as boxes and planes are.
struct Box
{
    static constexpr unsigned TypeId() { return Id(1); }

    Box() = default;
    explicit Box(double l) : low(l) {}
    explicit Box(const cls_ReadVisitor& reader) { reader.ReadDouble({0, "_low"}, low); }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (writer.AnnounceValue(TypeId()))
            writer.WriteDouble({0, "_low"}, low);
    }
    friend bool operator==(const Box&, const Box&) = default;

    double low = -1;
};

/// An abstract class; base and derived part have an identifier each.
class Shape : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return Id(2); }

    Shape() = default;
    explicit Shape(const cls_ReadVisitor& reader) : uid(reader.Uid())
    {
        reader.ReadString({0, "label"}, label);
        reader.ReadDouble({1, "radius"}, radius);
    }
    virtual Shape* Copy() const = 0;
    virtual unsigned DynTypeId() const = 0;
    virtual void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (!writer.Announce(Shape::TypeId(), uid))
            return;
        writer.WriteString({0, "label"}, label);
        writer.WriteDouble({1, "radius"}, radius);
    }

    cow_String label = "unnamed";
    double radius = 1;
    cls_Uid uid;
};

class Circle : public Shape
{
public:
    static constexpr unsigned TypeId() { return Id(3); }

    explicit Circle(double r) { radius = r; }
    explicit Circle(const cls_ReadVisitor& reader) : Shape(reader.BaseReader()), own(reader.Uid())
    {
        reader.ReadString({0, "label"}, colour);
    }
    Circle* Copy() const override { return new Circle(*this); }
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override
    {
        if (!writer.Announce(TypeId(), own))
            return;
        Shape::DBWrite(writer.BaseWriter());
        writer.WriteString({0, "label"}, colour); // named as one of the base's
    }

    cow_String colour = "black";
    cls_Uid own;
};

/// Registered as a kind of shape, but not one in C++: what a hostile stream would put where a shape is due.
class Impostor : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return Id(4); }
    Impostor() = default;
    explicit Impostor(const cls_ReadVisitor&) {}
    void DBWrite(const cls_WriteVisitor& writer) const { static_cast<void>(writer.AnnounceValue(TypeId())); }
};

using ShapeHandle = cow_COW<Shape>;

/// One attribute of every kind.
struct Everything
{
    static constexpr unsigned TypeId() { return Id(5); }
    Everything() = default;
    explicit Everything(const cls_ReadVisitor& reader) { Read(reader); }
    void Read(const cls_ReadVisitor& r)
    {
        const bool present[] = {r.ReadBool({0, "flag"}, flag),
                                r.ReadChar({1, "kind"}, kind),
                                r.ReadInt({2, "count"}, count),
                                r.ReadFloat({3, "single"}, single),
                                r.ReadDouble({4, "value"}, value),
                                r.ReadString({5, "name"}, name),
                                r.ReadMessage({6, "message"}, message),
                                r.ReadEnum({7, "style"}, style),
                                r.ReadObject({8, "box"}, box),
                                r.ReadShared({9, "shared"}, shared),
                                r.ReadShared({10, "held"}, held),
                                r.ReadList({11, "bools"}, bools),
                                r.ReadList({12, "ints"}, ints, columns),
                                r.ReadMap({13, "byInt"}, byInt),
                                r.ReadMap({14, "byText"}, byText),
                                r.ReadObjectList({15, "boxes"}, boxes),
                                r.ReadSharedList({16, "handles"}, handles),
                                r.ReadOwnedList({17, "owned"}, owned),
                                r.ReadObjectMap({18, "boxMap"}, boxMap),
                                r.ReadSharedMap({19, "shapeMap"}, shapeMap),
                                r.ReadOwned({20, "single owner"}, alone)};
        for (const bool one : present)
            absent += one ? 0 : 1;
    }
    void DBWrite(const cls_WriteVisitor& w) const
    {
        if (!w.AnnounceValue(TypeId()))
            return;
        w.WriteBool({0, "flag"}, flag);
        w.WriteChar({1, "kind"}, kind);
        w.WriteInt({2, "count"}, count);
        w.WriteFloat({3, "single"}, single);
        w.WriteDouble({4, "value"}, value);
        w.WriteString({5, "name"}, name);
        w.WriteMessage({6, "message"}, message);
        w.WriteEnum({7, "style"}, style);
        w.WriteObject({8, "box"}, box);
        w.WriteShared({9, "shared"}, shared);
        w.WriteShared({10, "held"}, held);
        w.WriteList({11, "bools"}, bools);
        w.WriteList({12, "ints"}, ints.Data(), ints.Length(), columns);
        w.WriteMap({13, "byInt"}, byInt);
        w.WriteMap({14, "byText"}, byText);
        w.WriteObjectList({15, "boxes"}, boxes);
        w.WriteSharedList({16, "handles"}, handles);
        w.WriteOwnedList({17, "owned"}, owned);
        w.WriteObjectMap({18, "boxMap"}, boxMap);
        w.WriteSharedMap({19, "shapeMap"}, shapeMap);
        w.WriteShared({20, "single owner"}, alone.get());
    }

    int absent = 0; ///< not stored

    bool flag = true;
    char kind = 'n';
    int count = -7;
    float single = 0.5f;
    double value = 2.25;
    cow_String name = "default";
    atr_String message = "none";
    cow_String style = "SOLID";
    Box box;
    ShapeHandle shared;
    cow_CountedHld<Circle> held;
    cow_List<bool> bools;
    cow_List<int> ints;
    int columns = 1;
    cow_Map<int, double> byInt;
    cow_Btree<cow_String, unsigned> byText;
    cow_List<Box> boxes;
    cow_List<ShapeHandle> handles;
    cow_ArrayCOW<Shape> owned;
    cow_Map<int, Box> boxMap;
    cow_Map<cow_String, ShapeHandle> shapeMap;
    std::unique_ptr<Shape> alone;
};

/// Everything with no attribute at its default.
Everything Filled()
{
    Everything all;
    all.flag = false;
    all.kind = '(';
    all.count = 3;
    all.single = 0.1f;
    all.value = 1e300;
    all.name = cow_String("a\0b", 3);
    all.message = "translated";
    all.style = "DASHED";
    all.box = Box(4.5);
    all.shared = ShapeHandle(new Circle(2));
    all.held = cow_CountedHld<Circle>(new Circle(3));
    all.bools = {true, false};
    all.ints = {1, 2, 3, 4};
    all.columns = 2;
    all.byInt = {{9, 0.9}, {-3, 0.3}}; // a map keeps the order of insertion
    all.byText = {{"b", 2u}, {"a", 1u}};
    all.boxes = {Box(1), Box(2)};
    all.handles = {all.shared, ShapeHandle(), ShapeHandle(new Circle(5)), all.shared};
    all.owned.Append(new Circle(6));
    all.owned.Append(nullptr);
    all.boxMap = {{8, Box(8)}};
    all.shapeMap = {{"one", all.shared}, {"none", ShapeHandle()}};
    all.alone.reset(new Circle(7));
    return all;
}

constexpr char SHAPE[] = "0x7e400005\n"
                         "  flag BOOL false\n"
                         "  kind CHAR '('\n"
                         "  count INT 3\n"
                         "  single FLOAT 0.1\n"
                         "  value DOUBLE 1e+300\n"
                         "  name STRING 'a\0b'\n"
                         "  message MESSAGE 'translated'\n"
                         "  style ENUM 'DASHED'\n"
                         "  box OBJECT #2\n"
                         "  shared OBJECT #3\n"
                         "  held OBJECT #4\n"
                         "  bools OBJECT/51 [true, false] columns 1\n"
                         "  ints OBJECT/54 [1, 2, 3, 4] columns 2\n"
                         "  byInt OBJECT/72 {9: 0.9, -3: 0.3}\n"
                         "  byText OBJECT/66 {'a': 1, 'b': 2}\n"
                         "  boxes OBJECT/1 [#5, #6]\n"
                         "  handles OBJECT/1 [#3, null, #7, #3]\n"
                         "  owned OBJECT/1 [#8, null]\n"
                         "  boxMap OBJECT/3 {8: #9}\n"
                         "  shapeMap OBJECT/2 {'one': #3, 'none': null}\n"
                         "  single owner OBJECT #10\n";

class Visitors : public testing::Test
{
protected:
    Visitors()
    {
        const auto create = [](const char* name, unsigned id, const cls_AdapterBase* adapter,
                               unsigned parent) {
            cls_MetadataRegistrar::Instance().Registrar().Create(name, id, 800, adapter, parent);
        };
        create("tst_Box", Box::TypeId(), cls_TypeAdapter<Box>::Instance(), cls_UniversalRoot);
        create("tst_Shape", Shape::TypeId(), cls_AbsTypeAdapter<Shape>::Instance(), cls_UniversalRoot);
        create("tst_Circle", Circle::TypeId(), cls_TypeAdapter<Circle>::Instance(), Shape::TypeId());
        create("tst_Impostor", Impostor::TypeId(), cls_TypeAdapter<Impostor>::Instance(), Shape::TypeId());
    }

    MemoryStore store;
};

TEST_F(Visitors, EveryKindOfAttributeIsWrittenAndComesBack)
{
    const Everything all = Filled();
    const int number = store.Write(all);
    const std::string shape(SHAPE, sizeof SHAPE - 1); // with its zero byte
    EXPECT_EQ(store.Describe(number), shape);
    const auto back = store.Read<Everything>(number);
    EXPECT_EQ(back.absent, 0);
    MemoryStore again;
    EXPECT_EQ(again.Describe(again.Write(back)), shape) << "all of it, and what was shared is shared again";
    for (int i = 1; i <= store.Count(); ++i)
        EXPECT_EQ(again.Describe(i), store.Describe(i)) << "object " << i;
    EXPECT_TRUE(back.handles[3].SharesWith(back.shared));
    EXPECT_EQ(back.shared->uid, all.shared->uid);
    EXPECT_EQ(dynamic_cast<const Circle&>(*back.shared).own, dynamic_cast<const Circle&>(*all.shared).own)
        << "base and derived part have identifiers of their own";
}

TEST_F(Visitors, AbsentReadsAnswerFalseAndTouchNothing)
{
    Everything all = Filled();
    all.Read(*store.Reader(store.Write(Box())));
    EXPECT_EQ(all.absent, 21);
    MemoryStore again;
    EXPECT_EQ(again.Describe(again.Write(all)), std::string(SHAPE, sizeof SHAPE - 1));
}

MemoryList Objects(std::vector<MemoryReference> numbers)
{
    return MemoryList{std::move(numbers)};
}

TEST_F(Visitors, WrongDataIsRefused)
{
    const int number = store.Write(Filled());
    ASSERT_EQ(store.Write(Impostor()), 11) << "the rows refer to it";
    struct Row
    {
        const char* field;
        MemoryValue value;
        const char* refusal;
    };
    const char* const impostor = "object #11 cannot be held as a tst_Shape"; // registered as one
    const Row rows[] = {
        {"box", MemoryReference{0}, "a null reference where tst_Box is held by value"},
        {"shared", MemoryReference{11}, impostor},
        {"handles", Objects({{11}}), impostor},
        {"owned", Objects({{11}}), impostor},
        {"single owner", MemoryReference{11}, impostor},
        {"boxes", Objects({{5}, {5}}), "object #5 cannot be held as a tst_Box"},  // twice
        {"held", MemoryReference{3}, "object #3 cannot be held as a tst_Circle"}, // held otherwise before
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.field);
        const MemoryAttribute field = *store.LastPart(number).Find(row.field);
        store.LastPart(number).Set(row.field, field.type, row.value, field.collection);
        EXPECT_RAISE(store.Read<Everything>(number), nex_PrimException,
                     ("MemoryReader: " + std::string(row.refusal)).c_str());
        store.LastPart(number).Set(row.field, field.type, field.value, field.collection);
    }
}

TEST_F(Visitors, SlotsThatReferToOneObjectShareItAndSoleOwnersCopyIt)
{
    const int number = store.Write(Filled());
    store.LastPart(number).Set("owned", cls_AttributeType::OBJECT, Objects({{8}, {0}, {8}}),
                               cls_CollectionType::LIST_OBJ);
    auto back = store.Read<Everything>(number);
    ASSERT_EQ(back.owned.Length(), 3);
    EXPECT_EQ(back.owned.Get(0), back.owned.Get(2));
    back.owned.Write(2)->radius = 7;
    EXPECT_EQ(back.owned.Get(0)->radius, 6) << "until one is written";

    std::vector<std::unique_ptr<Shape>> found;
    ASSERT_TRUE(store.Reader(number)->ReadOwnedList<Shape>(
        {17, "owned"}, [&found](std::unique_ptr<Shape> shape) { found.push_back(std::move(shape)); }));
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[1], nullptr);
    EXPECT_NE(found[0], found[2]);
    EXPECT_EQ(found[0]->uid, found[2]->uid);

    cow_List<cow_String> keys = {"former"};
    cow_List<ShapeHandle> handles;
    EXPECT_TRUE(store.Reader(number)->ReadSharedMap({19, "shapeMap"}, keys, handles));
    EXPECT_EQ(keys, cow_List<cow_String>({"one", "none"}));
    EXPECT_EQ(handles[0]->radius, 2);
    EXPECT_FALSE(store.Reader(number)->ReadSharedMap({20, "none"}, keys, handles));
    EXPECT_EQ(keys.Length(), 2);
}

TEST_F(Visitors, AKeptBodySurvivesAnEditOfTheOriginalWhichIsAnotherObjectThen)
{
    ShapeHandle handle(new Circle(2));
    const int first = store.WriteShared(handle);
    EXPECT_EQ(store.WriteShared(ShapeHandle(handle)), first);
    handle.Get().radius = 9;
    const int second = store.WriteShared(handle);
    EXPECT_EQ(store.Read<Circle>(first).radius, 2);
    EXPECT_EQ(store.Read<Circle>(second).radius, 9);
    EXPECT_EQ(store.LastPart(first).uid, store.LastPart(second).uid)
        << "identifiers do not tell bodies apart";
    EXPECT_EQ(store.WriteShared(ShapeHandle()), 0);

    cow_ArrayCOW<Shape> array;
    array.Append(new Circle(4));
    const cls_ObjectSource slot = cls_ObjectSource::Of(array.Get(0), array);
    const std::shared_ptr<const void> kept = slot.Keep();
    array.Write(0)->radius = 8;
    EXPECT_NE(cls_ObjectSource::Of(array.Get(0), array).Body(), slot.Body());
    EXPECT_EQ(static_cast<const Circle*>(slot.Body())->radius, 4);
}

TEST_F(Visitors, AdaptersCreateByTypeIdAndCarryPlainValues)
{
    const int number = store.Write(Box(3));
    const std::unique_ptr<cls_Persistent> value = store.Create(number);
    ASSERT_NE(cls_PersistentCast<Box>(value.get()), nullptr);
    EXPECT_EQ(*cls_PersistentCast<Box>(value.get()), Box(3));
    EXPECT_EQ(cls_PersistentCast<Shape>(value.get()), nullptr);
    EXPECT_EQ(cls_PersistentCast<Box>(nullptr), nullptr);
    const int circle = store.Write(Circle(2));
    const std::unique_ptr<cls_Persistent> shape = store.Create(circle);
    EXPECT_NE(cls_PersistentCast<Shape>(shape.get()), nullptr);
    EXPECT_EQ(cls_PersistentCast<Impostor>(shape.get()), nullptr);

    store.LastPart(circle).typeId = Shape::TypeId();
    EXPECT_RAISE(store.Create(circle), nex_PrimException,
                 "cls_AbsTypeAdapter: class tst_Shape is abstract and cannot be created");
}
}
