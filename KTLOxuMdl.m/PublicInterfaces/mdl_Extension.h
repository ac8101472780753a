#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// What a model carries beside its own data: abstract root of repositories and of their entries.
class OXU_EXPORT mdl_Extension : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x0A, 13); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    mdl_Extension() = default;
    explicit mdl_Extension(const cls_ReadVisitor& reader);

    /// A new heap copy of the most derived object with the same identities; the caller owns it.
    virtual mdl_Extension* Copy() const = 0;
    /// What the extension stands for: itself, unless a class stands in for another.
    virtual mdl_Extension* GetValue();
    virtual const mdl_Extension* ConstGetValue() const;
    virtual unsigned DynTypeId() const;
    virtual void DBWrite(const cls_WriteVisitor& writer) const;
    /// Gives the object a fresh identity.
    virtual void NewUid();

    /// Names this state of the object; kept by copies and by persistence.
    const cls_Uid& ExtensionUid() const { return uid_; }

private:
    cls_Uid uid_;
};
