#pragma once

#include <pybind11/pybind11.h>

class scr_Object;

/// What orvex.Object offers of a sequence and of a dictionary. An object that is neither raises TypeError, a
/// stale one AccessError.
///
/// Indices of sequences mean what the library says, which is not what Python says: from the end when
/// negative, and what is still negative is the first; a greater one than the last raises IndexError. The ends
/// of a slice likewise, where the length is the greatest.
class scr_Items
{
public:
    scr_Items() = delete;

    static int Length(const scr_Object& self);
    /// Over the elements of a sequence as it is then, and over the keys of a dictionary as it was.
    static pybind11::object Iterate(const scr_Object& self);
    static bool Contains(const scr_Object& self, const pybind11::object& item);
    static pybind11::object Get(const scr_Object& self, const pybind11::object& key);
    static void Set(const scr_Object& self, const pybind11::object& key, const pybind11::object& value);
    static void Delete(const scr_Object& self, const pybind11::object& key);
};
