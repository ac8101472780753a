#pragma once

#include <gsl_Extent.h>
#include <gsl_Triple.h>
#include <limits>

/// Between which parallel planes the triangles of a part lie, for one direction: level planes, and, for a
/// part that is a piece of some surface, planes that lean as it does.
///
/// Of two such parts the leaning planes tell much better than boxes when they can meet: the boxes of two
/// slopes that face each other overlap long before the slopes touch.
struct gsl_Sheet
{
    /// What a bound between two parts is computed with.
    struct Sweep
    {
        gsl_Triple along; ///< the unit direction
        double soonest;   ///< no contact comes before
        double limit;     ///< contacts after it do not matter
        double slack;     ///< how much the boxes are grown by, in all
        double margin;    ///< how far off tolerance and rounding may put a contact, per unit of steepness
    };

    double low = std::numeric_limits<double>::max(); ///< the lowest and highest corner along the direction
    double high = std::numeric_limits<double>::lowest();
    gsl_Triple rise; ///< way along the direction from a leaning plane per place: its normal over its cosine
    double least = std::numeric_limits<double>::max(); ///< rise times a corner, at the least and at the most
    double most = std::numeric_limits<double>::lowest();
    double steepness = 0.0; ///< the length of rise; 0 when there are no leaning planes

    /// Notes how a triangle leans. To be called for every triangle, then Lean, then AddPlaces for every
    /// triangle.
    void AddSlope(const gsl_Triple corners[3], const gsl_Triple& along) noexcept;
    /// Chooses the leaning planes by what AddSlope noted.
    void Lean(const gsl_Triple& along) noexcept;
    void AddPlaces(const gsl_Triple corners[3], const gsl_Triple& along) noexcept;
    /// AddPlaces for level planes alone: all that is needed of a part that gets no leaning ones.
    void AddHeights(const gsl_Triple corners[3], const gsl_Triple& along) noexcept;

    /// Whether a contact of two parts with leaning planes can lie ahead and within the limit.
    static bool CanMeet(const gsl_Sheet& movable, const gsl_Extent& movableBox, const gsl_Sheet& fixed,
                        const gsl_Extent& fixedBox, const Sweep& sweep) noexcept;

private:
    bool isSteep_ = false;
};
