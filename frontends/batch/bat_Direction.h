#pragma once

#include <array>
#include <gsl_Vector.h>
#include <optional>
#include <string>

/// A direction of travel as the user wrote it: "X,Y,Z" of any length above zero, or an axis, "+x" to "-z".
class bat_Direction
{
public:
    /// Raises bat_UsageError with what is wrong with the text.
    explicit bat_Direction(const std::string& text);
    /// Any numbers; none for a length of zero and for what is not finite.
    static std::optional<gsl_Vector> Unit(const std::array<double, 3>& xyz);
    /// The three numbers that the text stands for.
    static std::optional<std::array<double, 3>> Parse(const std::string& text);

    /// Length 1. The components are divided by the largest of them first, so that squares neither vanish nor
    /// overflow and the length of what was written does not matter.
    const gsl_Vector& Unit() const { return unit_; }

private:
    gsl_Vector unit_;
};
