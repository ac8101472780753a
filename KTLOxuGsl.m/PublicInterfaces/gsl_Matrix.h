#pragma once

#include <cow_2DArray.h>
#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <oxu_Export.h>

/// 4x4 homogeneous transform for column vectors: p' = M p, rows and columns counted from 0.
///
/// Columns 0 to 2 are the images of the X, Y and Z directions, column 3 the image of the origin. Angles are
/// in radians and right-handed. The identity flag holds exactly when all 16 entries are those of the
/// identity; every change recomputes it. Rows and columns outside 0..3 raise nex_RangeException. operator==
/// is tolerant: entries within gsl_Util's linear tolerance, so it is not transitive.
///
/// A plain value; its persistent wrapper is gsl_PersistentMatrix.
class OXU_EXPORT gsl_Matrix
{
public:
    /// The identity.
    gsl_Matrix() = default;

    void FillIdentity() { *this = gsl_Matrix(); }
    /// Rows and columns count from 0.
    void Set(int row, int column, double value);
    void SetRow(int row, const double values[4]);
    void SetColumn(int column, const double values[4]);
    /// false, and unchanged, unless the array is 4x4.
    [[nodiscard]] bool From2DArray(const cow_2DArray<double>& array);
    /// 16 values, row by row.
    void FromArray(const double values[16]);
    /// Column 3; the rest stays.
    void SetTranslation(const gsl_Vector& translation);
    /// Columns 0 to 2, as given: neither normalised nor made orthogonal.
    void SetRotationVectors(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z);
    /// Becomes the rotation by angle about axis through the origin, without translation. false, and
    /// unchanged, when axis is zero.
    [[nodiscard]] bool AxisRotation(const gsl_Vector& axis, double angle);
    /// this = this * second: what is transformed passes through second first.
    void Concatenate(const gsl_Matrix& second);

    bool IsIdentity() const noexcept { return isIdentity_; }
    double operator()(int row, int column) const;
    cow_2DArray<double> To2DArray() const;
    /// 16 values, row by row.
    void AsArray(double out[16]) const noexcept;
    gsl_Vector GetTranslation() const;
    gsl_Point NewOrigin() const;
    /// Column 0, 1 or 2; another axis raises nex_RangeException.
    gsl_Vector NewAxis(int axis) const;
    gsl_Vector NewXAxis() const { return NewAxis(0); }
    gsl_Vector NewYAxis() const { return NewAxis(1); }
    gsl_Vector NewZAxis() const { return NewAxis(2); }

    /// Unit axis and angle, 0 to pi, of the rotation part, which must be a rotation. At angle 0 the axis is
    /// (0, 0, 1); at pi its largest component is positive.
    void GetAxisRotation(gsl_Vector& axis, double& angle) const;
    /// The Euler angles of GetEulerianAnglesZYX, named by the axis about which each turns.
    void GetRotationAngles(double& x, double& y, double& z) const;
    /// Angles with rotation part = Rz(z) Ry(y) Rx(x): y from -pi/2 to pi/2, the others from -pi to pi. When
    /// the image of X is along Z, z and x turn about the same axis: x is then 0.
    void GetEulerianAnglesZYX(double& z, double& y, double& x) const;

    /// The inverse of a rotation with translation; of anything else the result means nothing.
    gsl_Matrix InverseRigidTransform() const;
    /// Rotation part and translation, without perspective division.
    gsl_Point Transform(const gsl_Point& p) const
    {
        const double xyz[3] = {p.X(), p.Y(), p.Z()};
        double moved[3];
        TransformCoordinates(xyz, moved);
        return gsl_Point(moved);
    }
    /// The same for the bare coordinates of a point; both arrays may be one.
    void TransformCoordinates(const double xyz[3], double out[3]) const noexcept
    {
        const double x = xyz[0];
        const double y = xyz[1];
        const double z = xyz[2];
        for (int row = 0; row < 3; ++row)
        {
            out[row] = m_[row][0] * x + m_[row][1] * y + m_[row][2] * z + m_[row][3];
        }
    }
    /// The rotation part alone.
    gsl_Vector Transform(const gsl_Vector& v) const
    {
        return {m_[0][0] * v.X() + m_[0][1] * v.Y() + m_[0][2] * v.Z(),
                m_[1][0] * v.X() + m_[1][1] * v.Y() + m_[1][2] * v.Z(),
                m_[2][0] * v.X() + m_[2][1] * v.Y() + m_[2][2] * v.Z()};
    }

    /// Both the identity, or every entry within gsl_Util's linear tolerance.
    OXU_EXPORT friend bool operator==(const gsl_Matrix& a, const gsl_Matrix& b);

private:
    void UpdateIdentity() noexcept;

    double m_[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    bool isIdentity_ = true;
};
