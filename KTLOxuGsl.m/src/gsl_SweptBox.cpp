#include <cmath>
#include <gsl_SweptBox.h>
#include <limits>

namespace
{
// The reciprocal of a smaller component could overflow, and no travel makes it move anything by a bit.
constexpr double STANDSTILL = 1e-290;

// Roundings that a transformed coordinate may have gathered, in units in the last place of its largest term.
constexpr double ROUNDINGS = 8.0 * std::numeric_limits<double>::epsilon();

double PerUnit(double component)
{
    return std::abs(component) < STANDSTILL ? 0.0 : 1.0 / component;
}
}

gsl_SweptBox::gsl_SweptBox(const gsl_Triple& direction)
    : perUnit_{PerUnit(direction.x), PerUnit(direction.y), PerUnit(direction.z)}
{}

double gsl_SweptBox::Slack(double largest, double tolerance) noexcept
{
    return 2.0 * (tolerance + ROUNDINGS * largest);
}
