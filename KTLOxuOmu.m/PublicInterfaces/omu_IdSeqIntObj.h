#pragma once

#include <omu_ListArrayInt.h>
#include <omu_SeqIntObj.h>

/// A sequence whose entries are integer identifiers, grouped by the instance that they belong to; scripting
/// type "InstanceSequence". It says which entries there are; the objects behind them are its derived classes'
/// affair.
class OXU_EXPORT omu_IdSeqIntObj : public omu_SeqIntObj
{
public:
    static const TypeDesc& Description();

    explicit omu_IdSeqIntObj(const omu_Shortcut& shortcut = omu_Shortcut(),
                             omu_OperationRules rules = omu_OperationRules(),
                             omu_PythonType pythonType = omu_PythonType::SEQUENCE);
    omu_IdSeqIntObj(omu_OperationRules rules, omu_PythonType pythonType);

    /// The identifiers by instance: "{1: [4, 5], 2: [7]}"; DefaultRepr when stale.
    cow_String AsString(int nesting) const override;
    omu_IdSeqIntObj* Copy() const override;
    /// The entries of all instances.
    int Length() const override;
    // Null: they give no result and change nothing.
    omu_Primitive* Index(int position) const override;
    omu_Primitive* Slice(int from, int to) const override;
    omu_Primitive* Repeat(int count) const override;
    omu_Primitive* Concat(const omu_SeqIntObj* other) const override;
    omu_Primitive* Remove(int position) const override;
    omu_Primitive* RemoveSlice(int from, int to) const override;
    omu_Primitive* RemoveDuplicates() const override;
    /// False, on purpose: an identifier sequence never reports an entry as unique.
    bool IsUnique(int position) const override;

    /// The identifiers, one list for each instance.
    void Subscripts(omu_ListArrayInt& entries) const;
    /// Those at the positions from `from` up to but not including `to`, both clamped to 0 .. Length(); an
    /// instance without any has an empty list.
    void Subscripts(omu_ListArrayInt& entries, int from, int to) const;
    /// True when exactly one instance has entries; `id` is then its identifier, and else as it was.
    bool GetSingleInstanceId(int& id) const;

    using omu_SeqIntObj::ConvertSubscrIndex;
    /// As the ConvertIndex of sequences, for a sequence of `length` entries; the length itself is a position
    /// where `endAllowed`.
    int ConvertIndex(const int& index, bool endAllowed, int length) const;
    int ConvertIndex(const int& index) const { return omu_SeqIntObj::ConvertIndex(index); }
    /// Finds the entry that a script's index means, of the first `length` ones: the place of its instance and
    /// its place there.
    void ConvertSubscrIndex(const int& index, int& instance, int& place, int length) const;

protected:
    /// An identifier for each instance, and its entries; two lists of different lengths are an internal
    /// error.
    void SetEntries(const cow_List<int>& instanceIds, const omu_ListArrayInt& entries);

private:
    cow_List<int> instanceIds_;
    omu_ListArrayInt entries_;
    cow_List<int> ends_; // for each instance, the position behind its last entry
};
