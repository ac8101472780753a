#pragma once

// Persistent classes of every shape, for tests of writers and readers: component 0x7E40.

#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_TypeId.h>
#include <cls_WriteVisitor.h>
#include <cow_ArrayCOW.h>
#include <cow_Btree.h>
#include <cow_COW.h>
#include <cow_CountedHld.h>
#include <cow_Map.h>

namespace persistent_samples
{
constexpr unsigned Id(unsigned index)
{
    return cls_MakeTypeId(0x7E40, index);
}

/// A plain value without identifier, as boxes and planes are.
struct Box
{
    static constexpr unsigned TypeId() { return Id(1); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar)
    {
        registrar.Create("tst_Box", TypeId(), 800, cls_TypeAdapter<Box>::Instance(), cls_UniversalRoot)
            .AddAttribute({0, "_low"}, cls_AttributeType::DOUBLE, cls_UniversalRoot,
                          cls_CollectionType::SINGLE);
    }

    Box() = default;
    explicit Box(double l) : low(l) {}
    explicit Box(const cls_ReadVisitor& reader) { reader.ReadDouble({0, "_low"}, low); }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (!writer.AnnounceValue(TypeId()))
            return;
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
    static void InitializeMetadata(cls_ClassRegistrar& registrar)
    {
        registrar.Create("tst_Shape", TypeId(), 437, cls_AbsTypeAdapter<Shape>::Instance(), cls_UniversalRoot)
            .AddAttribute({0, "label"}, cls_AttributeType::STRING, cls_UniversalRoot,
                          cls_CollectionType::SINGLE);
    }

    Shape() = default;
    explicit Shape(const cls_ReadVisitor& reader) : uid(reader.Uid())
    {
        reader.ReadString({0, "label"}, label);
    }
    virtual Shape* Copy() const = 0;
    virtual unsigned DynTypeId() const = 0;
    virtual void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (!writer.Announce(Shape::TypeId(), uid))
            return;
        writer.WriteString({0, "label"}, label);
    }

    cow_String label = "unnamed";
    cls_Uid uid;
};

class Circle : public Shape
{
public:
    static constexpr unsigned TypeId() { return Id(3); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar)
    {
        registrar.Create("tst_Circle", TypeId(), 437, cls_TypeAdapter<Circle>::Instance(), Shape::TypeId())
            .AddAttribute({0, "radius"}, cls_AttributeType::DOUBLE, cls_UniversalRoot,
                          cls_CollectionType::SINGLE);
    }

    explicit Circle(double r) : radius(r) {}
    explicit Circle(const cls_ReadVisitor& reader) : Shape(reader.BaseReader()), own(reader.Uid())
    {
        reader.ReadDouble({0, "radius"}, radius);
    }
    Circle* Copy() const override { return new Circle(*this); }
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override
    {
        if (!writer.Announce(TypeId(), own))
            return;
        Shape::DBWrite(writer.BaseWriter());
        writer.WriteDouble({0, "radius"}, radius);
    }

    double radius = 1;
    cls_Uid own;
};

/// Registered as a kind of shape, but not one in C++: what a hostile stream would put where a shape is due.
class Impostor : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return Id(4); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar)
    {
        registrar.Create("tst_Impostor", TypeId(), 437, cls_TypeAdapter<Impostor>::Instance(),
                         Shape::TypeId());
    }

    Impostor() = default;
    explicit Impostor(const cls_ReadVisitor&) {}
    void DBWrite(const cls_WriteVisitor& writer) const { static_cast<void>(writer.AnnounceValue(TypeId())); }
};

using ShapeHandle = cow_COW<Shape>;
using Shapes = cow_ArrayCOW<Shape>;

