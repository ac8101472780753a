#pragma once

#include <cls_ClassMetadata.h>
#include <cls_FieldCodec.h>
#include <tuple>

/// An attribute that a member of T holds, and the name under which it is stored.
template <class T, class M>
struct cls_Field
{
    const char* name;
    M T::*member;
};
/// clang deduces an aggregate's arguments by itself from version 17 on.
template <class T, class M>
cls_Field(const char*, M T::*) -> cls_Field<T, M>;

/// The attributes of a class, listed once for its metadata, its reader and its writer:
///
///     constexpr cls_Fields FIELDS(cls_Field{"m_Keyword", &X::m_Keyword}, cls_Field{"m_Code", &X::m_Code});
///
/// A field's index is its place: append only, a retired field keeps its place. cls_FieldCodec says what a
/// member may be. A class whose members are private lists them in a private static function.
template <class T, class... M>
class cls_Fields
{
public:
    constexpr explicit cls_Fields(cls_Field<T, M>... fields) : fields_(fields...) {}

    void Declare(cls_ClassMetadata& meta) const
    {
        Each([&meta]<class V>(const cls_FieldHandle& field, V T::*) {
            using Codec = cls_FieldCodec<V>;
            meta.AddAttribute(field, Codec::TYPE, Codec::TYPE_ID, Codec::COLLECTION);
        });
    }
    /// Members whose attributes are absent keep what they have.
    void Read(const cls_ReadVisitor& reader, T& object) const
    {
        Each([&]<class V>(const cls_FieldHandle& field, V T::*member) {
            cls_FieldCodec<V>::Read(reader, field, object.*member);
        });
    }
    void Write(const cls_WriteVisitor& writer, const T& object) const
    {
        Each([&]<class V>(const cls_FieldHandle& field, V T::*member) {
            cls_FieldCodec<V>::Write(writer, field, object.*member);
        });
    }

private:
    template <class F>
    void Each(F look) const
    {
        std::apply(
            [&look](const auto&... field) {
                int index = 0;
                (look(cls_FieldHandle{index++, field.name}, field.member), ...);
            },
            fields_);
    }

    std::tuple<cls_Field<T, M>...> fields_;
};
