#pragma once

#include <cow_2DArray.h>
#include <cow_List.h>
#include <omu_PrimList.h>

/// A command's result as a list, owned by the caller: of numbers (INT or DOUBLE) or of strings. T is int,
/// double or cow_String.
template <class T>
omu_PrimList* omu_ReturnPrim(const cow_List<T>& values)
{
    return new omu_PrimList(values);
}

/// A list of lists, one for each row.
template <class T>
omu_PrimList* omu_ReturnPrim(const cow_2DArray<T>& values)
{
    auto rows = std::make_unique<omu_PrimList>();
    for (int row = 0; row < values.Rows(); ++row)
    {
        auto cells = std::make_unique<omu_PrimList>(values.Cols());
        for (int col = 0; col < values.Cols(); ++col)
            cells->Put(values.Get(row, col));
        rows->Put(std::move(cells));
    }
    return rows.release();
}
