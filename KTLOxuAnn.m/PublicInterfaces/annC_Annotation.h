#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <mem_AllocationOperators.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A drawing that a user lays over a viewport: an arrow or a text; abstract.
class OXU_EXPORT annC_Annotation : public mem_AllocationOperators, public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 2); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_Annotation() = default;
    explicit annC_Annotation(const cls_ReadVisitor& reader);

    /// Gives the object fresh identities: the concrete class's first, then this part's.
    virtual void NewUid();
    /// A new heap copy of the most derived object with the same identities, sharing its anchors; the caller
    /// owns it.
    virtual annC_Annotation* Copy() const = 0;
    /// Moves the annotation on the viewport, in the units of its points. Anchors stay where they are.
    virtual void Translate(double dx, double dy) = 0;
    virtual unsigned DynTypeId() const;
    virtual void DBWrite(const cls_WriteVisitor& writer) const;

    /// Names this state of the object; kept by copies and by persistence.
    const cls_Uid& AnnotationUid() const { return uid_; }

private:
    cls_Uid uid_;
};