/// One attribute of every kind.
class Everything : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return Id(5); }
    enum Field {
        FLAG,
        KIND,
        COUNT,
        SINGLE,
        VALUE,
        NAME,
        MESSAGE,
        STYLE,
        BOX,
        SHARED,
        ALSO,
        HELD,
        BOOLS,
        INTS,
        UNSIGNEDS,
        FLOATS,
        DOUBLES,
        NAMES,
        BY_INT,
        BY_TEXT,
        BOXES,
        HANDLES,
        OWNED,
        BOX_MAP,
        SHAPE_MAP,
        TEXT_MAP
    };
    static constexpr cls_FieldHandle FIELDS[] = {
        {FLAG, "flag"},          {KIND, "kind"},       {COUNT, "count"},
        {SINGLE, "single"},      {VALUE, "value"},     {NAME, "name"},
        {MESSAGE, "message"},    {STYLE, "style"},     {BOX, "box"},
        {SHARED, "shared"},      {ALSO, "also"},       {HELD, "held"},
        {BOOLS, "bools"},        {INTS, "ints"},       {UNSIGNEDS, "uints"},
        {FLOATS, "floats"},      {DOUBLES, "doubles"}, {NAMES, "names"},
        {BY_INT, "byInt"},       {BY_TEXT, "byText"},  {BOXES, "boxes"},
        {HANDLES, "handles"},    {OWNED, "owned"},     {BOX_MAP, "boxMap"},
        {SHAPE_MAP, "shapeMap"}, {TEXT_MAP, "textMap"}};

    static void InitializeMetadata(cls_ClassRegistrar& registrar)
    {
        cls_ClassMetadata& meta = registrar.Create(
            "tst_Everything", TypeId(), 800, cls_TypeAdapter<Everything>::Instance(), cls_UniversalRoot);
        using Type = cls_AttributeType;
        using Code = cls_CollectionType;
        const Type plain[] = {Type::BOOL,   Type::CHAR,   Type::INT,     Type::FLOAT,
                              Type::DOUBLE, Type::STRING, Type::MESSAGE, Type::ENUM};
        for (int i = FLAG; i <= STYLE; ++i)
            meta.AddAttribute(FIELDS[i], plain[i], cls_UniversalRoot, Code::SINGLE);
        const unsigned classes[] = {Box::TypeId(), Shape::TypeId(), Shape::TypeId(), Shape::TypeId()};
        for (int i = BOX; i <= HELD; ++i)
            meta.AddAttribute(FIELDS[i], Type::OBJECT, classes[i - BOX], Code::SINGLE);
        // The ints are declared by the other series, which reads and writes alike.
        const Code lists[] = {Code::LIST_BOOL,         Code::ARRAY_INT,       Code::LIST_UINT,
                              Code::LIST_FLOAT,        Code::LIST_DOUBLE,     Code::LIST_STRING,
                              Code::MAP_INT_DOUBLE,    Code::MAP_STRING_UINT, Code::LIST_OBJ,
                              Code::LIST_OBJ,          Code::LIST_OBJ,        Code::MAP_INT_OBJ,
                              Code::MAP_STRING_OBJ_93, Code::MAP_INT_STRING};
        for (int i = BOOLS; i <= TEXT_MAP; ++i)
        {
            const bool isMap = i == BY_INT || i == BY_TEXT || i >= BOX_MAP;
            meta.AddAttribute(FIELDS[i], Type::OBJECT, isMap ? cls_MapTypeId : cls_ListTypeId,
                              lists[i - BOOLS]);
        }
    }

    Everything() = default;
    explicit Everything(const cls_ReadVisitor& reader) : uid(reader.Uid())
    {
        reader.ReadBool(FIELDS[FLAG], flag);
        reader.ReadChar(FIELDS[KIND], kind);
        reader.ReadInt(FIELDS[COUNT], count);
        reader.ReadFloat(FIELDS[SINGLE], single);
        reader.ReadDouble(FIELDS[VALUE], value);
        reader.ReadString(FIELDS[NAME], name);
        reader.ReadMessage(FIELDS[MESSAGE], message);
        reader.ReadEnum(FIELDS[STYLE], style);
        reader.ReadObject(FIELDS[BOX], box);
        reader.ReadShared(FIELDS[SHARED], shared);
        reader.ReadShared(FIELDS[ALSO], also);
        reader.ReadShared(FIELDS[HELD], held);
        reader.ReadList(FIELDS[BOOLS], bools);
        reader.ReadList(FIELDS[INTS], ints, columns);
        reader.ReadList(FIELDS[UNSIGNEDS], unsigneds);
        reader.ReadList(FIELDS[FLOATS], floats);
        reader.ReadList(FIELDS[DOUBLES], doubles);
        reader.ReadList(FIELDS[NAMES], names);
        reader.ReadMap(FIELDS[BY_INT], byInt);
        reader.ReadMap(FIELDS[BY_TEXT], byText);
        reader.ReadObjectList(FIELDS[BOXES], boxes);
        reader.ReadSharedList(FIELDS[HANDLES], handles);
        reader.ReadOwnedList(FIELDS[OWNED], owned);
        reader.ReadObjectMap(FIELDS[BOX_MAP], boxMap);
        reader.ReadSharedMap(FIELDS[SHAPE_MAP], shapeMap);
        reader.ReadMap(FIELDS[TEXT_MAP], textMap);
    }
    void DBWrite(const cls_WriteVisitor& writer) const
    {
        if (!writer.Announce(TypeId(), uid))
            return;
        writer.WriteBool(FIELDS[FLAG], flag);
        writer.WriteChar(FIELDS[KIND], kind);
        writer.WriteInt(FIELDS[COUNT], count);
        writer.WriteFloat(FIELDS[SINGLE], single);
        writer.WriteDouble(FIELDS[VALUE], value);
        writer.WriteString(FIELDS[NAME], name);
        writer.WriteMessage(FIELDS[MESSAGE], message);
        writer.WriteEnum(FIELDS[STYLE], style);
        writer.WriteObject(FIELDS[BOX], box);
        writer.WriteShared(FIELDS[SHARED], shared);
        writer.WriteShared(FIELDS[ALSO], also);
        writer.WriteShared(FIELDS[HELD], held);
        writer.WriteList(FIELDS[BOOLS], bools);
        writer.WriteList(FIELDS[INTS], ints.Data(), ints.Length(), columns);
        writer.WriteList(FIELDS[UNSIGNEDS], unsigneds);
        writer.WriteList(FIELDS[FLOATS], floats);
        writer.WriteList(FIELDS[DOUBLES], doubles);
        writer.WriteList(FIELDS[NAMES], names);
        writer.WriteMap(FIELDS[BY_INT], byInt);
        writer.WriteMap(FIELDS[BY_TEXT], byText);
        writer.WriteObjectList(FIELDS[BOXES], boxes);
        writer.WriteSharedList(FIELDS[HANDLES], handles);
        writer.WriteOwnedList(FIELDS[OWNED], owned);
        writer.WriteObjectMap(FIELDS[BOX_MAP], boxMap);
        writer.WriteSharedMap(FIELDS[SHAPE_MAP], shapeMap);
        writer.WriteMap(FIELDS[TEXT_MAP], textMap);
    }

    cls_Uid uid;
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
    ShapeHandle also;
    cow_CountedHld<Circle> held;
    cow_List<bool> bools;
    cow_List<int> ints;
    int columns = 1;
    cow_List<unsigned> unsigneds;
    cow_List<float> floats;
    cow_List<double> doubles;
    cow_List<cow_String> names;
    cow_Map<int, double> byInt;
    cow_Btree<cow_String, unsigned> byText;
    cow_List<Box> boxes;
    cow_List<ShapeHandle> handles;
    Shapes owned;
    cow_Map<int, Box> boxMap;
    cow_Map<cow_String, ShapeHandle> shapeMap;
    cow_Map<int, cow_String> textMap;
};

