#pragma once

#include <cls_Persistent.h>
#include <cls_Uid.h>
#include <cow_String.h>
#include <oxu_Export.h>

class cls_ReadVisitor;
class cls_WriteVisitor;

/// An array of objects of one class, as scripts hold it: what omu_xoObjVarray has whatever the class.
/// Abstract.
class OXU_EXPORT omu_Varray : public cls_Persistent
{
public:
    virtual int Length() const = 0;
    /// The registered name of the array's class: "gsl_PlaneArray".
    virtual cow_String TypeName() const = 0;
    /// One object as text; an index outside raises the out-of-range error.
    virtual cow_String ItemAsString(int index) const = 0;
    /// A new array of the same objects, owned by the caller.
    virtual omu_Varray* Copy() const = 0;
    virtual unsigned DynTypeId() const = 0;
    virtual void DBWrite(const cls_WriteVisitor& writer) const = 0;

    /// "[item, item]".
    cow_String AsString() const;
    const cls_Uid& Uid() const { return uid_; }

protected:
    omu_Varray() = default;
    explicit omu_Varray(const cls_ReadVisitor& reader);
    omu_Varray(const omu_Varray& other) : cls_Persistent(other) {}
    omu_Varray& operator=(const omu_Varray&) { return *this; }

private:
    cls_Uid uid_;
};
