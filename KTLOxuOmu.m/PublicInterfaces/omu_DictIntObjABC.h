#pragma once

#include <memory>
#include <omu_DictIntObj.h>
#include <omu_PrimEnumBase.h>

/// A dictionary that belongs to the application, K being cow_String, int or omu_PrimEnumBase; scripting type
/// "OrvexDictionary". Its methods are has_key, keys, items, values, changeKey, _summary and _summaryRow.
///
/// A derived class supplies Length, Keys and Subscript, and what else its container allows. Values that
/// operations return are owned by the caller.
template <class K>
class OXU_EXPORT omu_DictIntObjABC : public omu_DictIntObj
{
public:
    /// The type that derived classes extend.
    static const omu_InterfaceObj::TypeDesc& Description();

    explicit omu_DictIntObjABC(const omu_Shortcut& shortcut = omu_Shortcut(),
                               omu_OperationRules rules = omu_OperationRules(),
                               omu_PythonType pythonType = omu_PythonType::MAPPING);
    omu_DictIntObjABC(omu_OperationRules rules, omu_PythonType pythonType);

    /// "{'P1': mdb.models['M'].parts['P1']}"; DefaultRepr when stale.
    cow_String AsString(int nesting) const override;

    omu_PrimList* KeyList() const override;
    omu_PrimList* Values() const override;
    omu_PrimList* Items() const override;
    bool HasItem(const omu_Primitive& key) const override;
    omu_Primitive* Item(const omu_Primitive& key) const override;
    void AssignItem(const omu_Primitive& key, const omu_Primitive& value) const override;
    void RemoveItem(const omu_Primitive& key) const override;

    /// In the container's order.
    virtual cow_List<K> Keys() const = 0;
    /// Null when the key is not there.
    virtual omu_Primitive* Subscript(const K& key) const = 0;
    /// Whether Subscript answers.
    virtual bool HasKey(const K& key) const;
    /// Puts a value under the key. Refused here with nex_PrimException, as Remove.
    virtual void Assign(const K& key, const omu_Primitive& value) const;
    /// Takes the entry out.
    virtual void Remove(const K& key) const;
    /// Scripts get here only with a new key that is not there. Here: nex_PrimException "ChangeKey NOT
    /// IMPLEMENTED".
    virtual void ChangeKey(const K& from, const K& to) const;
    /// A text for the reader. Here: nex_PrimException "Summary NOT IMPLEMENTED".
    virtual omu_Primitive* Summary() const;
    /// The entry's row of a summary, a tuple, and how many columns it has. Here the key and the value's type.
    virtual omu_Primitive* SummaryRow(const K& key, int& columns) const;
    /// The bare text of a key: P1, 3, SOLID.
    virtual cow_String GetKeyAsString(const K& key) const;

private:
    omu_Primitive* MyHasKey(omu_Arguments& arguments) const;
    omu_Primitive* MyKeys(omu_Arguments& arguments) const;
    omu_Primitive* MyItems(omu_Arguments& arguments) const;
    omu_Primitive* MyVals(omu_Arguments& arguments) const;
    omu_Primitive* MyChangeKey(omu_Arguments& arguments) const;
    omu_Primitive* MySummary(omu_Arguments& arguments) const;
    omu_Primitive* MySummaryRow(omu_Arguments& arguments) const;

    /// Null for a key that is not there; omu_KeyErrorException when `required`.
    std::unique_ptr<omu_Primitive> Value(const K& key, bool required) const;
    /// The entry's value: from the list of all, where that has one for each key.
    cow_String TextOf(const K& key, const omu_PrimList* values, int place) const;
};

extern template class omu_DictIntObjABC<cow_String>;
extern template class omu_DictIntObjABC<int>;
extern template class omu_DictIntObjABC<omu_PrimEnumBase>;
