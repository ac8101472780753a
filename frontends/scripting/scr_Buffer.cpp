#include <bit>
#include <optional>
#include <scr_Buffer.h>
#include <scr_TravelRefusal.h>
#include <string_view>

namespace py = pybind11;

namespace
{
constexpr Py_ssize_t COLUMNS = 3;

/// One item as a buffer's format describes it.
struct Item
{
    scr_Buffer::Kind kind;
    bool foreignOrder;
    std::string name; ///< "float32"
};

/// None for what is no number: truth values, complex numbers, structures.
std::optional<Item> Parse(std::string_view format, Py_ssize_t bytes)
{
    using Kind = scr_Buffer::Kind;
    constexpr std::string_view LITTLE = "<";
    constexpr std::string_view BIG = ">!";
    bool foreign = false;
    if (!format.empty() && std::string_view("@=<>!").find(format[0]) != std::string_view::npos)
    {
        const std::string_view other = std::endian::native == std::endian::little ? BIG : LITTLE;
        foreign = bytes > 1 && other.find(format[0]) != std::string_view::npos;
        format.remove_prefix(1);
    }
    if (format.size() != 1 || bytes < 1)
        return std::nullopt;
    const std::string bits = std::to_string(8 * bytes);
    if (std::string_view("efdg").find(format[0]) != std::string_view::npos)
        return Item{Kind::FLOATING, foreign, "float" + bits};
    if (!std::has_single_bit(static_cast<std::size_t>(bytes)) || bytes > 8)
        return std::nullopt;
    if (std::string_view("bhilqn").find(format[0]) != std::string_view::npos)
        return Item{Kind::INTEGER, foreign, "int" + bits};
    if (std::string_view("BHILQN").find(format[0]) != std::string_view::npos)
        return Item{Kind::UNSIGNED, foreign, "uint" + bits};
    return std::nullopt;
}

std::string ShapeText(const Py_buffer& view)
{
    std::string text = "(";
    for (int i = 0; i < view.ndim; ++i)
        text += (i > 0 ? ", " : "") + std::to_string(view.shape[i]);
    return "shape " + text + (view.ndim == 1 ? ",)" : ")");
}
}

scr_Buffer::scr_Buffer(py::handle object, const std::string& what, bool floating)
{
    if (!PyObject_CheckBuffer(object.ptr()))
        scr_TravelRefusal(what,
                          floating ? "a buffer of float64 numbers, N x 3" : "a buffer of integers, M x 3")
            .Type(object);
    if (PyObject_GetBuffer(object.ptr(), &view_, PyBUF_RECORDS_RO) != 0)
        throw py::error_already_set();
    try
    {
        Look(what, floating);
    }
    catch (...)
    {
        PyBuffer_Release(&view_);
        throw;
    }
}

void scr_Buffer::Look(const std::string& what, bool floating)
{
    const std::string_view format = view_.format ? view_.format : "B";
    const std::optional<Item> item = Parse(format, view_.itemsize);
    const scr_TravelRefusal numbers(what, floating ? "float64 numbers" : "integers");
    if (!item)
        numbers.Type("items of format " + scr_TravelRefusal::Shown(py::bytes(std::string(format))).substr(1));
    if (item->foreignOrder)
        numbers.Type("numbers in the other byte order, " + item->name);
    const bool fits = floating ? item->kind == Kind::FLOATING && view_.itemsize == sizeof(double)
                               : item->kind != Kind::FLOATING;
    if (!fits)
        numbers.Type(item->name + " numbers");
    if (view_.ndim != 2 || view_.shape[1] != COLUMNS)
        scr_TravelRefusal(what, floating ? "shape (N, 3)" : "shape (M, 3)").Value(ShapeText(view_));
    kind_ = item->kind;
    // Some lenders leave the strides out where the rows stand close.
    columnStride_ = view_.strides ? view_.strides[1] : view_.itemsize;
    rowStride_ = view_.strides ? view_.strides[0] : COLUMNS * view_.itemsize;
}
