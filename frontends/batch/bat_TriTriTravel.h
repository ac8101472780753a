#pragma once

#include <bat_Corners.h>
#include <bat_SeparatingAxes.h>
#include <gsl_Vector.h>
#include <optional>

/// Over which travels of one triangle along a direction it meets another that stands still.
///
/// Found along the separating axes, each of which bounds the travel from both sides, not by projecting
/// corners and edges: a second way to the answers of the directional distance search.
class bat_TriTriTravel
{
public:
    /// From first contact to last; negative travels lie behind.
    struct Interval
    {
        double first, last;
    };

    /// moving travels along the unit direction.
    bat_TriTriTravel(const bat_Corners& moving, const bat_Corners& standing, const gsl_Vector& direction);

    /// Triangles that pass each other at up to reach count as meeting.
    std::optional<Interval> Grown(double reach) const;
    /// Only meetings that no sideways shift up to reach prevents count; from when on they cannot be
    /// prevented.
    std::optional<Interval> Shrunk(double reach) const;

private:
    template <typename Reach>
    std::optional<Interval> Meet(Reach reach) const;

    bat_SeparatingAxes axes_;
    gsl_Vector direction_;
};
