#include <cls_MetadataRegistrar.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <testing/MemoryStore.h>
#include <testing/PersistentSamples.h>

#include <functional>

using namespace persistent_samples;

namespace
{
class Visitors : public testing::Test
{
protected:
    Visitors() { Declare(cls_MetadataRegistrar::Instance().Registrar()); }

    static cow_String RefusalOf(const std::function<void()>& action)
    {
        try
        {
            action();
        }
        catch (const nex_PrimException& error)
        {
            return error.UserReport();
        }
        return "accepted";
    }

    MemoryStore store;
};
}

TEST_F(Visitors, EveryKindOfAttributeComesBack)
{
    const Everything all = Filled();
    const int number = store.Write(all);
    EXPECT_EQ(store.Faults(), "");
    const Everything back = store.Read<Everything>(number);
    EXPECT_EQ(back.uid, all.uid);
    EXPECT_FALSE(back.flag);
    EXPECT_EQ(back.kind, '(');
    EXPECT_EQ(back.count, 3);
    EXPECT_EQ(back.single, 0.1f);
    EXPECT_EQ(back.value, 1e300);
    EXPECT_EQ(back.name, all.name);
    EXPECT_EQ(back.message, atr_String("translated"));
    EXPECT_EQ(back.style, "DASHED");
    EXPECT_EQ(back.box, Box(4.5));
    EXPECT_EQ(RadiusOf(*back.shared), 2);
    EXPECT_EQ(back.shared->uid, all.shared->uid);
    EXPECT_EQ(dynamic_cast<const Circle&>(*back.shared).own, dynamic_cast<const Circle&>(*all.shared).own)
        << "base and derived part have identifiers of their own";
    EXPECT_EQ(back.held->radius, 3);
    EXPECT_EQ(back.bools, all.bools);
    EXPECT_EQ(back.ints, all.ints);
    EXPECT_EQ(back.columns, 2);
    EXPECT_EQ(back.unsigneds, all.unsigneds);
    EXPECT_EQ(back.floats, all.floats);
    EXPECT_EQ(back.doubles, all.doubles);
    EXPECT_EQ(back.names, all.names);
    EXPECT_EQ(back.byInt, all.byInt);
    EXPECT_EQ(back.byInt.KeyAt(0), 9) << "the order too";
    EXPECT_EQ(back.byText, all.byText);
    EXPECT_EQ(back.boxes, all.boxes);
    ASSERT_EQ(back.handles.Length(), 4);
    EXPECT_TRUE(back.handles[1].IsNull());
    EXPECT_EQ(RadiusOf(*back.handles[2]), 5);
    ASSERT_EQ(back.owned.Length(), 2);
    EXPECT_EQ(RadiusOf(*back.owned.Get(0)), 6);
    EXPECT_TRUE(back.owned.IsNull(1));
    EXPECT_EQ(back.boxMap.Get(8), Box(8));
    EXPECT_EQ(back.shapeMap.Keys(), all.shapeMap.Keys());
    EXPECT_TRUE(back.shapeMap.Get("none").IsNull());
    EXPECT_EQ(back.textMap, all.textMap);
}

TEST_F(Visitors, ASharedBodyIsWrittenOnceAndSharedAgain)
{
    const int number = store.Write(Filled());
    const Everything back = store.Read<Everything>(number);
    EXPECT_TRUE(back.also.SharesWith(back.shared));
    EXPECT_TRUE(back.handles[0].SharesWith(back.shared));
    EXPECT_TRUE(back.handles[3].SharesWith(back.shared));
    EXPECT_TRUE(back.shapeMap.Get("one").SharesWith(back.shared));
    EXPECT_FALSE(back.handles[2].SharesWith(back.shared));
}

