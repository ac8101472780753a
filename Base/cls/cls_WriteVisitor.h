#pragma once

#include <atr_String.h>
#include <bas_Export.h>
#include <cls_FieldHandle.h>
#include <cls_ObjectSource.h>
#include <cls_Series.h>
#include <cls_Uid.h>
#include <cow_List.h>
#include <cow_String.h>

#include <vector>

/// Where a persistent object writes itself. The concrete writer decides the layout.
///
/// Every operation is const, because DBWrite takes its writer so; what changes lies behind the writer. The
/// pattern, attributes in the order of their field indices:
///
///     void X::DBWrite(const cls_WriteVisitor& writer) const
///     {
///         if (!writer.Announce(TypeId(), uid_))
///             return;
///         Base::DBWrite(writer.BaseWriter());          // where the class has a persistent base
///         writer.WriteDouble(FIELDS[VALUE], value_);
///     }
///
/// Attributes are stored under their names. A value that equals its default may be left out: reading an
/// absent attribute leaves the default.
class BAS_EXPORT cls_WriteVisitor
{
public:
    cls_WriteVisitor() = default;
    cls_WriteVisitor(const cls_WriteVisitor&) = delete;
    cls_WriteVisitor& operator=(const cls_WriteVisitor&) = delete;
    virtual ~cls_WriteVisitor();

    /// Tells class and identity of what is written next; once per writer, before anything else. False: it
    /// needs no writing, return at once. A writer from BaseWriter() never answers false, even where the
    /// base part's identifier was seen before.
    [[nodiscard]] virtual bool Announce(unsigned typeId, const cls_Uid& uid) const = 0;
    /// The same for a class whose objects carry no identifier: announces the null one.
    [[nodiscard]] bool AnnounceValue(unsigned typeId) const;
    /// The writer for the base part of the announced class; it lives as long as this one.
    virtual const cls_WriteVisitor& BaseWriter() const = 0;

    virtual void WriteBool(const cls_FieldHandle& field, bool value) const = 0;
    virtual void WriteChar(const cls_FieldHandle& field, char value) const = 0;
    virtual void WriteInt(const cls_FieldHandle& field, int value) const = 0;
    virtual void WriteFloat(const cls_FieldHandle& field, float value) const = 0;
    virtual void WriteDouble(const cls_FieldHandle& field, double value) const = 0;
    virtual void WriteString(const cls_FieldHandle& field, const cow_String& value) const = 0;
    virtual void WriteMessage(const cls_FieldHandle& field, const atr_String& value) const = 0;
    /// An enumeration, by the name of its member.
    virtual void WriteEnum(const cls_FieldHandle& field, const cow_String& name) const = 0;

    /// A member object held by value.
    template <class T>
    void WriteObject(const cls_FieldHandle& field, const T& object) const
    {
        PutObject(field, cls_ObjectSource::ByValue(object));
    }
    /// An object that may be shared: a handle (cow_COW, cow_CountedHld) or a plain pointer; null allowed.
    template <class H>
    void WriteShared(const cls_FieldHandle& field, const H& handleOrPointer) const
    {
        PutObject(field, cls_ObjectSource::Of(handleOrPointer));
    }

    /// A list of bool, int, unsigned, float, double or cow_String, with its column count (1 for a plain
    /// list).
    template <class T>
    void WriteList(const cls_FieldHandle& field, const cow_List<T>& values, int columns = 1) const
    {
        PutSharedList(field, &values, columns);
    }
    template <class T>
    void WriteList(const cls_FieldHandle& field, const T* values, int count, int columns = 1) const
    {
        PutList(field, std::span<const T>(values, static_cast<std::size_t>(count > 0 ? count : 0)), columns);
    }

    /// A map (cow_Map, cow_Btree) from int or cow_String to double, float, int, cow_String or unsigned, in
    /// the map's order.
    template <class M>
    void WriteMap(const cls_FieldHandle& field, const M& map) const
    {
        using Key = std::remove_cvref_t<decltype(map.KeyAt(0))>;
        using Value = std::remove_cvref_t<decltype(map.ValueAt(0))>;
        static_assert(!std::is_same_v<Value, bool>, "no collection code for a map to bool");
        cow_List<Key> keys;
        cow_List<Value> values;
        for (int i = 0; i < map.Length(); ++i)
        {
            keys.Append(map.KeyAt(i));
            values.Append(map.ValueAt(i));
        }
        PutMap(field, SpanOf(keys), SpanOf(values));
    }

