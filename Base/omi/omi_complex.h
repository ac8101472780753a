#pragma once

/// A complex number as scripting hands it over: two doubles, equal when both parts are (so a NaN equals
/// nothing, and -0.0 equals 0.0).
class omi_complex
{
public:
    constexpr omi_complex(double real = 0.0, double imag = 0.0) noexcept : real_(real), imag_(imag) {}

    constexpr double Real() const noexcept { return real_; }
    constexpr double Imag() const noexcept { return imag_; }

    friend constexpr bool operator==(const omi_complex& a, const omi_complex& b) noexcept = default;

private:
    double real_;
    double imag_;
};
