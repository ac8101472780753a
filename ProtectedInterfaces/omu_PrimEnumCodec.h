#pragma once

#include <cls_FieldCodec.h>
#include <omu_PrimEnum.h>

/// Enumerations among the members that cls_Fields lists: stored by the names of omu_PrimEnum<E, 1>. A stored
/// name that the table lacks raises omu_ValueErrorException.
template <class E>
requires std::is_enum_v<E>
struct cls_FieldCodec<E>
{
    static constexpr cls_AttributeType TYPE = cls_AttributeType::ENUM;
    static constexpr unsigned TYPE_ID = cls_UniversalRoot;
    static constexpr cls_CollectionType COLLECTION = cls_CollectionType::SINGLE;

    static void Read(const cls_ReadVisitor& reader, const cls_FieldHandle& field, E& value)
    {
        cow_String name;
        if (reader.ReadEnum(field, name))
            value = omu_PrimEnum<E, 1>::ValueOf(name);
    }
    static void Write(const cls_WriteVisitor& writer, const cls_FieldHandle& field, E value)
    {
        writer.WriteEnum(field, omu_PrimEnum<E, 1>::NameOf(value));
    }
};
