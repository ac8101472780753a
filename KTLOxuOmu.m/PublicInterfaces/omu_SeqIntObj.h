#pragma once

#include <omu_InterfaceObj.h>

/// An interface object that behaves as a sequence; scripting type "OrvexArray". Its methods are isUnique,
/// removeDuplicates and _summary.
///
/// Operations take positions, as ConvertIndex and ConvertSubscrIndex make them of the indices that scripts
/// give. Values that they return are owned by the caller.
class OXU_EXPORT omu_SeqIntObj : public omu_InterfaceObj
{
public:
    /// The type that derived classes extend.
    static const TypeDesc& Description();

    explicit omu_SeqIntObj(const omu_Shortcut& shortcut = omu_Shortcut(),
                           omu_OperationRules rules = omu_OperationRules(),
                           omu_PythonType pythonType = omu_PythonType::SEQUENCE);
    omu_SeqIntObj(omu_OperationRules rules, omu_PythonType pythonType);

    /// "[mdb.models['M'].parts[0], 'x']"; DefaultRepr when stale. An element that fails is told on the
    /// standard error stream and written 'unknown'.
    cow_String AsString(int nesting) const override;

    /// The length that the object holds (SetLength); a class whose sequence may change asks that instead.
    virtual int Length() const;
    /// The element; null is None.
    virtual omu_Primitive* Index(int position) const = 0;
    /// A list of the elements from `from` up to but not including `to`.
    virtual omu_Primitive* Slice(int from, int to) const;
    /// A list of the elements so many times over; none for a count below 1.
    virtual omu_Primitive* Repeat(int count) const;
    /// A list of these elements, then the other's.
    virtual omu_Primitive* Concat(const omu_SeqIntObj* other) const;
    /// Puts a value in place of the element. Refused here with nex_PrimException, as the two below.
    virtual omu_Primitive* Assign(int position, const omu_Primitive& value) const;
    /// Takes the element out; the result is the command's.
    virtual omu_Primitive* Remove(int position) const;
    /// The same for the elements from `from` up to but not including `to`.
    virtual omu_Primitive* RemoveSlice(int from, int to) const;
    /// Whether no other element equals this one.
    virtual bool IsUnique(int position) const;
    /// A list of the elements, of equal ones the first.
    virtual omu_Primitive* RemoveDuplicates() const;
    /// A text for the reader: a line for each element.
    virtual omu_Primitive* Summary() const;

    /// The position that a script's index means. A negative index counts from the end, and what then is still
    /// negative becomes 0, on purpose; the length itself is a position, the end of a slice; a larger one
    /// raises omu_IndexErrorException with the index as given.
    int ConvertIndex(const int& index) const { return ConvertIndex(index, true, Length()); }
    /// The position of one element: the length itself is refused too.
    int ConvertSubscrIndex(const int& index) const { return ConvertIndex(index, false, Length()); }

protected:
    static int ConvertIndex(const int& index, bool endAllowed, int length);
    void SetLength(int length) { length_ = length; }

private:
    omu_Primitive* MyIsUnique(omu_Arguments& arguments) const;
    omu_Primitive* MyRemoveDuplicates(omu_Arguments& arguments) const;
    omu_Primitive* MySummary(omu_Arguments& arguments) const;

    cow_String ElementText(int position) const;

    int length_ = 0;
};