    /// A list of objects held by value: any container with begin() and end().
    template <class L>
    void WriteObjectList(const cls_FieldHandle& field, const L& objects) const
    {
        std::vector<cls_ObjectSource> sources;
        for (const auto& object : objects)
            sources.push_back(cls_ObjectSource::ByValue(object));
        PutObjectList(field, sources);
    }
    /// A list of handles or plain pointers, null allowed: any container with begin() and end().
    template <class L>
    void WriteSharedList(const cls_FieldHandle& field, const L& handles) const
    {
        std::vector<cls_ObjectSource> sources;
        for (const auto& handle : handles)
            sources.push_back(cls_ObjectSource::Of(handle));
        PutObjectList(field, sources);
    }
    /// A list of objects that lie in an array with shared slots, null allowed: any with Length() and
    /// Get(int), which gives a const pointer (cow_ArrayCOW).
    template <class A>
    void WriteOwnedList(const cls_FieldHandle& field, const A& array) const
    {
        std::vector<cls_ObjectSource> sources;
        sources.reserve(static_cast<std::size_t>(array.Length()));
        for (int i = 0; i < array.Length(); ++i)
            sources.push_back(cls_ObjectSource::Of(array.Get(i), array));
        PutObjectList(field, sources);
    }
    /// A list of objects that the caller gathered, for containers of another shape.
    void WriteSources(const cls_FieldHandle& field, std::span<const cls_ObjectSource> objects) const
    {
        PutObjectList(field, objects);
    }

    /// A map (cow_Map, cow_Btree) from int or cow_String to objects held by value.
    template <class M>
    void WriteObjectMap(const cls_FieldHandle& field, const M& map) const
    {
        PutMapped(field, map, [](const auto& object) { return cls_ObjectSource::ByValue(object); });
    }
    /// A map (cow_Map, cow_Btree) from int or cow_String to handles or plain pointers, null allowed.
    template <class M>
    void WriteSharedMap(const cls_FieldHandle& field, const M& map) const
    {
        PutMapped(field, map, [](const auto& handle) { return cls_ObjectSource::Of(handle); });
    }
    /// A map to objects that the caller gathered, key by key, for containers of another shape.
    template <class K>
    void WriteSources(const cls_FieldHandle& field, const cow_List<K>& keys,
                      std::span<const cls_ObjectSource> objects) const
    {
        PutObjectMap(field, SpanOf(keys), objects);
    }

protected:
    /// One object: a value, a share or null.
    virtual void PutObject(const cls_FieldHandle& field, const cls_ObjectSource& object) const = 0;
    virtual void PutList(const cls_FieldHandle& field, const cls_PrimSpan& elements, int columns) const = 0;
    /// The same for a list that may be shared, so that it stays as it is; else as PutList.
    virtual void PutSharedList(const cls_FieldHandle& field, const cls_PrimList& list, int columns) const;
    virtual void PutObjectList(const cls_FieldHandle& field,
                               std::span<const cls_ObjectSource> objects) const = 0;
    /// Keys and values are of one length.
    virtual void PutMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                        const cls_PrimSpan& values) const = 0;
    /// Keys and objects are of one length.
    virtual void PutObjectMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                              std::span<const cls_ObjectSource> objects) const = 0;

private:
    template <class T>
    static std::span<const T> SpanOf(const cow_List<T>& list)
    {
        return std::span<const T>(list.Data(), static_cast<std::size_t>(list.Length()));
    }
    template <class M, class F>
    void PutMapped(const cls_FieldHandle& field, const M& map, F sourceOf) const
    {
        cow_List<std::remove_cvref_t<decltype(map.KeyAt(0))>> keys;
        std::vector<cls_ObjectSource> sources;
        sources.reserve(static_cast<std::size_t>(map.Length()));
        for (int i = 0; i < map.Length(); ++i)
        {
            keys.Append(map.KeyAt(i));
            sources.push_back(sourceOf(map.ValueAt(i)));
        }
        PutObjectMap(field, SpanOf(keys), sources);
    }
};
