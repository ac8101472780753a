#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <cow_COW.h>
#include <mem_AllocationOperators.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Where an end of an annotation sits; abstract. Annotations share their anchors copy-on-write.
class OXU_EXPORT annC_Anchor : public mem_AllocationOperators, public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 1); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_Anchor() = default;
    explicit annC_Anchor(const cls_ReadVisitor& reader);

    /// A new heap copy of the most derived object with the same identities; the caller owns it.
    virtual annC_Anchor* Copy() const = 0;
    virtual unsigned DynTypeId() const;
    virtual void DBWrite(const cls_WriteVisitor& writer) const;

    /// Names this state of the object; kept by copies and by persistence.
    const cls_Uid& AnchorUid() const { return uid_; }

private:
    cls_Uid uid_;
};

/// An annotation's share of an anchor.
using annC_AnchorCow = cow_COW<annC_Anchor>;