TEST_F(Visitors, DescribeShowsWhatIsPersisted)
{
    const int number = store.Write(Filled());
    constexpr char SHAPE[] = "tst_Everything\n"
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
                             "  also OBJECT #3\n"
                             "  held OBJECT #4\n"
                             "  bools OBJECT/51 [true, false, true] columns 1\n"
                             "  ints OBJECT/54 [1, 2, 3, 4] columns 2\n"
                             "  uints OBJECT/57 [4294967295] columns 1\n"
                             "  floats OBJECT/53 [1.5] columns 1\n"
                             "  doubles OBJECT/52 [-0.5, 0.25] columns 1\n"
                             "  names OBJECT/55 ['x', ''] columns 1\n"
                             "  byInt OBJECT/72 {9: 0.9, -3: 0.3}\n"
                             "  byText OBJECT/66 {'a': 1, 'b': 2}\n"
                             "  boxes OBJECT/1 [#5, #6]\n"
                             "  handles OBJECT/1 [#3, null, #7, #3]\n"
                             "  owned OBJECT/1 [#8, null]\n"
                             "  boxMap OBJECT/3 {8: #9}\n"
                             "  shapeMap OBJECT/2 {'one': #3, 'none': null}\n"
                             "  textMap OBJECT/75 {1: 'eins'}\n";
    EXPECT_EQ(store.Describe(number), std::string(SHAPE, sizeof SHAPE - 1)) << "with the zero byte";
    EXPECT_EQ(store.Describe(3), "tst_Shape\n  label STRING 'unnamed'\ntst_Circle\n  radius DOUBLE 2\n");
}

namespace
{
// The line of one attribute, with every object number as "#".
std::string LineOf(const std::string& description, const cls_FieldHandle& field)
{
    const std::string begin = std::string("\n  ") + field.name + " ";
    const std::size_t at = description.find(begin);
    if (at == std::string::npos)
        return "none";
    std::string line = description.substr(at + 1, description.find('\n', at + 1) - at - 1);
    for (std::size_t i = line.find('#'); i != std::string::npos; i = line.find('#', i + 1))
        while (i + 1 < line.size() && line[i + 1] >= '0' && line[i + 1] <= '9')
            line.erase(i + 1, 1);
    return line;
}
}

TEST_F(Visitors, AnAbsentAttributeLeavesItsDefaultAndTheOthersAsTheyAre)
{
    const int number = store.Write(Filled());
    const std::string filled = store.Describe(number);
    const std::vector<MemoryAttribute> whole = store.LastPart(number).attributes;
    MemoryStore untouched;
    const std::string defaults = untouched.Describe(untouched.Write(Everything()));
    for (const cls_FieldHandle& dropped : Everything::FIELDS)
    {
        store.LastPart(number).attributes = whole;
        store.LastPart(number).Drop(dropped.name);
        MemoryStore again;
        const std::string back = again.Describe(again.Write(store.Read<Everything>(number)));
        for (const cls_FieldHandle& field : Everything::FIELDS)
            EXPECT_EQ(LineOf(back, field), LineOf(field.index == dropped.index ? defaults : filled, field))
                << "without " << dropped.name;
    }
    store.LastPart(number).attributes.clear();
    MemoryStore again;
    EXPECT_EQ(again.Describe(again.Write(store.Read<Everything>(number))), defaults);
}

TEST_F(Visitors, AbsentReadsAnswerFalseAndTouchNothing)
{
    const int number = store.Write(Box(3));
    const auto reader = store.Reader(number);
    const cls_FieldHandle none = {9, "none"};
    int count = 5;
    cow_List<int> list = {1};
    int columns = 4;
    cow_Map<int, double> map;
    map.Insert(1, 1);
    ShapeHandle handle(new Circle(1));
    Box box(7);
    cow_List<Box> boxes = {Box(1)};
    cow_List<ShapeHandle> handles = {handle};
    cow_Map<cow_String, ShapeHandle> shapes;
    shapes.Insert("a", handle);
    std::unique_ptr<Shape> owned(new Circle(2));
    int calls = 0;
    EXPECT_FALSE(reader->ReadInt(none, count));
    EXPECT_FALSE(reader->ReadList(none, list, columns));
    EXPECT_FALSE(reader->ReadMap(none, map));
    EXPECT_FALSE(reader->ReadShared(none, handle));
    EXPECT_FALSE(reader->ReadObject(none, box));
    EXPECT_FALSE(reader->ReadObjectList(none, boxes));
    EXPECT_FALSE(reader->ReadSharedList(none, handles));
    EXPECT_FALSE(reader->ReadSharedMap(none, shapes));
    EXPECT_FALSE(reader->ReadOwned(none, owned));
    EXPECT_FALSE(reader->ReadOwnedList<Shape>(none, [&calls](std::unique_ptr<Shape>) { ++calls; }));
    EXPECT_EQ(count, 5);
    EXPECT_EQ(list, cow_List<int>({1}));
    EXPECT_EQ(columns, 4);
    EXPECT_EQ(map.Length(), 1);
    EXPECT_EQ(RadiusOf(*handle), 1);
    EXPECT_EQ(box, Box(7));
    EXPECT_EQ(boxes.Length(), 1);
    EXPECT_EQ(handles.Length(), 1);
    EXPECT_EQ(shapes.Length(), 1);
    EXPECT_EQ(RadiusOf(*owned), 2);
    EXPECT_EQ(calls, 0);
    double low = 0;
    EXPECT_TRUE(reader->ReadDouble({0, "_low"}, low));
    EXPECT_EQ(low, 3);
}

