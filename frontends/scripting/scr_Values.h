#pragma once

#include <memory>
#include <omu_PrimTuple.h>
#include <pybind11/pybind11.h>

/// Values between Python and the library. What goes there and comes back keeps type and value:
///
/// - None, bool, float, complex, str: none, boolean, number, complex, string.
/// - int: INT up to 2147483647 and UINT up to 4294967295, beyond OverflowError.
/// - tuple, list, dict: the same, level by level; keys all str or all int, else TypeError.
/// - SymbolicConstant, Type, Path, Object: symbolic constant, type, path, interface object.
/// - buffers of int or float: numeric array, which comes back as orvex.Array; without a dimension a number;
///   elements beyond a 32-bit int raise OverflowError.
/// - anything else, bytes too: the object itself, wrapped.
///
/// Subclasses of int, float, complex, str, tuple, list and dict are taken as what they derive from.
class scr_Values
{
public:
    /// How many levels of tuples, lists and dictionaries a value from Python may have; 1 is a flat list. A
    /// deeper one, such as a list that holds itself, raises OverflowError. Half of what C++ allows is left to
    /// commands that put a value into others.
    static constexpr int MAX_DEPTH = 200;
    /// How many values one may hold in all, so that lists that share their items level by level cannot unfold
    /// into more than there is memory for.
    static constexpr long long MAX_ITEMS = 50'000'000;

    scr_Values() = delete;

    static std::unique_ptr<omu_Primitive> FromPython(PyObject* object);
    /// Appends the value to a sequence of arguments.
    static void Append(omu_PrimTuple& sequence, PyObject* object);

    /// A new object; null gives None.
    static pybind11::object ToPython(const omu_Primitive* value);
    /// The same for a value that nobody else needs.
    static pybind11::object ToPython(std::unique_ptr<omu_Primitive> value);
};
