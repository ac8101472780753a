#include <KTLBasException.h>
#include <nex_RaiseWith.h>
#include <omu_Arguments.h>
#include <omu_DictIntObjABC.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_ItemReader.h>
#include <omu_KeyErrorException.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimList.h>
#include <omu_PrimString.h>
#include <omu_ValueErrorException.h>
#include <optional>
#include <oxu_FormatMessage.h>
#include <string>
#include <type_traits>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_DictIntObjABC";
constexpr const char* KEY_TAKEN = "toName %s  already exists";

cow_String KeyText(const cow_String& key)
{
    return key;
}

cow_String KeyText(int key)
{
    return cow_String(std::to_string(key));
}

cow_String KeyText(const omu_PrimEnumBase& key)
{
    return key.GetString();
}

// The key as scripts write it.
template <class K>
cow_String KeyRepr(const K& key)
{
    if constexpr (std::is_same_v<K, cow_String>)
        return omu_PrimString::Quoted(key);
    else
        return KeyText(key);
}

// The key that a value stands for; none for a value of another kind.
template <class K>
std::optional<K> KeyOf(const omu_Primitive& value)
{
    K key{};
    return omu_ItemReader::Read(value, key) ? std::optional(key) : std::nullopt;
}

void ReadNothing(omu_Arguments& arguments)
{
    arguments.Begin();
    arguments.End();
}

template <class K>
K ReadKey(omu_Arguments& arguments)
{
    K key{};
    arguments.Begin();
    arguments.Get(key, "key");
    arguments.End();
    return key;
}
}

template <class K>
const omu_InterfaceObj::TypeDesc& omu_DictIntObjABC<K>::Description()
{
    using Self = omu_DictIntObjABC;
    constexpr unsigned quiet = NOT_JOURNALLED;
    static const methodTable METHODS[] = {{"has_key", Method<&Self::MyHasKey>, quiet},
                                          {"keys", Method<&Self::MyKeys>, quiet},
                                          {"items", Method<&Self::MyItems>, quiet},
                                          {"values", Method<&Self::MyVals>, quiet},
                                          {"changeKey", Method<&Self::MyChangeKey>},
                                          {"_summary", Method<&Self::MySummary>, quiet},
                                          {"_summaryRow", Method<&Self::MySummaryRow>, quiet},
                                          {}};
    static const TypeDesc description = DescribeType("OrvexDictionary", METHODS, nullptr, nullptr, nullptr);
    return description;
}

template <class K>
omu_DictIntObjABC<K>::omu_DictIntObjABC(const omu_Shortcut& shortcut, omu_OperationRules rules,
                                        omu_PythonType pythonType)
    : omu_DictIntObj(shortcut, rules, pythonType)
{
    SetTypeDesc(Description());
}

template <class K>
omu_DictIntObjABC<K>::omu_DictIntObjABC(omu_OperationRules rules, omu_PythonType pythonType)
    : omu_DictIntObjABC(omu_Shortcut(), rules, pythonType)
{}

template <class K>
cow_String omu_DictIntObjABC<K>::TextOf(const K& key, const omu_PrimList* values, int place) const
{
    const cow_String name = GetKeyAsString(key);
    if (values != nullptr)
        return values->View(place, [&](const omu_Primitive* value) { return EntryText(name, value); });
    try
    {
        return EntryText(name, std::unique_ptr<omu_Primitive>(Subscript(key)).get());
    }
    catch (const KTLBasException& failure)
    {
        ReportSubscript(name, failure.UserReport());
        return UNKNOWN_VALUE;
    }
}

template <class K>
cow_String omu_DictIntObjABC<K>::AsString(int) const
{
    if (IsStale())
        return DefaultRepr();
    const cow_List<K> keys = Keys();
    std::unique_ptr<omu_PrimList> values;
    try
    {
        values.reset(Values());
    }
    catch (const KTLBasException&)
    {
        // Asked for one by one, those that can be had are written and the others told.
    }
    if (values && !FitsKeys(*values, keys.Length()))
        values.reset();
    cow_String text = "{";
    for (int place = 0; place < keys.Length(); ++place)
    {
        if (place > 0)
            text += ", ";
        text += KeyRepr(keys.Get(place)) + ": ";
        text += TextOf(keys.Get(place), values.get(), place);
    }
    return text += "}";
}

template <class K>
omu_PrimList* omu_DictIntObjABC<K>::KeyList() const
{
    const cow_List<K> keys = Keys();
    auto list = std::make_unique<omu_PrimList>(keys.Length());
    for (const K& key : keys)
        list->Put(key);
    return list.release();
}

template <class K>
omu_PrimList* omu_DictIntObjABC<K>::Values() const
{
    const cow_List<K> keys = Keys();
    auto list = std::make_unique<omu_PrimList>(keys.Length());
    for (const K& key : keys)
        list->Put(Subscript(key));
    return list.release();
}

