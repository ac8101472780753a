#pragma once

#include <omu_Primitive.h>
#include <omu_Readable.h>
#include <typeinfo>

class omu_PrimEnumBase;
class omu_PrimTuple;

/// Converts one value into what a command asks for: the rules of all argument readers (omu_Readable).
///
/// False: the value is of the wrong type, and the output is as it was.
class omu_ItemReader
{
public:
    omu_ItemReader() = delete;

    static bool Read(const omu_Primitive& item, bool& out);
    static bool Read(const omu_Primitive& item, int& out);
    static bool Read(const omu_Primitive& item, signed char& out);
    static bool Read(const omu_Primitive& item, short& out);
    static bool Read(const omu_Primitive& item, unsigned int& out);
    static bool Read(const omu_Primitive& item, float& out);
    static bool Read(const omu_Primitive& item, double& out);
    static bool Read(const omu_Primitive& item, cow_String& out);
    static bool Read(const omu_Primitive& item, atr_String& out);
    static bool Read(const omu_Primitive& item, omi_complex& out);
    static bool Read(const omu_Primitive& item, omu_OrvexName& out);
    static bool Read(const omu_Primitive& item, omu_PrimPath& out);
    static bool Read(const omu_Primitive& item, omu_PrimTuple& out);
    static bool Read(const omu_Primitive& item, omu_PrimEnumBase& out);
    static bool Read(const omu_Primitive& item, const omu_InterfaceObj*& out);
    static bool Read(const omu_Primitive& item, std::unique_ptr<omu_Primitive>& out);
    static bool Read(const omu_Primitive& item, cow_Map<cow_String, float>& out);
    template <class T>
    static bool Read(const omu_Primitive& item, cow_List<T>& out);
    template <class T>
    static bool Read(const omu_Primitive& item, cow_2DArray<T>& out);
    // A dictionary that a script holds is another class, whose entries are not here.
    template <class K>
    static bool Read(const omu_Primitive& item, omu_PrimDictionary<K>& out)
    {
        if (typeid(item) != typeid(omu_PrimDictionary<K>))
            return false;
        out = static_cast<const omu_PrimDictionary<K>&>(item);
        return true;
    }
    template <std::derived_from<omu_Primitive> T>
    static bool Read(const omu_Primitive& item, T& out)
    {
        const T* value = As<T>(item);
        if (value == nullptr)
            return false;
        out = *value;
        return true;
    }

    /// The value as a T, null when it is none. The exact class, which is nearly always met, costs no search.
    template <class T>
    static const T* As(const omu_Primitive& item)
    {
        return typeid(item) == typeid(T) ? static_cast<const T*>(&item) : dynamic_cast<const T*>(&item);
    }
};
