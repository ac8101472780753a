#pragma once

#include <atr_String.h>
#include <concepts>
#include <cow_2DArray.h>
#include <cow_List.h>
#include <cow_Map.h>
#include <cow_String.h>
#include <memory>
#include <omi_complex.h>

class omu_DictIntPyObjectWrapper;
class omu_DictPyObjectWrapper;
class omu_DictStrPyObjectWrapper;
class omu_InterfaceObj;
class omu_ListPyObjectWrapper;
class omu_OrvexName;
class omu_PrimArray;
class omu_PrimException;
class omu_PrimExpr;
class omu_PrimNone;
class omu_PrimPath;
class omu_PrimType;
class omu_PrimWrapper;
class omu_Primitive;
class omu_PyObjectWrapper;
template <class K>
class omu_PrimDictionary;

template <class T, class... Types>
concept omu_OneOf = (std::same_as<T, Types> || ...);

/// Numbers take a number of that very data type, or an INT in its range; int takes an INT alone; float and
/// double take any number; bool a Boolean, or 0 or 1 as INT; omi_complex a complex number or any other. Texts
/// take a string, translated or not.
template <class T>
concept omu_ReadableScalar = omu_OneOf<T, bool, int, signed char, short, unsigned int, float, double,
                                       cow_String, atr_String, omi_complex>;

/// Values take a value of that class. A path also takes a string, the path of that file. An omu_OrvexName
/// takes a string in the form that it asks for; one in another form raises its exception at once. A pointer
/// to an interface object takes the item itself, which the arguments own until they change; a std::unique_ptr
/// a copy of any value.
template <class T>
concept omu_ReadableValue =
    omu_OneOf<T, omu_OrvexName, omu_PrimPath, omu_PrimType, omu_PrimNone, omu_PrimExpr, omu_PrimException,
              omu_PrimWrapper, omu_PrimArray, omu_PrimDictionary<int>, omu_PrimDictionary<cow_String>,
              omu_PyObjectWrapper, omu_ListPyObjectWrapper, omu_DictPyObjectWrapper,
              omu_DictIntPyObjectWrapper, omu_DictStrPyObjectWrapper, std::unique_ptr<omu_Primitive>> ||
    std::same_as<T, const omu_InterfaceObj*>;

/// Sequences take a tuple or list of which each element is one that the element's type takes; of numbers also
/// an array of one dimension, or of two for a 2D one. The rows of a 2D sequence are equally long; no rows
/// give 0 x 0. A map takes two-item sequences of text and number, or a dictionary with text keys.
template <class T>
concept omu_ReadableSequence =
    omu_OneOf<T, cow_List<int>, cow_List<bool>, cow_List<float>, cow_List<double>, cow_List<cow_String>,
              cow_List<atr_String>, cow_2DArray<double>, cow_2DArray<cow_String>, cow_Map<cow_String, float>>;

/// What argument readers deliver, besides tuples and symbolic constants.
template <class T>
concept omu_Readable = omu_ReadableScalar<T> || omu_ReadableValue<T> || omu_ReadableSequence<T>;
