#pragma once

#include <algorithm>
#include <gsl_Triple.h>
#include <limits>
#include <utility>

/// The travels at which two triangles meet, as far as found: widened by every candidate, each with its
/// places.
///
/// Triangles are convex, so the travels at which they meet are one interval, and its ends are reached at the
/// corners of the overlap that the two have when seen along the direction. Travels are signed: behind the
/// start is negative. Empty until something is added.
class gsl_TravelSpan
{
public:
    /// One place of contact: where it starts on the movable triangle and where it lies on the fixed one.
    struct Contact
    {
        double travel = 0.0;
        gsl_Triple onMovable;
        gsl_Triple onFixed;
    };

    void Add(double travel, const gsl_Triple& onMovable, const gsl_Triple& onFixed) noexcept
    {
        if (travel < first_.travel)
        {
            first_ = {travel, onMovable, onFixed};
        }
        if (travel > last_.travel)
        {
            last_ = {travel, onMovable, onFixed};
        }
    }
    /// The same contacts with the two triangles' roles exchanged.
    void ExchangeRoles() noexcept
    {
        std::swap(first_.onMovable, first_.onFixed);
        std::swap(last_.onMovable, last_.onFixed);
    }

    bool IsEmpty() const noexcept { return !(first_.travel <= last_.travel); }
    double First() const noexcept { return first_.travel; }

    /// First contact ahead: what meets only behind -tolerance is none, what crosses at the start has travel
    /// 0.
    bool Ahead(double tolerance, double& travel) const noexcept
    {
        if (IsEmpty() || last_.travel < -tolerance)
        {
            return false;
        }
        travel = std::max(0.0, first_.travel); // in this order -0 becomes 0
        return true;
    }

    /// The places that belong to Ahead's travel. For triangles that cross at the start it is a place where
    /// they do: travel changes linearly between the two ends, so it is 0 at their weighted mean. REQUIRES:
    /// Ahead found a contact.
    Contact Place() const noexcept
    {
        if (first_.travel >= 0.0)
        {
            return first_;
        }
        if (last_.travel <= 0.0)
        {
            return last_;
        }
        const double s = -first_.travel / (last_.travel - first_.travel);
        return {0.0, gsl_Between3(first_.onMovable, last_.onMovable, s),
                gsl_Between3(first_.onFixed, last_.onFixed, s)};
    }

private:
    Contact first_{std::numeric_limits<double>::max(), {}, {}};
    Contact last_{std::numeric_limits<double>::lowest(), {}, {}};
};
