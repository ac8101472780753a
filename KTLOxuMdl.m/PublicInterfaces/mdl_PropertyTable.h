#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <cow_List.h>
#include <cow_String.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A table of numbers under named columns, such as a material's data over a field. The first column is what
/// the others are interpolated over. Rows and columns count from 0; a place outside raises
/// nex_RangeException. A copy shares the numbers and the identifier.
class OXU_EXPORT mdl_PropertyTable : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x0A, 18); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// No rows.
    explicit mdl_PropertyTable(const cow_List<cow_String>& columnNames = {}) : names_(columnNames) {}
    /// Raises omu_ValueErrorException where the numbers do not fill rows of these columns.
    explicit mdl_PropertyTable(const cls_ReadVisitor& reader);

    /// False, and nothing changes, when the row has not a number for each column, or there are no columns.
    [[nodiscard]] bool AddRow(const cow_List<double>& numbers);

    int Rows() const { return rows_; }
    int Columns() const { return names_.Length(); }
    const cow_List<cow_String>& ColumnNames() const { return names_; }
    double Value(int row, int column) const;
    /// The column's value where the first column is x: on the straight line between the rows around it, and
    /// that of the first or last row where x lies outside. At a jump, that is two rows with the same first
    /// number, the later row counts. Not-a-number for an x that is none; no rows raise nex_RangeException.
    /// REQUIRES: the first column never falls.
    double Interpolate(int column, double x) const;
    const cls_Uid& Uid() const { return uid_; }

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    cow_List<cow_String> names_;
    int rows_ = 0;
    cow_List<double> values_; // row by row
    cls_Uid uid_;
};
