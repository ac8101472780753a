#pragma once

#include <atr_String.h>
#include <bas_Export.h>
#include <cls_CopySink.h>
#include <cls_FieldHandle.h>
#include <cls_HandleSink.h>
#include <cls_Series.h>
#include <cls_SlotSink.h>
#include <cls_Uid.h>
#include <cls_ValueSink.h>
#include <cow_List.h>
#include <cow_String.h>

/// Where a persistent object reads itself from, in its constructor. The pattern, which mirrors DBWrite:
///
///     X::X(const cls_ReadVisitor& reader) : Base(reader.BaseReader()), uid_(reader.Uid())
///     {
///         reader.ReadDouble(FIELDS[VALUE], value_);
///     }
///
/// Every Read function looks its attribute up by name. It answers false where the attribute is absent and
/// then leaves the output alone; so it does when it throws. Wrong data (another type than asked for, an
/// object of a wrong or unknown class, a cycle) throws the concrete reader's exception. The answer may be
/// ignored where the default is right.
class BAS_EXPORT cls_ReadVisitor
{
public:
    cls_ReadVisitor() = default;
    cls_ReadVisitor(const cls_ReadVisitor&) = delete;
    cls_ReadVisitor& operator=(const cls_ReadVisitor&) = delete;
    virtual ~cls_ReadVisitor();

    /// Class of the part being read, as stored.
    virtual unsigned TypeId() const = 0;
    /// Release of the layout in which this part was stored; older layouts choose their reading by it.
    virtual unsigned Version() const = 0;
    /// Identifier of this part, as announced when it was written; null where there was none.
    virtual cls_Uid Uid() const = 0;
    /// The reader of the base part; it lives as long as this one. Where the data has no base part, it has no
    /// attributes, version 0 and a null identifier.
    virtual const cls_ReadVisitor& BaseReader() const = 0;

    virtual bool ReadBool(const cls_FieldHandle& field, bool& value) const = 0;
    virtual bool ReadChar(const cls_FieldHandle& field, char& value) const = 0;
    virtual bool ReadInt(const cls_FieldHandle& field, int& value) const = 0;
    virtual bool ReadFloat(const cls_FieldHandle& field, float& value) const = 0;
    virtual bool ReadDouble(const cls_FieldHandle& field, double& value) const = 0;
    virtual bool ReadString(const cls_FieldHandle& field, cow_String& value) const = 0;
    virtual bool ReadMessage(const cls_FieldHandle& field, atr_String& value) const = 0;
    /// The name of an enumeration's member, unchecked.
    virtual bool ReadEnum(const cls_FieldHandle& field, cow_String& name) const = 0;

    /// An object held by value.
    template <class T>
    bool ReadObject(const cls_FieldHandle& field, T& object) const
    {
        auto put = [&object](T&& found) { object = std::move(found); };
        cls_ValueSink<T, decltype(put)> sink(put);
        return GetObject(field, sink);
    }
    /// A shared object into a handle (cow_COW, cow_CountedHld). References to one stored object share it.
    template <cls_Handle H>
    bool ReadShared(const cls_FieldHandle& field, H& handle) const
    {
        auto put = [&handle](H found) { handle = std::move(found); };
        cls_HandleSink<H, decltype(put)> sink(put);
        return GetObject(field, sink);
    }
    /// An object that its holder owns alone; empty where null was stored.
    template <class T>
    bool ReadOwned(const cls_FieldHandle& field, std::unique_ptr<T>& object) const
    {
        auto put = [&object](std::unique_ptr<T> found) { object = std::move(found); };
        cls_CopySink<T, decltype(put)> sink(put);
        return GetObject(field, sink);
    }

    /// A list of bool, int, unsigned, float, double or cow_String.
    template <class T>
    bool ReadList(const cls_FieldHandle& field, cow_List<T>& values) const
    {
        int columns = 1;
        return ReadList(field, values, columns);
    }
    /// The same with the column count that was stored.
    template <class T>
    bool ReadList(const cls_FieldHandle& field, cow_List<T>& values, int& columns) const
    {
        return GetList(field, &values, columns);
    }

    /// A map (cow_Map, cow_Btree) from int or cow_String to double, float, int, cow_String or unsigned.
    template <class M>
    bool ReadMap(const cls_FieldHandle& field, M& map) const
    {
        using Value = std::remove_cvref_t<decltype(map.ValueAt(0))>;
        static_assert(!std::is_same_v<Value, bool>, "no collection code for a map to bool");
        cow_List<std::remove_cvref_t<decltype(map.KeyAt(0))>> keys;
        cow_List<Value> values;
        if (!GetMap(field, &keys, &values))
            return false;
        map = Joined<M>(keys, values);
        return true;
    }

