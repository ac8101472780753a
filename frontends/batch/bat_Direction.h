#pragma once

#include <gsl_Vector.h>
#include <string>

/// A direction of travel as the user wrote it: "X,Y,Z" of any length above zero, or an axis, "+x" to "-z".
class bat_Direction
{
public:
    /// Raises bat_UsageError with what is wrong with the text.
    explicit bat_Direction(const std::string& text);

    /// Length 1. The components are divided by the largest of them first, so that squares neither vanish nor
    /// overflow and the length of what was written does not matter.
    const gsl_Vector& Unit() const { return unit_; }

private:
    gsl_Vector unit_;
};
