#pragma once

#include <memory>
#include <omu_PrimArray.h>
#include <pybind11/pybind11.h>

/// Buffers of numbers (array.array, memoryview, numpy arrays) as numeric arrays: any strides, any byte order,
/// integers of every size as int, 2- and 4-byte floats as float, 8-byte ones as double.
class scr_ArrayReader
{
public:
    scr_ArrayReader() = delete;

    /// Null for an object that offers no buffer of int or float; bytes and bytearray count as such. A buffer
    /// without dimensions gives its number. An integer that a 32-bit int cannot hold, or a length that an int
    /// cannot, raises OverflowError; a shape with a 0 in it becomes that of the empty array.
    static std::unique_ptr<omu_Primitive> Read(PyObject* object);
};
