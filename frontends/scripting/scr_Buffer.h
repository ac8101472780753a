#pragma once

#include <cstddef>
#include <pybind11/pybind11.h>
#include <scr_BufferView.h>
#include <string>

/// A table of numbers, three a row, that a Python object lends through the buffer protocol. The object cannot
/// take the memory away before the buffer dies, but may change the numbers at any time.
///
/// Made, asked for its format, and destroyed with the interpreter lock held; the memory is read without.
class scr_Buffer
{
public:
    /// Borrows. Raises TypeError or ValueError, "WHAT: found FOUND, expected EXPECTED", unless the object
    /// lends numbers in the machine's byte order, of rank 2 with three columns: doubles when floating,
    /// otherwise integers.
    scr_Buffer(pybind11::handle object, const std::string& what, bool floating);

    /// Of integers.
    bool IsSigned() const { return isSigned_; }
    /// 1, 2, 4 or 8.
    std::size_t ItemBytes() const { return static_cast<std::size_t>(view_->itemsize); }
    std::size_t Rows() const { return static_cast<std::size_t>(view_->shape[0]); }
    /// The first item; the others are found by the strides, which may be negative.
    const std::byte* First() const { return static_cast<const std::byte*>(view_->buf); }
    std::ptrdiff_t RowStride() const { return rowStride_; }
    std::ptrdiff_t ColumnStride() const { return columnStride_; }

private:
    scr_BufferView view_;
    bool isSigned_ = false;
    std::ptrdiff_t rowStride_ = 0;
    std::ptrdiff_t columnStride_ = 0;
};