TEST_F(Visitors, AttributesAreFoundByNameAndUnknownOnesSkipped)
{
    const int number = store.Write(Box(3));
    store.LastPart(number).Rename("_low", "_high");
    EXPECT_EQ(store.Read<Box>(number), Box());
    store.LastPart(number).Set("_low", cls_AttributeType::DOUBLE, 6.0);
    EXPECT_EQ(store.Read<Box>(number), Box(6));
}

TEST_F(Visitors, VersionAndUidBelongToThePart)
{
    const Circle circle(2);
    const int number = store.Write(circle);
    store.Part(number, Shape::TypeId()).version = 203;
    const auto reader = store.Reader(number);
    EXPECT_EQ(reader->TypeId(), Circle::TypeId());
    EXPECT_EQ(reader->Version(), 437u);
    EXPECT_EQ(reader->Uid(), circle.own);
    const cls_ReadVisitor& base = reader->BaseReader();
    EXPECT_EQ(base.TypeId(), Shape::TypeId());
    EXPECT_EQ(base.Version(), 203u);
    EXPECT_EQ(base.Uid(), circle.uid);
    const cls_ReadVisitor& beyond = base.BaseReader();
    EXPECT_EQ(beyond.TypeId(), 0u);
    EXPECT_EQ(beyond.Version(), 0u);
    EXPECT_TRUE(beyond.Uid().IsNull());
    cow_String label = "kept";
    EXPECT_FALSE(beyond.BaseReader().ReadString({0, "label"}, label));
    EXPECT_EQ(label, "kept");
}

TEST_F(Visitors, AnAttributeOfABaseIsNotTheDerivedClasses)
{
    const int number = store.Write(Circle(2));
    store.Part(number, Shape::TypeId()).Set("radius", cls_AttributeType::DOUBLE, 9.0);
    EXPECT_EQ(store.Read<Circle>(number).radius, 2);
    store.LastPart(number).Drop("radius");
    EXPECT_EQ(store.Read<Circle>(number).radius, 1);
}

struct WrongRow
{
    const char* what;
    const char* field;
    cls_AttributeType type;
    cls_CollectionType collection;
    MemoryValue value;
    const char* refusal;
};

class WrongData : public Visitors, public testing::WithParamInterface<WrongRow>
{};

TEST_P(WrongData, IsRefused)
{
    const WrongRow& row = GetParam();
    const int number = store.Write(Filled());
    const int impostor = store.Write(Impostor());
    ASSERT_EQ(impostor, 10) << "the rows refer to it";
    store.LastPart(number).Set(row.field, row.type, row.value, row.collection);
    EXPECT_EQ(RefusalOf([&] { store.Read<Everything>(number); }), row.refusal);
}

