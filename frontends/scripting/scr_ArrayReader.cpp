#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <optional>
#include <scr_ArrayReader.h>
#include <scr_BufferView.h>
#include <scr_Exceptions.h>
#include <string>
#include <vector>

namespace py = pybind11;

namespace
{
using Item = scr_BufferView::Item;
using Kind = scr_BufferView::Kind;

template <class T>
T Fetch(const char* bytes)
{
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

int Narrow(long long value)
{
    if (value < INT_MIN || value > INT_MAX)
        scr_Exceptions::Throw("OverflowError", "array element " + std::to_string(value) +
                                                   " is out of range; it must be -2147483648 to 2147483647");
    return static_cast<int>(value);
}

int IntegerAt(const char* bytes, const Item& item)
{
    const bool isSigned = item.kind == Kind::SIGNED;
    switch (item.bytes)
    {
    case 1:
        return isSigned ? Fetch<std::int8_t>(bytes) : Fetch<std::uint8_t>(bytes);
    case 2:
        return isSigned ? Fetch<std::int16_t>(bytes) : Fetch<std::uint16_t>(bytes);
    case 4:
        return isSigned ? Fetch<std::int32_t>(bytes) : Narrow(Fetch<std::uint32_t>(bytes));
    default:
        // What only an unsigned integer holds is too great in any case.
        return isSigned ? Narrow(Fetch<std::int64_t>(bytes))
                        : Narrow(static_cast<long long>(
                              std::min<std::uint64_t>(Fetch<std::uint64_t>(bytes), LLONG_MAX)));
    }
}

template <class T, class F>
cow_List<T> Elements(const char* bytes, int count, std::size_t size, F at)
{
    std::vector<T> elements(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < elements.size(); ++i)
        elements[i] = at(bytes + i * size);
    return cow_List<T>::FromArray(elements.data(), count);
}

// The elements row by row, in the byte order of this machine.
std::vector<char> Bytes(const Py_buffer& buffer, const Item& item)
{
    std::vector<char> bytes(static_cast<std::size_t>(buffer.len));
    if (PyBuffer_ToContiguous(bytes.data(), const_cast<Py_buffer*>(&buffer), buffer.len, 'C') != 0)
        throw py::error_already_set();
    if (item.foreignOrder)
        for (std::size_t at = 0; at + item.bytes <= bytes.size(); at += item.bytes)
            std::reverse(bytes.data() + at, bytes.data() + at + item.bytes);
    return bytes;
}

std::unique_ptr<omu_PrimArray> ArrayOf(const cow_List<int>& shape, const char* bytes, int count,
                                       const Item& item)
{
    if (item.kind != Kind::FLOATING)
        return std::make_unique<omu_PrimArray>(
            shape,
            Elements<int>(bytes, count, item.bytes, [&item](const char* at) { return IntegerAt(at, item); }));
    if (item.bytes == 8)
        return std::make_unique<omu_PrimArray>(shape, Elements<double>(bytes, count, 8, &Fetch<double>));
    if (item.bytes == 4)
        return std::make_unique<omu_PrimArray>(shape, Elements<float>(bytes, count, 4, &Fetch<float>));
    return std::make_unique<omu_PrimArray>(shape, Elements<float>(bytes, count, 2, [](const char* at) {
                                               return static_cast<float>(
                                                   PyFloat_Unpack2(at, PY_LITTLE_ENDIAN));
                                           }));
}
}

std::unique_ptr<omu_Primitive> scr_ArrayReader::Read(PyObject* object)
{
    if (!PyObject_CheckBuffer(object) || PyBytes_Check(object) || PyByteArray_Check(object))
        return nullptr;
    const scr_BufferView view(object, PyBUF_FULL_RO);
    if (!view.IsOpen())
    {
        // A released memoryview, an array in a form that cannot be exported: as good as no buffer.
        PyErr_Clear();
        return nullptr;
    }
    const std::optional<Item> item = view.ItemFormat();
    if (!item || (item->kind == Kind::FLOATING && item->bytes != 2 && item->bytes != 4 && item->bytes != 8))
        return nullptr;
    const Py_ssize_t count = view->len / view->itemsize;
    if (count > INT_MAX)
        scr_Exceptions::Throw("OverflowError", "array is too long; maximum length is 2147483647");
    const std::vector<char> bytes = Bytes(*view, *item);
    cow_List<int> shape;
    for (int i = 0; i < view->ndim && count > 0; ++i)
        shape.Append(static_cast<int>(view->shape[i]));
    if (shape.IsEmpty())
        shape.Append(static_cast<int>(count));
    auto array = ArrayOf(shape, bytes.data(), static_cast<int>(count), *item);
    if (view->ndim == 0)
        return std::make_unique<omu_PrimNumber>(array->Element(0));
    return array;
}
