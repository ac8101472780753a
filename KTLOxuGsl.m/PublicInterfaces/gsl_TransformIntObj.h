#pragma once

#include <gsl_Matrix.h>
#include <omu_InterfaceObj.h>

/// The scripting proxy of a transform, type name "Transform". It has one member, "matrix": the rows of the
/// matrix as a tuple of four tuples of four floats, which scripts read and never set.
///
/// It holds the matrix as it was when the proxy was made; copies hold the same. Commands that take a
/// transform get at it by Matrix().
class OXU_EXPORT gsl_TransformIntObj : public omu_InterfaceObj
{
public:
    /// A result that stands nowhere in the session: it has no path.
    explicit gsl_TransformIntObj(const gsl_Matrix& matrix);
    /// The transform that scripts reach by that path.
    gsl_TransformIntObj(const omu_Shortcut& shortcut, const gsl_Matrix& matrix);

    const gsl_Matrix& Matrix() const noexcept { return matrix_; }

    gsl_TransformIntObj* Copy() const override;

private:
    static const TypeDesc& Type();
    omu_Primitive* Rows() const;

    gsl_Matrix matrix_;
};