using Type = cls_AttributeType;
using Code = cls_CollectionType;
INSTANTIATE_TEST_SUITE_P(
    Rows, WrongData,
    testing::Values(WrongRow{"other_type", "count", Type::DOUBLE, Code::SINGLE, 1.0,
                             "MemoryReader: attribute count has type 10, expected 5"},
                    WrongRow{"list_for_object", "box", Type::OBJECT, Code::LIST_INT, MemoryList(),
                             "MemoryReader: attribute box has collection 54, expected 0"},
                    WrongRow{"other_elements", "ints", Type::OBJECT, Code::LIST_UINT, MemoryList(),
                             "MemoryReader: attribute ints has collection 57, expected 54"},
                    WrongRow{"other_keys", "shapeMap", Type::OBJECT, Code::MAP_INT_OBJ, MemoryObjectMap(),
                             "MemoryReader: attribute shapeMap has collection 3, expected 2"},
                    WrongRow{"null_value", "box", Type::OBJECT, Code::SINGLE, MemoryReference{0},
                             "MemoryReader: a null reference where tst_Box is held by value"},
                    WrongRow{"wrong_class", "shared", Type::OBJECT, Code::SINGLE, MemoryReference{2},
                             "MemoryReader: object #2 is a tst_Box, not a tst_Shape"},
                    WrongRow{"base_for_derived", "held", Type::OBJECT, Code::SINGLE, MemoryReference{10},
                             "MemoryReader: object #10 is a tst_Impostor, not a tst_Circle"},
                    WrongRow{"registered_but_no_cpp_child", "shared", Type::OBJECT, Code::SINGLE,
                             MemoryReference{10}, "MemoryReader: object #10 cannot be held as a tst_Shape"},
                    WrongRow{"impostor_in_list", "handles", Type::OBJECT, Code::LIST_OBJ, MemoryObjects{{10}},
                             "MemoryReader: object #10 cannot be held as a tst_Shape"},
                    WrongRow{"impostor_owned", "owned", Type::OBJECT, Code::LIST_OBJ, MemoryObjects{{10}},
                             "MemoryReader: object #10 cannot be held as a tst_Shape"},
                    WrongRow{"value_twice", "boxes", Type::OBJECT, Code::LIST_OBJ, MemoryObjects{{5, 5}},
                             "MemoryReader: object #5 cannot be held as a tst_Box"},
                    WrongRow{"held_otherwise_before", "held", Type::OBJECT, Code::SINGLE, MemoryReference{3},
                             "MemoryReader: object #3 cannot be held as a tst_Circle"},
                    WrongRow{"itself", "shared", Type::OBJECT, Code::SINGLE, MemoryReference{1},
                             "MemoryReader: object #1 is a tst_Everything, not a tst_Shape"}),
    [](const auto& row) { return row.param.what; });

TEST_F(Visitors, TheOtherListSeriesReadsAlike)
{
    const int number = store.Write(Filled());
    MemoryAttribute ints = *store.LastPart(number).Find("ints");
    store.LastPart(number).Set("ints", ints.type, ints.value, cls_CollectionType::ARRAY_INT);
    EXPECT_EQ(store.Read<Everything>(number).ints, cow_List<int>({1, 2, 3, 4}));
}

TEST_F(Visitors, SlotsThatReferToOneObjectShareIt)
{
    const int number = store.Write(Filled());
    store.LastPart(number).Set("owned", cls_AttributeType::OBJECT, MemoryObjects{{8, 0, 8}},
                               cls_CollectionType::LIST_OBJ);
    Everything back = store.Read<Everything>(number);
    ASSERT_EQ(back.owned.Length(), 3);
    EXPECT_EQ(back.owned.Get(0), back.owned.Get(2));
    dynamic_cast<Circle*>(back.owned.Write(2))->radius = 7;
    EXPECT_EQ(RadiusOf(*back.owned.Get(0)), 6) << "until one is written";
}

