#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <optional>
#include <scr_ArrayReader.h>
#include <scr_Exceptions.h>
#include <string>
#include <string_view>
#include <vector>

namespace py = pybind11;

namespace
{
enum class Kind { SIGNED, UNSIGNED, FLOATING };

struct Format
{
    Kind kind;
    std::size_t size; // of one element, in bytes
    bool swapped;     // against the byte order of this machine
};

// The buffer while it is looked at.
struct View
{
    explicit View(PyObject* object) : isOpen(PyObject_GetBuffer(object, &buffer, PyBUF_FULL_RO) == 0) {}
    ~View()
    {
        if (isOpen)
            PyBuffer_Release(&buffer);
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    Py_buffer buffer{};
    bool isOpen;
};

// Nothing for a format that is not one number of 1 to 8 bytes.
std::optional<Format> FormatOf(const Py_buffer& buffer)
{
    std::string_view text = buffer.format == nullptr ? "B" : buffer.format;
    char order = '@';
    if (!text.empty() && std::string_view("@=<>!").find(text.front()) != std::string_view::npos)
    {
        order = text.front();
        text.remove_prefix(1);
    }
    if (text.size() != 1)
        return {};
    const auto has = [&text](std::string_view letters) { return letters.find(text.front()) != letters.npos; };
    const auto size = static_cast<std::size_t>(buffer.itemsize);
    const bool swapped = (order == '>' || order == '!') && size > 1;
    if (has("bhilqn") && (size == 1 || size == 2 || size == 4 || size == 8))
        return Format{Kind::SIGNED, size, swapped};
    if (has("BHILQN") && (size == 1 || size == 2 || size == 4 || size == 8))
        return Format{Kind::UNSIGNED, size, swapped};
    if (has("efd") && (size == 2 || size == 4 || size == 8))
        return Format{Kind::FLOATING, size, swapped};
    return {};
}

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

int IntegerAt(const char* bytes, const Format& format)
{
    const bool isSigned = format.kind == Kind::SIGNED;
    switch (format.size)
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
std::vector<char> Bytes(const Py_buffer& buffer, const Format& format)
{
    std::vector<char> bytes(static_cast<std::size_t>(buffer.len));
    if (PyBuffer_ToContiguous(bytes.data(), const_cast<Py_buffer*>(&buffer), buffer.len, 'C') != 0)
        throw py::error_already_set();
    if (format.swapped)
        for (std::size_t at = 0; at + format.size <= bytes.size(); at += format.size)
            std::reverse(bytes.data() + at, bytes.data() + at + format.size);
    return bytes;
}

std::unique_ptr<omu_PrimArray> ArrayOf(const cow_List<int>& shape, const char* bytes, int count,
                                       const Format& format)
{
    if (format.kind != Kind::FLOATING)
        return std::make_unique<omu_PrimArray>(
            shape, Elements<int>(bytes, count, format.size,
                                 [&format](const char* at) { return IntegerAt(at, format); }));
    if (format.size == 8)
        return std::make_unique<omu_PrimArray>(shape, Elements<double>(bytes, count, 8, &Fetch<double>));
    if (format.size == 4)
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
    const View view(object);
    if (!view.isOpen)
    {
        // A released memoryview, an array in a form that cannot be exported: as good as no buffer.
        PyErr_Clear();
        return nullptr;
    }
    const std::optional<Format> format = FormatOf(view.buffer);
    if (!format)
        return nullptr;
    const Py_ssize_t count = view.buffer.len / view.buffer.itemsize;
    if (count > INT_MAX)
        scr_Exceptions::Throw("OverflowError", "array is too long; maximum length is 2147483647");
    const std::vector<char> bytes = Bytes(view.buffer, *format);
    cow_List<int> shape;
    for (int i = 0; i < view.buffer.ndim && count > 0; ++i)
        shape.Append(static_cast<int>(view.buffer.shape[i]));
    if (shape.IsEmpty())
        shape.Append(static_cast<int>(count));
    auto array = ArrayOf(shape, bytes.data(), static_cast<int>(count), *format);
    if (view.buffer.ndim == 0)
        return std::make_unique<omu_PrimNumber>(array->Element(0));
    return array;
}
