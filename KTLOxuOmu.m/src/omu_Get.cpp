#include <nex_RaiseWith.h>
#include <omu_Get.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_NestedReader.h>
#include <omu_PrimString.h>

namespace
{
using Dictionary = omu_PrimDictionary<cow_String>;
constexpr const char* MAP_EXPECTED = "Map of string to 2D sequence of Floats";

// The rows under one key; where the dictionary stands is `nesting`.
template <class T>
T RowsUnder(const Dictionary& dictionary, int place, const cow_String& nesting)
{
    const cow_String& key = dictionary.KeyAt(place);
    const omu_Primitive* value = dictionary.ValueAt(place);
    const auto* found = value != nullptr && value->IsType(omu_PrimTuple::KIND)
                            ? dynamic_cast<const omu_PrimTuple*>(value)
                            : nullptr;
    omu_PrimTuple rows;
    if (found == nullptr)
    {
        omu_KeywordTypeErrorException fault;
        fault.m_Keyword = key;
        fault.m_Expecting = rows.TypeString();
        fault.m_Found = omu_PrimTuple::FoundText(value);
        fault.m_NestingStr = nesting;
        nex_Raise(fault, "KTLOxuOmu.m/src/omu_Get", __LINE__);
    }
    rows.TakeItems(*found);
    rows.SetNesting(nesting + ("[" + omu_PrimString::Quoted(key) + "]"));
    return T(omu_NestedReader::Rows<double>(rows));
}

template <class T>
cow_Map<cow_String, T> RowsByKey(const Dictionary& dictionary, const cow_String& nesting)
{
    cow_Map<cow_String, T> values;
    for (int i = 0; i < dictionary.Length(); ++i)
        values.Insert(dictionary.KeyAt(i), RowsUnder<T>(dictionary, i, nesting));
    return values;
}
}

template <class T>
bool omu_Get(omu_PrimTuple& arguments, cow_List<T>& out)
{
    return omu_NestedReader::Get(arguments, out, &omu_NestedReader::Items<T>);
}

template <class T>
bool omu_Get(omu_Arguments& arguments, cow_List<T>& out, const cow_String& keyword)
{
    return omu_NestedReader::Get(arguments, out, &omu_NestedReader::Items<T>, keyword);
}

template <class T>
bool omu_Get(omu_PrimTuple& arguments, cow_2DArray<T>& out)
{
    return omu_NestedReader::Get(arguments, out, &omu_NestedReader::Rows<T>);
}

template <class T>
bool omu_Get(omu_Arguments& arguments, cow_2DArray<T>& out, const cow_String& keyword)
{
    return omu_NestedReader::Get(arguments, out, &omu_NestedReader::Rows<T>, keyword);
}

template <class T>
bool omu_Get(omu_PrimTuple& arguments, cow_Map<cow_String, T>& out)
{
    Dictionary dictionary;
    if (!arguments.Get(dictionary))
    {
        arguments.SetExpected(MAP_EXPECTED);
        return false;
    }
    out = RowsByKey<T>(dictionary, arguments.NestingOf(arguments.Cursor()));
    return true;
}

template <class T>
bool omu_Get(omu_Arguments& arguments, cow_Map<cow_String, T>& out, const cow_String& keyword)
{
    Dictionary dictionary;
    if (!arguments.Get(dictionary, keyword))
    {
        arguments.SetExpected(MAP_EXPECTED);
        return false;
    }
    out = RowsByKey<T>(dictionary, arguments.NestingOf(keyword));
    return true;
}

template OXU_EXPORT bool omu_Get(omu_PrimTuple&, cow_List<int>&);
template OXU_EXPORT bool omu_Get(omu_PrimTuple&, cow_List<double>&);
template OXU_EXPORT bool omu_Get(omu_PrimTuple&, cow_List<cow_String>&);
template OXU_EXPORT bool omu_Get(omu_Arguments&, cow_List<int>&, const cow_String&);
template OXU_EXPORT bool omu_Get(omu_Arguments&, cow_List<double>&, const cow_String&);
template OXU_EXPORT bool omu_Get(omu_Arguments&, cow_List<cow_String>&, const cow_String&);
template OXU_EXPORT bool omu_Get(omu_PrimTuple&, cow_2DArray<int>&);
template OXU_EXPORT bool omu_Get(omu_PrimTuple&, cow_2DArray<double>&);
template OXU_EXPORT bool omu_Get(omu_PrimTuple&, cow_2DArray<cow_String>&);
template OXU_EXPORT bool omu_Get(omu_Arguments&, cow_2DArray<int>&, const cow_String&);
template OXU_EXPORT bool omu_Get(omu_Arguments&, cow_2DArray<double>&, const cow_String&);
template OXU_EXPORT bool omu_Get(omu_Arguments&, cow_2DArray<cow_String>&, const cow_String&);
template OXU_EXPORT bool omu_Get(omu_PrimTuple&, cow_Map<cow_String, cls_xp2DArrayDouble>&);
template OXU_EXPORT bool omu_Get(omu_Arguments&, cow_Map<cow_String, cls_xp2DArrayDouble>&,
                                 const cow_String&);