TEST_F(Visitors, AnObjectWithOneOwnerThatIsReferredToTwiceIsCopied)
{
    const int number = store.Write(Filled());
    store.LastPart(number).Set("owned", cls_AttributeType::OBJECT, MemoryObjects{{8, 0, 8}},
                               cls_CollectionType::LIST_OBJ);
    std::vector<std::unique_ptr<Shape>> found;
    ASSERT_TRUE(store.Reader(number)->ReadOwnedList<Shape>(
        Everything::FIELDS[Everything::OWNED],
        [&found](std::unique_ptr<Shape> shape) { found.push_back(std::move(shape)); }));
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[1], nullptr);
    EXPECT_NE(found[0], found[2]);
    EXPECT_EQ(RadiusOf(*found[0]), 6);
    EXPECT_EQ(RadiusOf(*found[2]), 6);
    EXPECT_EQ(found[0]->uid, found[2]->uid);
    std::unique_ptr<Circle> held;
    EXPECT_TRUE(store.Reader(number)->ReadOwned(Everything::FIELDS[Everything::HELD], held));
    EXPECT_EQ(held->radius, 3);
}

TEST_F(Visitors, SourcesTellIdentityClassAndHolder)
{
    const ShapeHandle handle(new Circle(2));
    const ShapeHandle other(handle);
    const cls_ObjectSource source = cls_ObjectSource::Of(handle);
    EXPECT_EQ(source.Body(), cls_ObjectSource::Of(other).Body());
    EXPECT_EQ(source.TypeId(), Circle::TypeId());
    EXPECT_FALSE(source.IsByValue());
    EXPECT_TRUE(cls_ObjectSource::Of(ShapeHandle()).IsNull());
    EXPECT_TRUE(cls_ObjectSource::Of(static_cast<const Shape*>(nullptr)).IsNull());
    EXPECT_TRUE(cls_ObjectSource().IsNull());
    EXPECT_EQ(cls_ObjectSource().Keep(), nullptr);
    const Box box;
    EXPECT_TRUE(cls_ObjectSource::ByValue(box).IsByValue());
    EXPECT_EQ(cls_ObjectSource::ByValue(box).Keep(), nullptr);
}

TEST_F(Visitors, AKeptBodySurvivesAnEditOfTheOriginal)
{
    ShapeHandle handle(new Circle(2));
    const cls_ObjectSource source = cls_ObjectSource::Of(handle);
    const void* body = source.Body();
    const std::shared_ptr<const void> kept = source.Keep();
    dynamic_cast<Circle&>(handle.Get()).radius = 9;
    EXPECT_NE(cls_ObjectSource::Of(handle).Body(), body) << "the edit detached, so it is another object";
    EXPECT_EQ(static_cast<const Circle*>(body)->radius, 2);

    Shapes array;
    array.Append(new Circle(4));
    const cls_ObjectSource slot = cls_ObjectSource::Of(array.Get(0), array);
    const void* slotBody = slot.Body();
    const std::shared_ptr<const void> keptArray = slot.Keep();
    dynamic_cast<Circle*>(array.Write(0))->radius = 8;
    EXPECT_NE(cls_ObjectSource::Of(array.Get(0), array).Body(), slotBody);
    EXPECT_EQ(static_cast<const Circle*>(slotBody)->radius, 4);
}

TEST_F(Visitors, AnEditBetweenTwoWritesMakesAnotherObject)
{
    ShapeHandle handle(new Circle(2));
    const int first = store.WriteShared(handle);
    EXPECT_EQ(store.WriteShared(handle), first);
    dynamic_cast<Circle&>(handle.Get()).radius = 9;
    const int second = store.WriteShared(handle);
    EXPECT_NE(second, first);
    EXPECT_EQ(store.Read<Circle>(first).radius, 2);
    EXPECT_EQ(store.Read<Circle>(second).radius, 9);
    EXPECT_EQ(store.LastPart(first).uid, store.LastPart(second).uid)
        << "identifiers do not tell bodies apart";
}

