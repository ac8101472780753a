#pragma once

#include <memory>
#include <omu_PrimTuple.h>
#include <pybind11/pybind11.h>

/// One value on its way from Python into the library; counts levels and items against the limits of
/// scr_Values.
class scr_ValueReader
{
public:
    std::unique_ptr<omu_Primitive> Read(PyObject* object);
    /// Appends one value; numbers without an object of their own.
    void Append(omu_PrimTuple& sequence, PyObject* object);

private:
    std::unique_ptr<omu_Primitive> ReadInteger(PyObject* object);
    template <class Sequence>
    std::unique_ptr<omu_Primitive> ReadSequence(PyObject* sequence);
    std::unique_ptr<omu_Primitive> ReadDictionary(PyObject* dictionary);
    template <class K>
    std::unique_ptr<omu_Primitive> ReadEntries(PyObject* dictionary);
    std::unique_ptr<omu_Primitive> ReadOther(PyObject* object);
    void Enter();
    void Count();

    int depth_ = 0;
    long long items_ = 0;
};
