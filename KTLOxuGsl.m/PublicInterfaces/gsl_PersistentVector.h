#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <gsl_Vector.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Persistent wrapper of a gsl_Vector, registered under the name "gsl_Vector".
///
/// The registered parent is gsl_Point, but a vector is no point in C++: what is created by type id is to be
/// cast with a check. Equality is the vector's.
class OXU_EXPORT gsl_PersistentVector : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 3); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    gsl_PersistentVector() = default;
    explicit gsl_PersistentVector(const gsl_Vector& vector) : vector_(vector) {}
    /// A stored length that does not fit the stored components is dropped.
    explicit gsl_PersistentVector(const cls_ReadVisitor& reader);

    void SetVector(const gsl_Vector& vector) { vector_ = vector; }

    const gsl_Vector& Vector() const noexcept { return vector_; }

    friend bool operator==(const gsl_PersistentVector& a, const gsl_PersistentVector& b)
    {
        return a.vector_ == b.vector_;
    }

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    gsl_Vector vector_;
};