TEST_F(Visitors, FaultsNameWhatDisagreesWithTheMetadata)
{
    struct Sloppy
    {
        static unsigned TypeId() { return Id(20); }
        void DBWrite(const cls_WriteVisitor& writer) const
        {
            if (!writer.AnnounceValue(TypeId()))
                return;
            Box().DBWrite(writer.BaseWriter());
            writer.WriteInt({1, "second"}, 1);
            writer.WriteDouble({0, "first"}, 1);
            writer.WriteList({2, "list"}, cow_List<int>{1});
            writer.WriteInt({3, "unknown"}, 1);
            writer.WriteObject({4, "shape"}, Box());
        }
    };
    cls_ClassMetadata& meta = cls_MetadataRegistrar::Instance().Registrar().Create(
        "tst_Sloppy", Sloppy::TypeId(), 800, nullptr, cls_UniversalRoot);
    meta.AddAttribute({0, "first"}, cls_AttributeType::INT, 1, cls_CollectionType::SINGLE);
    meta.AddAttribute({1, "second"}, cls_AttributeType::INT, 1, cls_CollectionType::SINGLE);
    meta.AddAttribute({2, "list"}, cls_AttributeType::OBJECT, cls_ListTypeId,
                      cls_CollectionType::LIST_DOUBLE);
    meta.AddAttribute({4, "shape"}, cls_AttributeType::OBJECT, Shape::TypeId(), cls_CollectionType::SINGLE);
    store.Write(Sloppy());
    EXPECT_EQ(store.Faults(), "tst_Sloppy: base part tst_Box, registered parent 0x1\n"
                              "tst_Sloppy: first is written as DOUBLE, declared as INT\n"
                              "tst_Sloppy: first is written out of order\n"
                              "tst_Sloppy: list is written as collection 54, declared as 52\n"
                              "tst_Sloppy: unknown is not declared\n"
                              "tst_Sloppy: shape holds a tst_Box, declared as tst_Shape\n");
}

TEST_F(Visitors, AdaptersCreateByTypeIdAndCarryPlainValues)
{
    const int box = store.Write(Box(3));
    const std::unique_ptr<cls_Persistent> value = store.Create(box);
    ASSERT_NE(cls_PersistentCast<Box>(value.get()), nullptr);
    EXPECT_EQ(*cls_PersistentCast<Box>(value.get()), Box(3));
    EXPECT_EQ(cls_PersistentCast<Shape>(value.get()), nullptr);
    EXPECT_EQ(cls_PersistentCast<Box>(nullptr), nullptr);
    const int circle = store.Write(Circle(2));
    const std::unique_ptr<cls_Persistent> shape = store.Create(circle);
    EXPECT_NE(cls_PersistentCast<Shape>(shape.get()), nullptr);
    EXPECT_EQ(cls_PersistentCast<Impostor>(shape.get()), nullptr);
    EXPECT_FALSE(cls_TypeAdapter<Circle>::Instance()->IsAbstract());
    EXPECT_TRUE(cls_AbsTypeAdapter<Shape>::Instance()->IsAbstract());
}

TEST_F(Visitors, AnAbstractClassIsRefusedByItsName)
{
    const int number = store.Write(Circle(2));
    store.At(number).parts.pop_back();
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(store.Create(number)); }),
              "cls_AbsTypeAdapter: class tst_Shape is abstract and cannot be created");
}

TEST_F(Visitors, AnUnknownClassIsRefused)
{
    const int number = store.Write(Box(3));
    store.LastPart(number).typeId = Id(0x99);
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(store.Create(number)); }),
              "MemoryReader: class 0x7e400099 is not known");
}

namespace
{
// A chain that may be closed to a ring, as only data can.
class Link : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return Id(6); }
    Link() = default;
    explicit Link(const cls_ReadVisitor& reader) { reader.ReadShared({0, "next"}, next); }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (writer.AnnounceValue(TypeId()))
            writer.WriteShared({0, "next"}, next);
    }

    cow_CountedHld<Link> next;
};
}

TEST_F(Visitors, ACyclicReferenceIsRefused)
{
    Link first;
    first.next = cow_CountedHld<Link>(new Link);
    first.next->next = cow_CountedHld<Link>(new Link);
    const int number = store.Write(first);
    ASSERT_EQ(number, 1);
    EXPECT_NE(store.Read<Link>(1).next->next.Get(), nullptr);
    for (const int target : {1, 2, 3})
    {
        store.LastPart(3).Set("next", cls_AttributeType::OBJECT, MemoryReference{target});
        EXPECT_EQ(
            RefusalOf([&] { store.Read<Link>(1); }),
            cow_String(("MemoryReader: object #" + std::to_string(target) + " is part of a cyclic reference")
                           .c_str()));
    }
}
