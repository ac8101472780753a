#pragma once

#include <gsl_Matrix.h>
#include <gsl_Point.h>
#include <gsl_Triple.h>

class gsl_TriTriDirDist;

/// One set of a search's triangles, as the caller's look-up gives them and where the search wants them: the
/// fixed set is moved by the fixed transform.
class gsl_CornerSource
{
public:
    enum class Role { FIXED, MOVABLE };

    gsl_CornerSource(gsl_TriTriDirDist& search, Role role) : search_(search), role_(role) {}

    /// Begins a search: reads the tolerance by which triangles are degenerate.
    void Begin() noexcept;
    /// The identity leaves corners as they are to the last bit.
    void SetTransform(const gsl_Matrix& transform) noexcept { transform_ = transform; }

    /// The corners where the search wants them; what the caller's look-up throws goes through.
    void Fetch(int index, gsl_Triple corners[3]);
    /// The unit normal of three corners, as gsl_Vector has it; false when they are degenerate.
    bool Normal(const gsl_Triple corners[3], gsl_Triple& normal) const noexcept;

    const gsl_Matrix& Transform() const noexcept { return transform_; }
    /// Bound on what the transform adds up for a coordinate, for boxes whose coordinates stay within reach.
    double LargestTerm(double reach) const;

private:
    gsl_Triple Moved(const gsl_Triple& p) const noexcept;

    gsl_TriTriDirDist& search_;
    Role role_;
    gsl_Matrix transform_;
    gsl_Point work_[3];
    double leastSine_ = 0.0;
};
