#pragma once

#include <cow_Shared.h>
#include <cow_Vector.h>
#include <nex_Raise.h>

#include <cstddef>

/// Copy-on-write rectangle of items, row by row in one piece; 0 x 0 at first.
///
/// The shape is fixed at construction; no rows, or rows of no columns, are legal. A copy shares, writing
/// access detaches, reading never does. A row or column outside raises nex_RangeException, a negative
/// shape too. Over a vector.
template <class T>
class cow_2DArray
{
public:
    using value_type = T;

    cow_2DArray() noexcept = default;
    cow_2DArray(int rows, int cols, const T& init = T()) : rows_(rows), cols_(cols)
    {
        if (rows < 0 || cols < 0)
            nex_RaiseRange(rows < 0 ? rows : cols, 0);
        if (rows > 0 && cols > 0)
            items_ = cow_Shared<Items>(
                Items(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols), init));
    }

    /// Writing access.
    T& operator()(int row, int col)
    {
        const std::size_t index = Index(row, col);
        return items_.Write()[index];
    }
    /// Writing access to all items, row by row; null when there are none.
    T* WriteData() { return items_ ? items_.Write().data() : nullptr; }

    int Rows() const noexcept { return rows_; }
    int Cols() const noexcept { return cols_; }
    bool IsEmpty() const noexcept { return rows_ == 0 || cols_ == 0; }
    const T& operator()(int row, int col) const { return Get(row, col); }
    const T& Get(int row, int col) const
    {
        const std::size_t index = Index(row, col);
        return (*items_.Get())[index];
    }
    /// All items, row by row; null when there are none.
    const T* Data() const noexcept { return items_ ? items_->data() : nullptr; }
    bool SharesWith(const cow_2DArray& other) const noexcept { return items_.SharesWith(other.items_); }

    /// Same shape, and item by item with T's own equality.
    friend bool operator==(const cow_2DArray& a, const cow_2DArray& b)
    {
        return a.rows_ == b.rows_ && a.cols_ == b.cols_ &&
               (a.IsEmpty() || *a.items_.Get() == *b.items_.Get());
    }

private:
    using Items = cow_Vector<T>;

    std::size_t Index(int row, int col) const
    {
        if (row < 0 || row >= rows_)
            nex_RaiseRange(row, rows_);
        if (col < 0 || col >= cols_)
            nex_RaiseRange(col, cols_);
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col);
    }

    cow_Shared<Items> items_;
    int rows_ = 0;
    int cols_ = 0;
};