/// Everything with no attribute at its default, two of them sharing one body.
inline Everything Filled()
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
    all.also = all.shared;
    all.held = cow_CountedHld<Circle>(new Circle(3));
    all.bools = {true, false, true};
    all.ints = {1, 2, 3, 4};
    all.columns = 2;
    all.unsigneds = {4294967295u};
    all.floats = {1.5f};
    all.doubles = {-0.5, 0.25};
    all.names = {"x", ""};
    all.byInt.Insert(9, 0.9);
    all.byInt.Insert(-3, 0.3); // behind 9: a map keeps the order of insertion
    all.byText.Insert("b", 2u);
    all.byText.Insert("a", 1u);
    all.boxes = {Box(1), Box(2)};
    all.handles = {all.shared, ShapeHandle(), ShapeHandle(new Circle(5)), all.shared};
    all.owned.Append(new Circle(6));
    all.owned.Append(nullptr);
    all.boxMap.Insert(8, Box(8));
    all.shapeMap.Insert("one", all.shared);
    all.shapeMap.Insert("none", ShapeHandle());
    all.textMap.Insert(1, "eins");
    return all;
}

inline double RadiusOf(const Shape& shape)
{
    return dynamic_cast<const Circle&>(shape).radius;
}

/// Declares all of them.
inline void Declare(cls_ClassRegistrar& registrar)
{
    Box::InitializeMetadata(registrar);
    Shape::InitializeMetadata(registrar);
    Circle::InitializeMetadata(registrar);
    Impostor::InitializeMetadata(registrar);
    Everything::InitializeMetadata(registrar);
}
}
