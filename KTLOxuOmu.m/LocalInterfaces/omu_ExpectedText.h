#pragma once

#include <omu_DictIntPyObjectWrapper.h>
#include <omu_DictPyObjectWrapper.h>
#include <omu_DictStrPyObjectWrapper.h>
#include <omu_ListPyObjectWrapper.h>
#include <omu_PrimArray.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimNone.h>
#include <omu_PrimPath.h>
#include <omu_PrimTuple.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>
#include <omu_PyObjectWrapper.h>
#include <omu_Readable.h>

/// What a type error says was expected, for each type that can be read. A few texts differ between an
/// argument read by position and one read by keyword, on purpose: scripts have come to know both.
class omu_ExpectedText
{
public:
    omu_ExpectedText() = delete;

    template <class T>
    static atr_String Positional(const T& out)
    {
        return Common(out);
    }
    static atr_String Positional(const cow_List<double>&) { return "sequence of Doubles"; }
    static atr_String Positional(const cow_List<atr_String>&) { return "sequence of translated Strings"; }
    static atr_String Positional(const cow_2DArray<double>&) { return "2D sequence of Doubles"; }

    template <class T>
    static atr_String ByKeyword(const T& out)
    {
        return Common(out);
    }
    static atr_String ByKeyword(const cow_List<double>&) { return "sequence of Floats"; }
    static atr_String ByKeyword(const cow_List<atr_String>&) { return "sequence of Translated Strings"; }
    static atr_String ByKeyword(const cow_2DArray<double>&) { return "2D sequence of Floats"; }

private:
    static atr_String Common(const bool&) { return "False, True, 0 or 1"; }
    static atr_String Common(const int&) { return "int"; }
    static atr_String Common(const signed char&) { return "int"; }
    static atr_String Common(const short&) { return "int"; }
    static atr_String Common(const unsigned int&) { return "int"; }
    static atr_String Common(const float&) { return "float"; }
    static atr_String Common(const double&) { return "float"; }
    static atr_String Common(const cow_String&) { return "string"; }
    static atr_String Common(const omu_OrvexName&) { return "string"; }
    static atr_String Common(const atr_String&) { return "tran_string"; }
    static atr_String Common(const omi_complex&) { return "complex"; }
    static atr_String Common(const cow_List<int>&) { return "sequence of Integers"; }
    static atr_String Common(const cow_List<bool>&) { return "sequence of Bool"; }
    static atr_String Common(const cow_List<float>&) { return "sequence of Floats"; }
    static atr_String Common(const cow_List<cow_String>&) { return "sequence of Strings"; }
    static atr_String Common(const cow_2DArray<cow_String>&) { return "2D sequence of Strings"; }
    static atr_String Common(const cow_Map<cow_String, float>&) { return "Map of string to float"; }
    static atr_String Common(const omu_InterfaceObj* const&) { return "OrvexObject"; }
    static atr_String Common(const std::unique_ptr<omu_Primitive>&) { return "primitive"; }
    static atr_String Common(const omu_PrimWrapper&) { return "wrapper"; }
    static atr_String Common(const omu_PyObjectWrapper&) { return "scripting object"; }
    static atr_String Common(const omu_ListPyObjectWrapper&) { return "scripting list"; }
    static atr_String Common(const omu_DictPyObjectWrapper&) { return "scripting dictionary"; }
    static atr_String Common(const omu_DictIntPyObjectWrapper&) { return "scripting dictionary"; }
    static atr_String Common(const omu_DictStrPyObjectWrapper&) { return "scripting dictionary"; }
    /// The name of the kind; of a constant all that its enumeration permits.
    static atr_String Common(const omu_Primitive& out) { return out.TypeString(); }
    static atr_String Common(const omu_PrimEnumBase& out)
    {
        const atr_String permissible = out.TypeString();
        return permissible.IsEmpty() ? atr_String("symbolic constant") : permissible;
    }
};
