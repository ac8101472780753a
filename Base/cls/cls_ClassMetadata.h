#pragma once

#include <bas_Export.h>
#include <cls_AttributeType.h>
#include <cls_CollectionType.h>
#include <cls_FieldHandle.h>
#include <cow_String.h>

#include <vector>

class cls_AdapterBase;

/// Frees a shared copy-on-write body of the class that registered it.
using cls_DtorHook = void (*)(void* body);

/// One declared attribute of a class.
struct cls_Attribute
{
    int index;
    cow_String name;
    cls_AttributeType type;
    /// 1 for plain values, the class of an object, cls_ListTypeId or cls_MapTypeId of a collection.
    unsigned typeId;
    cls_CollectionType collection;

    friend bool operator==(const cls_Attribute&, const cls_Attribute&) = default;
};

/// What the registrar knows of one persistent class: identity, layout release, parent, how to create
/// one, and its own attributes in order (not those of its parents).
///
/// Declaring a class twice with the same data changes nothing; every other repetition is an internal
/// error that names the class.
class BAS_EXPORT cls_ClassMetadata
{
public:
    /// `adapter` is looked at for the life of the record; null where objects are not created by type id.
    cls_ClassMetadata(const cow_String& name, unsigned typeId, unsigned version,
                      const cls_AdapterBase* adapter, unsigned parentTypeId);

    /// Appends an attribute. A repeated or empty name or a repeated index is refused and changes nothing.
    void AddAttribute(const cls_FieldHandle& field, cls_AttributeType type, unsigned typeId,
                      cls_CollectionType collection);
    /// Registers the destructor hook of classes whose objects are shared bodies.
    void AddDtor(cls_DtorHook hook);
    /// Begins a further declaration of the same class: from here on AddAttribute and AddDtor only compare
    /// with what is there.
    void Redeclare();

    const cow_String& Name() const { return name_; }
    unsigned TypeId() const { return typeId_; }
    /// Release in which the persistent layout last changed.
    unsigned Version() const { return version_; }
    unsigned ParentTypeId() const { return parentTypeId_; }
    const cls_AdapterBase* Adapter() const { return adapter_; }
    /// The class's own hook or null; cls_ClassRegistrar::FindDtor also asks the parents.
    cls_DtorHook Dtor() const { return dtor_; }
    const std::vector<cls_Attribute>& Attributes() const { return attributes_; }
    /// The attribute of that name, or null.
    const cls_Attribute* FindAttribute(const cow_String& name) const;

private:
    cow_String name_;
    unsigned typeId_;
    unsigned version_;
    unsigned parentTypeId_;
    const cls_AdapterBase* adapter_;
    cls_DtorHook dtor_ = nullptr;
    std::vector<cls_Attribute> attributes_;
    bool again_ = false;
    std::size_t compared_ = 0;
};
