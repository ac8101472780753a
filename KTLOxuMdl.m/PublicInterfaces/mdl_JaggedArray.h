#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <cow_List.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Rows of integers, each of its own length, in one piece. Rows and items count from 0; a place outside
/// raises nex_RangeException. A copy shares the integers and the identifier.
class OXU_EXPORT mdl_JaggedArray : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x0A, 25); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    mdl_JaggedArray() = default;
    /// Raises omu_ValueErrorException unless the offsets start at 0, never fall and end at the count of
    /// values.
    explicit mdl_JaggedArray(const cls_ReadVisitor& reader);

    /// Appends a row, which may be empty.
    void AddRow(const cow_List<int>& items);

    int Rows() const { return offsets_.Length() - 1; }
    int Length(int row) const;
    int Value(int row, int item) const;
    const cls_Uid& Uid() const { return uid_; }

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    cow_List<int> offsets_ = {0}; // where each row begins, and where the last one ends
    cow_List<int> values_;
    cls_Uid uid_;
};