template <class K>
omu_PrimList* omu_DictIntObjABC<K>::Items() const
{
    const cow_List<K> keys = Keys();
    std::unique_ptr<omu_PrimList> values(Values());
    if (!FitsKeys(*values, keys.Length()))
        values.reset();
    auto list = std::make_unique<omu_PrimList>(keys.Length());
    for (int place = 0; place < keys.Length(); ++place)
    {
        auto item = std::make_unique<omu_PrimTuple>(2);
        item->Put(keys.Get(place));
        item->Put(values ? values->Index(place) : Subscript(keys.Get(place)));
        list->Put(std::move(item));
    }
    return list.release();
}

template <class K>
bool omu_DictIntObjABC<K>::HasItem(const omu_Primitive& key) const
{
    const std::optional<K> typed = KeyOf<K>(key);
    return typed && HasKey(*typed);
}

template <class K>
std::unique_ptr<omu_Primitive> omu_DictIntObjABC<K>::Value(const K& key, bool required) const
{
    std::unique_ptr<omu_Primitive> value(Subscript(key));
    if (!value && required && !HasKey(key))
        nex_Raise(omu_KeyErrorException(GetKeyAsString(key)), SOURCE, __LINE__);
    return value;
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::Item(const omu_Primitive& key) const
{
    const std::optional<K> typed = KeyOf<K>(key);
    if (!typed)
        nex_Raise(omu_KeyErrorException(key.AsString(0)), SOURCE, __LINE__);
    return Value(*typed, true).release();
}

template <class K>
void omu_DictIntObjABC<K>::AssignItem(const omu_Primitive& key, const omu_Primitive& value) const
{
    const std::optional<K> typed = KeyOf<K>(key);
    if (!typed)
        nex_Raise(omu_GenericTypeErrorException(), SOURCE, __LINE__);
    Assign(*typed, value);
}

template <class K>
void omu_DictIntObjABC<K>::RemoveItem(const omu_Primitive& key) const
{
    const std::optional<K> typed = KeyOf<K>(key);
    if (!typed)
        nex_Raise(omu_KeyErrorException(key.AsString(0)), SOURCE, __LINE__);
    if (!HasKey(*typed))
        nex_Raise(omu_KeyErrorException(GetKeyAsString(*typed)), SOURCE, __LINE__);
    Remove(*typed);
}

template <class K>
bool omu_DictIntObjABC<K>::HasKey(const K& key) const
{
    return Keys().Find(key) >= 0;
}

template <class K>
void omu_DictIntObjABC<K>::Assign(const K&, const omu_Primitive&) const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}

template <class K>
void omu_DictIntObjABC<K>::Remove(const K&) const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}

template <class K>
void omu_DictIntObjABC<K>::ChangeKey(const K&, const K&) const
{
    nex_RaisePrim("ChangeKey NOT IMPLEMENTED", SOURCE, __LINE__);
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::Summary() const
{
    nex_RaisePrim("Summary NOT IMPLEMENTED", SOURCE, __LINE__);
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::SummaryRow(const K& key, int& columns) const
{
    const std::unique_ptr<omu_Primitive> value = Value(key, true);
    auto row = std::make_unique<omu_PrimTuple>();
    row->Put(GetKeyAsString(key));
    row->Put(value ? cow_String(value->TypeString()) : cow_String("None"));
    columns = row->Length();
    return row.release();
}

template <class K>
cow_String omu_DictIntObjABC<K>::GetKeyAsString(const K& key) const
{
    return KeyText(key);
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::MyHasKey(omu_Arguments& arguments) const
{
    return new omu_PrimBoolean(HasKey(ReadKey<K>(arguments)));
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::MyKeys(omu_Arguments& arguments) const
{
    ReadNothing(arguments);
    return KeyList();
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::MyItems(omu_Arguments& arguments) const
{
    ReadNothing(arguments);
    return Items();
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::MyVals(omu_Arguments& arguments) const
{
    ReadNothing(arguments);
    return Values();
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::MyChangeKey(omu_Arguments& arguments) const
{
    K from{};
    K to{};
    arguments.Begin();
    arguments.Get(from, "fromName");
    arguments.Get(to, "toName");
    arguments.End();
    if (HasKey(to))
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(KEY_TAKEN, GetKeyAsString(to))), SOURCE,
                  __LINE__);
    ChangeKey(from, to);
    return nullptr;
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::MySummary(omu_Arguments& arguments) const
{
    ReadNothing(arguments);
    return Summary();
}

template <class K>
omu_Primitive* omu_DictIntObjABC<K>::MySummaryRow(omu_Arguments& arguments) const
{
    int columns = 0;
    return SummaryRow(ReadKey<K>(arguments), columns);
}

template class omu_DictIntObjABC<cow_String>;
template class omu_DictIntObjABC<int>;
template class omu_DictIntObjABC<omu_PrimEnumBase>;
