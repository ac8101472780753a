#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// The message of a path query: whether the value that answers it is a whole value or a change to the one
/// before. A copy is a message of its own; reading takes the stored identity.
class OXU_EXPORT omu_QueryPathMsg : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 28); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_QueryPathMsg(bool valueIsDelta = false) : valueIsDelta_(valueIsDelta) {}
    explicit omu_QueryPathMsg(const cls_ReadVisitor& reader);
    omu_QueryPathMsg(const omu_QueryPathMsg& other)
        : cls_Persistent(other), valueIsDelta_(other.valueIsDelta_)
    {}
    omu_QueryPathMsg& operator=(const omu_QueryPathMsg& other)
    {
        valueIsDelta_ = other.valueIsDelta_;
        return *this;
    }

    /// Whether the answer is a change to the value before.
    void SetValueIsDelta(bool valueIsDelta) { valueIsDelta_ = valueIsDelta; }

    bool ValueIsDelta() const { return valueIsDelta_; }
    const cls_Uid& Uid() const { return uid_; }

    virtual omu_QueryPathMsg* Copy() const;
    virtual unsigned DynTypeId() const;
    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    bool valueIsDelta_ = false;
    cls_Uid uid_;
};
