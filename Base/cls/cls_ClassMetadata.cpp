#include <algorithm>
#include <cls_ClassMetadata.h>
#include <nex_Raise.h>

namespace
{
[[noreturn]] void Refuse(const cow_String& className, const cow_String& reason, int line)
{
    nex_RaiseInternal((cow_String("cls_ClassMetadata: class ") + className + ": " + reason).AsCharPtr(),
                      "Base/cls/cls_ClassMetadata", line);
}
}

cls_ClassMetadata::cls_ClassMetadata(const cow_String& name, unsigned typeId, unsigned version,
                                     const cls_AdapterBase* adapter, unsigned parentTypeId)
    : name_(name), typeId_(typeId), version_(version), parentTypeId_(parentTypeId), adapter_(adapter)
{}

void cls_ClassMetadata::AddAttribute(const cls_FieldHandle& field, cls_AttributeType type, unsigned typeId,
                                     cls_CollectionType collection)
{
    const cls_Attribute attribute = {field.index, cow_String(field.name), type, typeId, collection};
    if (attribute.name.IsEmpty())
        Refuse(name_, "an attribute has no name", __LINE__);
    if (again_)
    {
        if (compared_ == attributes_.size() || !(attributes_[compared_] == attribute))
            Refuse(name_, cow_String("attribute ") + attribute.name + " differs from the former declaration",
                   __LINE__);
        ++compared_;
        return;
    }
    if (FindAttribute(attribute.name) != nullptr)
        Refuse(name_, cow_String("attribute ") + attribute.name + " is declared twice", __LINE__);
    if (std::any_of(attributes_.begin(), attributes_.end(),
                    [&](const cls_Attribute& other) { return other.index == attribute.index; }))
        Refuse(name_, cow_String("attribute ") + attribute.name + " repeats a field index", __LINE__);
    attributes_.push_back(attribute);
}

void cls_ClassMetadata::AddDtor(cls_DtorHook hook)
{
    if (hook == nullptr)
        Refuse(name_, "the destructor hook is null", __LINE__);
    if (dtor_ != hook && (again_ || dtor_ != nullptr))
        Refuse(name_, "the destructor hook differs from the former one", __LINE__);
    dtor_ = hook;
}

void cls_ClassMetadata::Redeclare()
{
    again_ = true;
    compared_ = 0;
}

const cls_Attribute* cls_ClassMetadata::FindAttribute(const cow_String& name) const
{
    const auto place = std::find_if(attributes_.begin(), attributes_.end(),
                                    [&](const cls_Attribute& attribute) { return attribute.name == name; });
    return place != attributes_.end() ? &*place : nullptr;
}
