#pragma once

#include <cow_2DArray.h>
#include <cow_List.h>
#include <cow_Map.h>
#include <memory>
#include <omi_complex.h>
#include <omu_Primitive.h>

class omu_DictIntPyObjectWrapper;
class omu_DictPyObjectWrapper;
class omu_DictStrPyObjectWrapper;
class omu_InterfaceObj;
class omu_ListPyObjectWrapper;
class omu_OrvexName;
class omu_PrimArray;
class omu_PrimEnumBase;
class omu_PrimException;
class omu_PrimExpr;
class omu_PrimNone;
class omu_PrimPath;
class omu_PrimTuple;
class omu_PrimType;
class omu_PrimWrapper;
class omu_PyObjectWrapper;
template <class K>
class omu_PrimDictionary;

/// Converts one value into what a command asks for: the rules of all argument readers.
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
    static bool Read(const omu_Primitive& item, omu_PrimPath& out);
    static bool Read(const omu_Primitive& item, omu_PrimType& out);
    static bool Read(const omu_Primitive& item, omu_PrimNone& out);
    static bool Read(const omu_Primitive& item, omu_PrimExpr& out);
    static bool Read(const omu_Primitive& item, omu_PrimException& out);
    static bool Read(const omu_Primitive& item, omu_PrimWrapper& out);
    static bool Read(const omu_Primitive& item, omu_PrimArray& out);
    static bool Read(const omu_Primitive& item, omu_PrimTuple& out);
    static bool Read(const omu_Primitive& item, omu_PrimDictionary<int>& out);
    static bool Read(const omu_Primitive& item, omu_PrimDictionary<cow_String>& out);
    static bool Read(const omu_Primitive& item, omu_PyObjectWrapper& out);
    static bool Read(const omu_Primitive& item, omu_ListPyObjectWrapper& out);
    static bool Read(const omu_Primitive& item, omu_DictPyObjectWrapper& out);
    static bool Read(const omu_Primitive& item, omu_DictIntPyObjectWrapper& out);
    static bool Read(const omu_Primitive& item, omu_DictStrPyObjectWrapper& out);
    static bool Read(const omu_Primitive& item, omu_PrimEnumBase& out);
    static bool Read(const omu_Primitive& item, omu_OrvexName& out);
    static bool Read(const omu_Primitive& item, const omu_InterfaceObj*& out);
    static bool Read(const omu_Primitive& item, std::unique_ptr<omu_Primitive>& out);
    static bool Read(const omu_Primitive& item, cow_List<int>& out);
    static bool Read(const omu_Primitive& item, cow_List<bool>& out);
    static bool Read(const omu_Primitive& item, cow_List<float>& out);
    static bool Read(const omu_Primitive& item, cow_List<double>& out);
    static bool Read(const omu_Primitive& item, cow_List<cow_String>& out);
    static bool Read(const omu_Primitive& item, cow_List<atr_String>& out);
    static bool Read(const omu_Primitive& item, cow_2DArray<double>& out);
    static bool Read(const omu_Primitive& item, cow_2DArray<cow_String>& out);
    static bool Read(const omu_Primitive& item, cow_Map<cow_String, float>& out);
};