    /// A list of objects held by value.
    template <class T>
    bool ReadObjectList(const cls_FieldHandle& field, cow_List<T>& objects) const
    {
        cow_List<T> found;
        auto put = [&found](T&& object) { found.Append(std::move(object)); };
        cls_ValueSink<T, decltype(put)> sink(put);
        return Assigned(GetObjectList(field, sink), objects, found);
    }
    /// A list of handles.
    template <cls_Handle H>
    bool ReadSharedList(const cls_FieldHandle& field, cow_List<H>& handles) const
    {
        cow_List<H> found;
        auto put = [&found](H handle) { found.Append(std::move(handle)); };
        cls_HandleSink<H, decltype(put)> sink(put);
        return Assigned(GetObjectList(field, sink), handles, found);
    }
    /// A list of objects into an array with shared slots (cow_ArrayCOW).
    template <cls_SlotArray A>
    bool ReadOwnedList(const cls_FieldHandle& field, A& array) const
    {
        A found;
        cls_SlotSink<A> sink(found);
        return Assigned(GetObjectList(field, sink), array, found);
    }
    /// A list of objects that each have one owner: `put` receives a std::unique_ptr<T> for each, in order. On
    /// an exception `put` has received the objects before the fault; let it fill something of its own.
    template <class T, class F>
    bool ReadOwnedList(const cls_FieldHandle& field, F put) const
    {
        cls_CopySink<T, F> sink(std::move(put));
        return GetObjectList(field, sink);
    }

    /// A map (cow_Map, cow_Btree) from int or cow_String to objects held by value.
    template <class M>
    bool ReadObjectMap(const cls_FieldHandle& field, M& map) const
    {
        using T = std::remove_cvref_t<decltype(map.ValueAt(0))>;
        cow_List<T> found;
        auto put = [&found](T&& object) { found.Append(std::move(object)); };
        cls_ValueSink<T, decltype(put)> sink(put);
        return GetMapped(field, map, sink, found);
    }
    /// A map (cow_Map, cow_Btree) from int or cow_String to handles.
    template <class M>
    bool ReadSharedMap(const cls_FieldHandle& field, M& map) const
    {
        using H = std::remove_cvref_t<decltype(map.ValueAt(0))>;
        cow_List<H> found;
        auto put = [&found](H handle) { found.Append(std::move(handle)); };
        cls_HandleSink<H, decltype(put)> sink(put);
        return GetMapped(field, map, sink, found);
    }
    /// Keys and handles of a map to objects, apart, for containers of another shape.
    template <class K, cls_Handle H>
    bool ReadSharedMap(const cls_FieldHandle& field, cow_List<K>& keys, cow_List<H>& handles) const
    {
        cow_List<K> foundKeys;
        cow_List<H> found;
        auto put = [&found](H handle) { found.Append(std::move(handle)); };
        cls_HandleSink<H, decltype(put)> sink(put);
        if (!GetObjectMap(field, &foundKeys, sink))
            return false;
        keys = foundKeys;
        handles = found;
        return true;
    }

protected:
    /// One object; the sink is called once.
    virtual bool GetObject(const cls_FieldHandle& field, cls_ObjectSink& sink) const = 0;
    /// Replaces the sink's list and the column count.
    virtual bool GetList(const cls_FieldHandle& field, const cls_PrimSink& elements, int& columns) const = 0;
    /// A list of objects; the sink is called once for each.
    virtual bool GetObjectList(const cls_FieldHandle& field, cls_ObjectSink& sink) const = 0;
    /// Replaces both lists by keys and values of one length.
    virtual bool GetMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                        const cls_PrimSink& values) const = 0;
    /// Replaces the keys; the sink is called once for each key, in the order of the keys.
    virtual bool GetObjectMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                              cls_ObjectSink& sink) const = 0;

private:
    template <class L>
    static bool Assigned(bool present, L& to, const L& from)
    {
        if (present)
            to = from;
        return present;
    }
    template <class M, class K, class V>
    static M Joined(const cow_List<K>& keys, const cow_List<V>& values)
    {
        M joined;
        for (int i = 0; i < keys.Length(); ++i)
            joined.Insert(keys.Get(i), values.Get(i));
        return joined;
    }
    template <class M, class S, class V>
    bool GetMapped(const cls_FieldHandle& field, M& map, S& sink, const cow_List<V>& found) const
    {
        cow_List<std::remove_cvref_t<decltype(map.KeyAt(0))>> keys;
        if (!GetObjectMap(field, &keys, sink))
            return false;
        map = Joined<M>(keys, found);
        return true;
    }
};
