#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <cmath>
#include <mdl_PropertyTable.h>
#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <omu_ValueErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuMdl.m/src/mdl_PropertyTable";
constexpr unsigned LAYOUT_RELEASE = 453;
constexpr const char* WRONG_COUNT = "A table of %d rows and %d columns with %d values was stored.";

void Free(void* body)
{
    delete static_cast<mdl_PropertyTable*>(body);
}

void RequireIndex(int index, int length)
{
    if (index < 0 || index >= length)
        nex_RaiseRange(index, length, SOURCE, __LINE__);
}
}

constexpr auto mdl_PropertyTable::Fields()
{
    return cls_Fields(cls_Field{"names", &mdl_PropertyTable::names_},
                      cls_Field{"rows", &mdl_PropertyTable::rows_},
                      cls_Field{"values", &mdl_PropertyTable::values_});
}

void mdl_PropertyTable::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("mdl_PropertyTable", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<mdl_PropertyTable>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&Free);
}

mdl_PropertyTable::mdl_PropertyTable(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    Fields().Read(reader, *this);
    const bool fits = Columns() == 0
                          ? rows_ == 0 && values_.IsEmpty()
                          : values_.Length() % Columns() == 0 && rows_ == values_.Length() / Columns();
    if (!fits)
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_COUNT, rows_, Columns(), values_.Length())),
                  SOURCE, __LINE__);
}

bool mdl_PropertyTable::AddRow(const cow_List<double>& numbers)
{
    if (numbers.IsEmpty() || numbers.Length() != Columns())
        return false;
    values_.AppendList(numbers);
    ++rows_;
    return true;
}

double mdl_PropertyTable::Value(int row, int column) const
{
    RequireIndex(row, rows_);
    RequireIndex(column, Columns());
    return values_.Get(row * Columns() + column);
}

double mdl_PropertyTable::Interpolate(int column, double x) const
{
    RequireIndex(column, Columns());
    RequireIndex(0, rows_);
    if (std::isnan(x))
        return x;
    // The first row beyond x.
    int above = 0;
    for (int end = rows_; above < end;)
    {
        const int middle = above + (end - above) / 2;
        if (x < Value(middle, 0))
            end = middle;
        else
            above = middle + 1;
    }
    if (above == 0 || above == rows_)
        return Value(above == 0 ? 0 : rows_ - 1, column);
    const double x0 = Value(above - 1, 0);
    const double x1 = Value(above, 0);
    return std::lerp(Value(above - 1, column), Value(above, column), (x - x0) / (x1 - x0));
}

void mdl_PropertyTable::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    Fields().Write(writer, *this);
}
