#pragma once

#include <algorithm>
#include <cow_2DArray.h>
#include <cow_List.h>
#include <omu_PrimTuple.h>
#include <vector>

/// Reads the items of one sequence by their own Begin, Get and End, so that a fault names the place by the
/// sequence's nesting text.
class omu_NestedReader
{
public:
    omu_NestedReader() = delete;

    /// Reads the next argument (by `keyword`, where one is given) as a sequence and gives out what `convert`
    /// makes of it. False, and `out` as it was, when the argument is none.
    template <class Arguments, class T, class... Keyword>
    static bool Get(Arguments& arguments, T& out, T (*convert)(omu_PrimTuple&), const Keyword&... keyword)
    {
        omu_PrimTuple sequence;
        if (!arguments.Get(sequence, keyword...))
            return false;
        out = convert(sequence);
        return true;
    }

    template <class T>
    static cow_List<T> Items(omu_PrimTuple& sequence)
    {
        auto values = cow_List<T>::Filled(sequence.Length(), T());
        ReadInto(sequence, values.WriteData(), sequence.Length());
        return values;
    }

    /// Rows of equal length.
    template <class T>
    static cow_2DArray<T> Rows(omu_PrimTuple& sequence)
    {
        // Grows with what is there: the first row's length is only a promise for the others.
        std::vector<T> cells;
        int cols = 0;
        sequence.Begin();
        for (omu_PrimTuple row; sequence.Cursor() < sequence.Length() && sequence.Get(row);)
        {
            if (sequence.Cursor() == 1)
                cols = row.Length();
            cells.resize(cells.size() + static_cast<std::size_t>(cols));
            ReadInto(row, cells.data() + cells.size() - cols, cols);
        }
        sequence.End();
        cow_2DArray<T> values(sequence.Length(), cols);
        std::move(cells.begin(), cells.end(), values.WriteData());
        return values;
    }

    /// Rows of any length, filled up with T() to the longest.
    template <class T>
    static cow_2DArray<T> IrregularRows(omu_PrimTuple& sequence)
    {
        std::vector<cow_List<T>> rows;
        int longest = 0;
        sequence.Begin();
        for (omu_PrimTuple row; sequence.Cursor() < sequence.Length() && sequence.Get(row);)
        {
            rows.push_back(Items<T>(row));
            longest = std::max(longest, row.Length());
        }
        sequence.End();
        cow_2DArray<T> values(sequence.Length(), longest);
        T* out = values.WriteData();
        for (std::size_t r = 0; r < rows.size(); ++r)
            std::copy(rows[r].begin(), rows[r].end(), out + static_cast<std::ptrdiff_t>(r) * longest);
        return values;
    }

private:
    template <class T>
    static void ReadInto(omu_PrimTuple& sequence, T* out, int count)
    {
        sequence.Begin();
        for (int i = 0; i < count; ++i)
            sequence.Get(out[i]);
        sequence.End();
    }
};
