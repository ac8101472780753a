#include <algorithm>
#include <cmath>
#include <cstddef>
#include <gsl_Matrix.h>
#include <gsl_Util.h>
#include <gsl_utils.h>
#include <limits>
#include <nex_Raise.h>

namespace
{
constexpr int ORDER = 4;
/// How near to 1 |sin y| may come before z and x count as turns about one axis. The arc sine then no longer
/// tells y from pi/2 within 1e-5, and both sines that give z and x drown in rounding.
constexpr double GIMBAL_MARGIN = 1e-10;
/// A sine up to here is the rounding of a rotation's entries and tells no direction.
constexpr double ROUNDING = 8.0 * std::numeric_limits<double>::epsilon();

int Checked(int index, int count)
{
    if (index < 0 || index >= count)
    {
        nex_RaiseRange(index, count, "KTLOxuGsl.m/src/gsl_Matrix", __LINE__);
    }
    return index;
}
}

void gsl_Matrix::UpdateIdentity() noexcept
{
    isIdentity_ = true;
    for (int r = 0; r < ORDER; ++r)
    {
        for (int c = 0; c < ORDER; ++c)
        {
            isIdentity_ = isIdentity_ && m_[r][c] == (r == c ? 1.0 : 0.0);
        }
    }
}

void gsl_Matrix::Set(int row, int column, double value)
{
    m_[Checked(row, ORDER)][Checked(column, ORDER)] = value;
    UpdateIdentity();
}

void gsl_Matrix::SetRow(int row, const double values[4])
{
    std::copy_n(values, ORDER, m_[Checked(row, ORDER)]);
    UpdateIdentity();
}

void gsl_Matrix::SetColumn(int column, const double values[4])
{
    Checked(column, ORDER);
    for (int r = 0; r < ORDER; ++r)
    {
        m_[r][column] = values[r];
    }
    UpdateIdentity();
}

bool gsl_Matrix::From2DArray(const cow_2DArray<double>& array)
{
    if (array.Rows() != ORDER || array.Cols() != ORDER)
    {
        return false;
    }
    FromArray(array.Data());
    return true;
}

void gsl_Matrix::FromArray(const double values[16])
{
    for (int r = 0; r < ORDER; ++r)
    {
        std::copy_n(values + std::ptrdiff_t{ORDER} * r, ORDER, m_[r]);
    }
    UpdateIdentity();
}

void gsl_Matrix::SetTranslation(const gsl_Vector& translation)
{
    m_[0][3] = translation.X();
    m_[1][3] = translation.Y();
    m_[2][3] = translation.Z();
    UpdateIdentity();
}

void gsl_Matrix::SetRotationVectors(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z)
{
    for (int r = 0; r < 3; ++r)
    {
        m_[r][0] = x[r];
        m_[r][1] = y[r];
        m_[r][2] = z[r];
    }
    UpdateIdentity();
}

bool gsl_Matrix::AxisRotation(const gsl_Vector& axis, double angle)
{
    gsl_Vector k;
    if (!axis.NormalizedCopy(k))
    {
        return false;
    }
    // Rodrigues: R = cos I + sin [k]x + (1 - cos) k kT.
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double cross[3][3] = {{0, -k.Z(), k.Y()}, {k.Z(), 0, -k.X()}, {-k.Y(), k.X(), 0}};
    FillIdentity();
    for (int row = 0; row < 3; ++row)
    {
        for (int column = 0; column < 3; ++column)
        {
            m_[row][column] =
                (row == column ? c : 0.0) + s * cross[row][column] + (1.0 - c) * k[row] * k[column];
        }
    }
    UpdateIdentity();
    return true;
}

void gsl_Matrix::Concatenate(const gsl_Matrix& second)
{
    double product[16];
    for (int r = 0; r < ORDER; ++r)
    {
        for (int c = 0; c < ORDER; ++c)
        {
            double sum = 0.0;
            for (int k = 0; k < ORDER; ++k)
            {
                sum += m_[r][k] * second.m_[k][c];
            }
            product[ORDER * r + c] = sum;
        }
    }
    FromArray(product);
}

