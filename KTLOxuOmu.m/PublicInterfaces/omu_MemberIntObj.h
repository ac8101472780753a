#pragma once

#include <omu_InterfaceObj.h>

/// An interface object that is reached as a member of another, or as an entry of one.
class OXU_EXPORT omu_MemberIntObj : public omu_InterfaceObj
{
public:
    using omu_InterfaceObj::omu_InterfaceObj;

    /// The identifier under which its owner knows the object; -1, the default, when there is none.
    virtual int Id() const;

    /// What the last step of its path names: a member, a member with a key.
    cow_String StepName() const { return BaseShortcut().Name(); }
};
