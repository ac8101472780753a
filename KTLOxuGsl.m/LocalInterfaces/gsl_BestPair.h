#pragma once

#include <cmath>
#include <limits>

/// The nearest pair of a search so far, against which everything else is pruned.
///
/// Of pairs at the same travel above 0 the one with the lowest indices wins, the fixed index first, so that
/// the order in which a search meets its pairs does not show. At travel 0 a search is over and the first pair
/// stands.
class gsl_BestPair
{
public:
    /// Nothing found, and only travels below limit of interest.
    void Reset(double limit) noexcept { *this = gsl_BestPair(limit); }

    gsl_BestPair() noexcept = default;
    explicit gsl_BestPair(double limit) noexcept : travel_(limit), below_(Below(limit)) {}

    /// True when the pair lowered the travel.
    bool Offer(double travel, int fixed, int movable) noexcept
    {
        const bool lower = travel < travel_;
        if (lower || (travel == travel_ && Precedes(fixed, movable)))
        {
            travel_ = travel;
            below_ = Below(travel);
            fixed_ = fixed;
            movable_ = movable;
            found_ = true;
        }
        return lower;
    }

    /// The largest travel with which a pair of these indices, or of any higher ones, would take the best
    /// one's place.
    double Limit(int fixed, int movable) const noexcept
    {
        return Precedes(fixed, movable) ? travel_ : below_;
    }

    bool Found() const noexcept { return found_; }
    double Travel() const noexcept { return travel_; }
    int Fixed() const noexcept { return fixed_; }
    int Movable() const noexcept { return movable_; }

private:
    static double Below(double travel) noexcept
    {
        return std::nextafter(travel, std::numeric_limits<double>::lowest());
    }
    /// A pair of these indices at the same travel would win.
    bool Precedes(int fixed, int movable) const noexcept
    {
        return found_ && travel_ > 0.0 && (fixed < fixed_ || (fixed == fixed_ && movable < movable_));
    }

    double travel_ = 0.0;
    double below_ = 0.0; // the number before travel_
    int fixed_ = 0;
    int movable_ = 0;
    bool found_ = false;
};
