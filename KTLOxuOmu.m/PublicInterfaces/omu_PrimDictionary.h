#pragma once

#include <cow_COW.h>
#include <cow_List.h>
#include <cow_Map.h>
#include <cow_String.h>
#include <memory>
#include <omu_PrimDictionaryBase.h>

/// A dictionary of values by key, K being int or cow_String; kind "{". It keeps the order of insertion: a
/// value replaced keeps its place, a key removed and put again goes last.
///
/// It owns its values; a copy shares them copy-on-write. A null value is legal and is written None. Keys are
/// compared whole, zero bytes included. Equality: the same keys with equal values, in any order.
template <class K>
class OXU_EXPORT omu_PrimDictionary : public omu_PrimDictionaryBase
{
    static constexpr bool HAS_TEXT_KEYS = std::is_same_v<K, cow_String>;
    static_assert(HAS_TEXT_KEYS || std::is_same_v<K, int>);
    static constexpr char REPRESENTS = HAS_TEXT_KEYS ? 's' : 'i';

public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, HAS_TEXT_KEYS ? 20 : 19); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_PrimDictionary() : omu_PrimDictionaryBase(REPRESENTS) {}
    explicit omu_PrimDictionary(const cls_ReadVisitor& reader);

    /// Makes room for so many entries.
    void Reserve(int count) { m_Entries.Reserve(count); }
    /// Takes the value over, also when it raises; replaces the one that the key has, in its place.
    void Put(const K& key, omu_Primitive* owned);
    void Put(const K& key, std::unique_ptr<omu_Primitive> value) { Put(key, value.release()); }
    /// Keeps a copy of the value.
    void Put(const K& key, const omu_Primitive& value) { Put(key, value.Copy()); }
    /// False when the key is not there.
    bool Remove(const K& key);
    void Clear();

    bool Has(const K& key) const { return m_Entries.IsMember(key); }
    /// The value, which the dictionary owns until it changes; null when the key is not there, or when its
    /// value is null.
    const omu_Primitive* Get(const K& key) const;
    /// In the order of insertion.
    cow_List<K> Keys() const { return m_Entries.Keys(); }
    /// The values themselves, in the order of the keys.
    cow_List<const omu_Primitive*> Values() const;
    /// By place in the order; a place outside 0 .. Length() - 1 raises the out-of-range error.
    const K& KeyAt(int place) const { return m_Entries.KeyAt(place); }
    const omu_Primitive* ValueAt(int place) const { return m_Entries.ValueAt(place).AsPtr(); }

    /// "{'a': 1, 'b': 2.0}", "{1: 'x'}", "{}".
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimDictionary* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;
    int Length() const override { return m_Entries.Length(); }

private:
    cow_Map<K, cow_COW<omu_Primitive>> m_Entries;
};

extern template class omu_PrimDictionary<int>;
extern template class omu_PrimDictionary<cow_String>;
