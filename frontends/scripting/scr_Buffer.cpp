#include <optional>
#include <scr_Buffer.h>
#include <scr_TravelRefusal.h>

namespace py = pybind11;

namespace
{
constexpr Py_ssize_t COLUMNS = 3;

/// "float32".
std::string NameOf(const scr_BufferView::Item& item)
{
    using Kind = scr_BufferView::Kind;
    const char* const kind =
        item.kind == Kind::FLOATING ? "float" : (item.kind == Kind::SIGNED ? "int" : "uint");
    return kind + std::to_string(8 * item.bytes);
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
    : view_(object.ptr(), PyBUF_RECORDS_RO)
{
    if (!PyObject_CheckBuffer(object.ptr()))
    {
        PyErr_Clear();
        scr_TravelRefusal(what,
                          floating ? "a buffer of float64 numbers, N x 3" : "a buffer of integers, M x 3")
            .Type(object);
    }
    if (!view_.IsOpen())
        throw py::error_already_set();
    const std::optional<scr_BufferView::Item> item = view_.ItemFormat();
    const scr_TravelRefusal numbers(what, floating ? "float64 numbers" : "integers");
    if (!item)
        numbers.Type("items of format " +
                     scr_TravelRefusal::Shown(py::bytes(std::string(view_.Format()))).substr(1));
    if (item->foreignOrder)
        numbers.Type("numbers in the other byte order, " + NameOf(*item));
    const bool isFloat = item->kind == scr_BufferView::Kind::FLOATING;
    if (isFloat != floating || (floating && item->bytes != sizeof(double)))
        numbers.Type(NameOf(*item) + " numbers");
    if (view_->ndim != 2 || view_->shape[1] != COLUMNS)
        scr_TravelRefusal(what, floating ? "shape (N, 3)" : "shape (M, 3)").Value(ShapeText(*view_));
    isSigned_ = item->kind == scr_BufferView::Kind::SIGNED;
    // Some lenders leave the strides out where the rows stand close.
    columnStride_ = view_->strides ? view_->strides[1] : view_->itemsize;
    rowStride_ = view_->strides ? view_->strides[0] : COLUMNS * view_->itemsize;
}