double gsl_Matrix::operator()(int row, int column) const
{
    return m_[Checked(row, ORDER)][Checked(column, ORDER)];
}

cow_2DArray<double> gsl_Matrix::To2DArray() const
{
    cow_2DArray<double> array(ORDER, ORDER, 0.0);
    AsArray(array.WriteData());
    return array;
}

void gsl_Matrix::AsArray(double out[16]) const noexcept
{
    for (int r = 0; r < ORDER; ++r)
    {
        std::copy_n(m_[r], ORDER, out + std::ptrdiff_t{ORDER} * r);
    }
}

gsl_Vector gsl_Matrix::GetTranslation() const
{
    return {m_[0][3], m_[1][3], m_[2][3]};
}

gsl_Point gsl_Matrix::NewOrigin() const
{
    return {m_[0][3], m_[1][3], m_[2][3]};
}

gsl_Vector gsl_Matrix::NewAxis(int axis) const
{
    Checked(axis, 3);
    return {m_[0][axis], m_[1][axis], m_[2][axis]};
}

void gsl_Matrix::GetAxisRotation(gsl_Vector& axis, double& angle) const
{
    // R - RT holds 2 sin [k]x and the trace is 1 + 2 cos. By the arc tangent of the two the angle is exact to
    // the last digits everywhere; the arc cosine alone loses half of them near 0 and pi.
    gsl_Vector v(m_[2][1] - m_[1][2], m_[0][2] - m_[2][0], m_[1][0] - m_[0][1]);
    const double cosine2 = m_[0][0] + m_[1][1] + m_[2][2] - 1.0;
    angle = std::atan2(v.Magnitude(), cosine2);
    if (cosine2 >= 0.0)
    {
        axis = v.Normalize(ROUNDING) ? v : gsl_Vector(0.0, 0.0, 1.0);
        return;
    }
    // Towards pi v vanishes; the columns of (R + RT)/2 - cos I = (1 - cos) k kT do not. The largest one is
    // taken, and v, as long as it is more than rounding, tells its sense.
    const double cosine = 0.5 * cosine2;
    int largest = 0;
    for (int i = 1; i < 3; ++i)
    {
        largest = m_[i][i] > m_[largest][largest] ? i : largest;
    }
    gsl_Vector k;
    for (int r = 0; r < 3; ++r)
    {
        k.Set(r, 0.5 * (m_[r][largest] + m_[largest][r]) - (r == largest ? cosine : 0.0));
    }
    (void)k.Normalize(0.0);
    if (v.Magnitude() > ROUNDING && k.DotProduct(v) < 0.0)
    {
        k.Negate();
    }
    axis = k;
}

void gsl_Matrix::GetRotationAngles(double& x, double& y, double& z) const
{
    GetEulerianAnglesZYX(z, y, x);
}

void gsl_Matrix::GetEulerianAnglesZYX(double& z, double& y, double& x) const
{
    const double sine = -m_[2][0];
    y = std::asin(std::clamp(sine, -1.0, 1.0));
    if (std::abs(sine) > 1.0 - GIMBAL_MARGIN)
    {
        x = 0.0;
        z = std::atan2(-m_[0][1], m_[1][1]);
        return;
    }
    z = std::atan2(m_[1][0], m_[0][0]);
    x = std::atan2(m_[2][1], m_[2][2]);
}

gsl_Matrix gsl_Matrix::InverseRigidTransform() const
{
    gsl_Matrix inverse;
    for (int r = 0; r < 3; ++r)
    {
        double back = 0.0;
        for (int c = 0; c < 3; ++c)
        {
            inverse.m_[r][c] = m_[c][r];
            back -= m_[c][r] * m_[c][3];
        }
        inverse.m_[r][3] = back;
    }
    inverse.UpdateIdentity();
    return inverse;
}

bool operator==(const gsl_Matrix& a, const gsl_Matrix& b)
{
    return (a.isIdentity_ && b.isIdentity_) ||
           gsl_RealArrEqual(ORDER * ORDER, &a.m_[0][0], &b.m_[0][0], gsl_Util::Instance().LinearTolerance());
}
