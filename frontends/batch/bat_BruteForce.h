#pragma once

#include <bat_Watcher.h>
#include <gsl_Vector.h>
#include <optional>
#include <vector>

class bat_Part;

/// The contact travel of two parts from every pair of their triangles, by another method than the search and
/// without its trees. What it answers is a bracket, since grazing contacts are decided by the last bit: the
/// search must lie in it.
class bat_BruteForce
{
public:
    /// The parts must outlive the object. Sorts, but compares nothing yet.
    bat_BruteForce(const bat_Part& fixed, const bat_Part& movable, const gsl_Vector& direction, double bound,
                   double tolerance);

    /// How many pairs may overlap across the direction and must be looked at; above LIMIT that takes too
    /// long.
    unsigned long long Pairs() const { return pairs_; }
    static constexpr unsigned long long LIMIT = 5'000'000'000ULL;
    /// Of those, how many may be so near each other that the travel of the pair must be computed.
    static constexpr unsigned long long COMPUTED_LIMIT = 100'000'000ULL;

    struct Bracket
    {
        double low;    ///< no contact comes before this travel
        double high;   ///< and there surely is one by then; both are the bound where there is none
        bool crossing; ///< some pair crosses beyond the tolerance where the parts stand
        double slack;  ///< rounding to be allowed on either side

        bool Holds(double travel) const { return travel >= low - slack && travel <= high + slack; }
    };
    /// Interruptible. Nothing when the limit was reached.
    std::optional<Bracket> Find(unsigned long long computedLimit = COMPUTED_LIMIT,
                                bat_Watcher& watcher = bat_Watcher::Nobody()) const;

private:
    /// A triangle seen along the direction: its stretch across, in two coordinates, and along it.
    struct Shadow
    {
        double low[2], high[2];
        double back, front;
        int triangle;
    };

    std::vector<Shadow> Shadows(const bat_Part& part) const;
    std::size_t FirstCandidate(const Shadow& movable) const;

    const bat_Part& fixed_;
    const bat_Part& movable_;
    gsl_Vector direction_;
    double bound_;
    double tolerance_;
    double rounding_;
    double margin_; ///< how far triangles may pass each other and still count in the lower limit
    std::vector<Shadow> fixedShadows_;   ///< by their first low, rising
    std::vector<Shadow> movableShadows_; ///< by their fronts, falling, so that the near ones come first
    double widest_ = 0.0;                ///< widest fixed shadow in the first coordinate
    unsigned long long pairs_ = 0;
};
