#pragma once

#include <omu_InterfaceObj.h>

class omu_PrimList;

/// An interface object that behaves as a dictionary, whatever its keys: what a host needs of one. Abstract;
/// classes derive from omu_DictIntObjABC. Values that operations return are owned by the caller.
class OXU_EXPORT omu_DictIntObj : public omu_InterfaceObj
{
public:
    explicit omu_DictIntObj(const omu_Shortcut& shortcut = omu_Shortcut(),
                            omu_OperationRules rules = omu_OperationRules(),
                            omu_PythonType pythonType = omu_PythonType::MAPPING);
    omu_DictIntObj(omu_OperationRules rules, omu_PythonType pythonType);

    virtual int Length() const = 0;
    virtual omu_PrimList* KeyList() const = 0;
    /// In the order of the keys.
    virtual omu_PrimList* Values() const = 0;
    /// A tuple of key and value for each entry.
    virtual omu_PrimList* Items() const = 0;
    /// False also for a key of another kind.
    virtual bool HasItem(const omu_Primitive& key) const = 0;

    /// The value. A key that is not there, or of another kind, raises omu_KeyErrorException.
    virtual omu_Primitive* Item(const omu_Primitive& key) const = 0;
    /// A key of another kind cannot be assigned: omu_GenericTypeErrorException.
    virtual void AssignItem(const omu_Primitive& key, const omu_Primitive& value) const = 0;
    /// Raises as Item.
    virtual void RemoveItem(const omu_Primitive& key) const = 0;

protected:
    /// An entry's value as it is written after its key. One that is null, or fails, is told on the standard
    /// error stream and written 'unknown'.
    cow_String EntryText(const cow_String& key, const omu_Primitive* value) const;
    /// Tells that a value could not be had.
    void ReportSubscript(const cow_String& key, const cow_String& message) const;
    /// Whether there is a value for each key; tells when not.
    bool FitsKeys(const omu_PrimList& values, int keys) const;
};
