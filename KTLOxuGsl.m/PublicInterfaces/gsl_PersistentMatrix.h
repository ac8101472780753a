#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <gsl_Matrix.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Persistent wrapper of a gsl_Matrix, registered under the name "gsl_Matrix". Equality is the matrix's.
class OXU_EXPORT gsl_PersistentMatrix : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 2); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    gsl_PersistentMatrix() = default;
    explicit gsl_PersistentMatrix(const gsl_Matrix& matrix) : matrix_(matrix) {}
    explicit gsl_PersistentMatrix(const cls_ReadVisitor& reader);

    void SetMatrix(const gsl_Matrix& matrix) { matrix_ = matrix; }

    const gsl_Matrix& Matrix() const noexcept { return matrix_; }

    friend bool operator==(const gsl_PersistentMatrix& a, const gsl_PersistentMatrix& b)
    {
        return a.matrix_ == b.matrix_;
    }

    /// The 16 values, row by row, are written only when the matrix is not the identity.
    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    gsl_Matrix matrix_;
};
