#pragma once

#include <cstddef>
#include <optional>
#include <pybind11/pybind11.h>
#include <string_view>

/// The buffer that a Python object lends, for as long as this lives. Made and destroyed with the interpreter
/// lock held.
class scr_BufferView
{
public:
    enum class Kind { FLOATING, SIGNED, UNSIGNED };

    /// One item as the buffer's format describes it.
    struct Item
    {
        Kind kind;
        std::size_t bytes; ///< of an integer 1, 2, 4 or 8
        bool foreignOrder; ///< against the byte order of this machine
    };

    /// flags: what is asked for, PyBUF_FULL_RO and its like. Where the object does not lend that, the view is
    /// not open and Python's error is set.
    scr_BufferView(PyObject* object, int flags) : isOpen_(PyObject_GetBuffer(object, &buffer_, flags) == 0) {}
    ~scr_BufferView()
    {
        if (isOpen_)
            PyBuffer_Release(&buffer_);
    }
    scr_BufferView(const scr_BufferView&) = delete;
    scr_BufferView& operator=(const scr_BufferView&) = delete;

    bool IsOpen() const { return isOpen_; }
    const Py_buffer& operator*() const { return buffer_; }
    const Py_buffer* operator->() const { return &buffer_; }

    /// As the lender writes it; unsigned bytes where it writes none.
    std::string_view Format() const { return buffer_.format ? buffer_.format : "B"; }
    /// None for what is no number: truth values, complex numbers, structures.
    std::optional<Item> ItemFormat() const;

private:
    Py_buffer buffer_ = {};
    bool isOpen_;
};
