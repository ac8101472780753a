#pragma once

#include <cow_List.h>
#include <cow_String.h>
#include <omu_PrimVector.h>

/// Rows by named columns of values, for summaries: printed as text with its columns lined up.
///
/// It owns its cells; a copy shares them. A row or column outside raises the out-of-range error.
class OXU_EXPORT omu_Table
{
public:
    omu_Table() = default;
    explicit omu_Table(const cow_List<cow_String>& columnNames) : m_ColumnNames(columnNames) {}

    /// A row of null cells at the end; gives its number.
    int AddRow();
    /// Takes the object over, also when it raises; null empties the cell.
    void Put(int row, int column, omu_Primitive* owned);
    /// Keeps a copy.
    void Put(int row, int column, const omu_Primitive& value) { Put(row, column, value.Copy()); }
    void Put(int row, int column, const cow_String& text);

    int Rows() const { return m_Rows; }
    int Columns() const { return m_ColumnNames.Length(); }
    bool IsEmpty() const { return m_Rows == 0; }
    const cow_List<cow_String>& ColumnNames() const { return m_ColumnNames; }
    /// Owned by the table until it changes; null from an empty cell.
    const omu_Primitive* Get(int row, int column) const;

    /// A line of the column names, unless all are empty, then a line for each row, ended by line feeds.
    /// Columns are as wide as their longest text in code points, two blanks apart, and no line ends in
    /// blanks. Strings stand unquoted, with their line feeds as blanks; an empty cell is empty.
    cow_String AsString() const;

private:
    int PlaceOf(int row, int column) const;

    cow_List<cow_String> m_ColumnNames;
    int m_Rows = 0;
    omu_PrimVector m_Cells; // row by row
};
