#pragma once

#include <atr_String.h>
#include <cls_AttributeType.h>
#include <cls_CollectionType.h>
#include <cls_ObjectSource.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeId.h>
#include <cls_WriteVisitor.h>
#include <cow_List.h>
#include <cow_Map.h>
#include <cow_String.h>

/// How cls_Fields stores a member of type V: the attribute's type, type id and collection, and the visitors'
/// calls. The general case is a persistent object held by value; what follows are the others. A module that
/// has a further kind of member (enumerations by the names of their constants) specialises it.
template <class V>
struct cls_FieldCodec
{
    static constexpr cls_AttributeType TYPE = cls_AttributeType::OBJECT;
    static constexpr unsigned TYPE_ID = V::TypeId();
    static constexpr cls_CollectionType COLLECTION = cls_CollectionType::SINGLE;

    static void Read(const cls_ReadVisitor& reader, const cls_FieldHandle& field, V& value)
    {
        reader.ReadObject(field, value);
    }
    static void Write(const cls_WriteVisitor& writer, const cls_FieldHandle& field, const V& value)
    {
        writer.WriteObject(field, value);
    }
};

/// A plain value, by the pair of visitor calls for its type.
template <class V, cls_AttributeType ATTRIBUTE_TYPE, auto READ, auto WRITE>
struct cls_PlainFieldCodec
{
    static constexpr cls_AttributeType TYPE = ATTRIBUTE_TYPE;
    static constexpr unsigned TYPE_ID = cls_UniversalRoot;
    static constexpr cls_CollectionType COLLECTION = cls_CollectionType::SINGLE;

    static void Read(const cls_ReadVisitor& reader, const cls_FieldHandle& field, V& value)
    {
        (reader.*READ)(field, value);
    }
    static void Write(const cls_WriteVisitor& writer, const cls_FieldHandle& field, const V& value)
    {
        (writer.*WRITE)(field, value);
    }
};

template <>
struct cls_FieldCodec<bool> : cls_PlainFieldCodec<bool, cls_AttributeType::BOOL, &cls_ReadVisitor::ReadBool,
                                                  &cls_WriteVisitor::WriteBool>
{};
template <>
struct cls_FieldCodec<char> : cls_PlainFieldCodec<char, cls_AttributeType::CHAR, &cls_ReadVisitor::ReadChar,
                                                  &cls_WriteVisitor::WriteChar>
{};
template <>
struct cls_FieldCodec<int>
    : cls_PlainFieldCodec<int, cls_AttributeType::INT, &cls_ReadVisitor::ReadInt, &cls_WriteVisitor::WriteInt>
{};
template <>
struct cls_FieldCodec<float> : cls_PlainFieldCodec<float, cls_AttributeType::FLOAT,
                                                   &cls_ReadVisitor::ReadFloat, &cls_WriteVisitor::WriteFloat>
{};
template <>
struct cls_FieldCodec<double>
    : cls_PlainFieldCodec<double, cls_AttributeType::DOUBLE, &cls_ReadVisitor::ReadDouble,
                          &cls_WriteVisitor::WriteDouble>
{};
template <>
struct cls_FieldCodec<cow_String>
    : cls_PlainFieldCodec<cow_String, cls_AttributeType::STRING, &cls_ReadVisitor::ReadString,
                          &cls_WriteVisitor::WriteString>
{};
template <>
struct cls_FieldCodec<atr_String>
    : cls_PlainFieldCodec<atr_String, cls_AttributeType::MESSAGE, &cls_ReadVisitor::ReadMessage,
                          &cls_WriteVisitor::WriteMessage>
{};

/// A list of primitives.
template <class T>
struct cls_FieldCodec<cow_List<T>>
{
    static constexpr cls_AttributeType TYPE = cls_AttributeType::OBJECT;
    static constexpr unsigned TYPE_ID = cls_ListTypeId;
    static constexpr cls_CollectionType COLLECTION = [] {
        if constexpr (std::is_same_v<T, bool>)
            return cls_CollectionType::LIST_BOOL;
        else if constexpr (std::is_same_v<T, double>)
            return cls_CollectionType::LIST_DOUBLE;
        else if constexpr (std::is_same_v<T, float>)
            return cls_CollectionType::LIST_FLOAT;
        else if constexpr (std::is_same_v<T, int>)
            return cls_CollectionType::LIST_INT;
        else if constexpr (std::is_same_v<T, unsigned>)
            return cls_CollectionType::LIST_UINT;
        else
            return cls_CollectionType::LIST_STRING;
    }();

    static void Read(const cls_ReadVisitor& reader, const cls_FieldHandle& field, cow_List<T>& values)
    {
        reader.ReadList(field, values);
    }
    static void Write(const cls_WriteVisitor& writer, const cls_FieldHandle& field, const cow_List<T>& values)
    {
        writer.WriteList(field, values);
    }
};

/// An object that may be shared, through its handle.
template <cls_Handle H>
struct cls_FieldCodec<H>
{
    static constexpr cls_AttributeType TYPE = cls_AttributeType::OBJECT;
    static constexpr unsigned TYPE_ID = cls_PointeeOf<H>::TypeId();
    static constexpr cls_CollectionType COLLECTION = cls_CollectionType::SINGLE;

    static void Read(const cls_ReadVisitor& reader, const cls_FieldHandle& field, H& handle)
    {
        reader.ReadShared(field, handle);
    }
    static void Write(const cls_WriteVisitor& writer, const cls_FieldHandle& field, const H& handle)
    {
        writer.WriteShared(field, handle);
    }
};

/// Objects by name, through handles, in the map's order.
template <cls_Handle H>
struct cls_FieldCodec<cow_Map<cow_String, H>>
{
    static constexpr cls_AttributeType TYPE = cls_AttributeType::OBJECT;
    static constexpr unsigned TYPE_ID = cls_MapTypeId;
    static constexpr cls_CollectionType COLLECTION = cls_CollectionType::MAP_STRING_OBJ;

    static void Read(const cls_ReadVisitor& reader, const cls_FieldHandle& field, cow_Map<cow_String, H>& map)
    {
        reader.ReadSharedMap(field, map);
    }
    static void Write(const cls_WriteVisitor& writer, const cls_FieldHandle& field,
                      const cow_Map<cow_String, H>& map)
    {
        writer.WriteSharedMap(field, map);
    }
};
