#include <algorithm>
#include <bat_BruteForce.h>
#include <bat_Part.h>
#include <bat_Task.h>
#include <bat_TriTriCrossing.h>
#include <bat_TriTriTravel.h>
#include <limits>

namespace
{
// Rounding of a handful of sums and products of coordinates.
constexpr double ROUNDING = 64.0 * std::numeric_limits<double>::epsilon();

// Two ways of computing one travel agree to this part of the largest number in play.
constexpr double RELATIVE_SLACK = 1e-9;
}

bat_BruteForce::bat_BruteForce(const bat_Part& fixed, const bat_Part& movable, const gsl_Vector& direction,
                               double bound, double tolerance)
    : fixed_(fixed),
      movable_(movable),
      direction_(direction),
      bound_(bound),
      tolerance_(tolerance),
      rounding_(ROUNDING * std::max(fixed.Reach(), movable.Reach())),
      margin_(2.0 * tolerance + rounding_),
      fixedShadows_(Shadows(fixed)),
      movableShadows_(Shadows(movable))
{
    std::sort(fixedShadows_.begin(), fixedShadows_.end(), [](const Shadow& a, const Shadow& b) {
        return a.low[0] != b.low[0] ? a.low[0] < b.low[0] : a.triangle < b.triangle;
    });
    std::sort(movableShadows_.begin(), movableShadows_.end(), [](const Shadow& a, const Shadow& b) {
        return a.front != b.front ? a.front > b.front : a.triangle < b.triangle;
    });
    for (const Shadow& shadow : fixedShadows_)
        widest_ = std::max(widest_, shadow.high[0] - shadow.low[0]);
    for (const Shadow& shadow : movableShadows_)
    {
        const auto last =
            std::partition_point(fixedShadows_.begin(), fixedShadows_.end(),
                                 [&](const Shadow& f) { return f.low[0] <= shadow.high[0] + margin_; });
        const auto end = static_cast<std::size_t>(last - fixedShadows_.begin());
        pairs_ += end - std::min(end, FirstCandidate(shadow));
    }
}

std::vector<bat_BruteForce::Shadow> bat_BruteForce::Shadows(const bat_Part& part) const
{
    const gsl_Vector across = direction_.AnyOrthogonalUnit();
    const gsl_Vector other = direction_.CrossProduct(across);
    std::vector<Shadow> shadows;
    shadows.reserve(static_cast<std::size_t>(part.Count()));
    for (int i = 0; i < part.Count(); ++i)
    {
        if (!part.HasNormal(i))
            continue;
        const bat_Corners p = part.Corners(i);
        Shadow& shadow = shadows.emplace_back();
        shadow.triangle = i;
        for (std::size_t c = 0; c < 3; ++c)
        {
            const gsl_Vector at(p[3 * c], p[3 * c + 1], p[3 * c + 2]);
            const double seen[2] = {at.DotProduct(across), at.DotProduct(other)};
            const double along = at.DotProduct(direction_);
            for (int k = 0; k < 2; ++k)
            {
                shadow.low[k] = c == 0 ? seen[k] : std::min(shadow.low[k], seen[k]);
                shadow.high[k] = c == 0 ? seen[k] : std::max(shadow.high[k], seen[k]);
            }
            shadow.back = c == 0 ? along : std::min(shadow.back, along);
            shadow.front = c == 0 ? along : std::max(shadow.front, along);
        }
    }
    return shadows;
}

std::size_t bat_BruteForce::FirstCandidate(const Shadow& movable) const
{
    const double from = movable.low[0] - margin_ - widest_;
    const auto first = std::partition_point(fixedShadows_.begin(), fixedShadows_.end(),
                                            [from](const Shadow& f) { return f.low[0] < from; });
    return static_cast<std::size_t>(first - fixedShadows_.begin());
}

std::optional<bat_BruteForce::Bracket> bat_BruteForce::Find(unsigned long long computedLimit,
                                                            bat_Watcher& watcher) const
{
    constexpr unsigned long long POLL_EVERY = 1024;
    unsigned long long computed = 0;
    Bracket bracket{bound_, bound_, false, 0.0};
    bat_Task task(watcher, movableShadows_.size(), 1);
    for (const Shadow& m : movableShadows_)
    {
        for (std::size_t at = FirstCandidate(m); at < fixedShadows_.size(); ++at)
        {
            const Shadow& f = fixedShadows_[at];
            if (f.low[0] > m.high[0] + margin_)
                break;
            if (f.high[0] < m.low[0] - margin_ || f.low[1] > m.high[1] + margin_ ||
                f.high[1] < m.low[1] - margin_)
                continue;
            if (f.front < m.back - margin_ || f.back - m.front > bracket.high + margin_)
                continue; // behind, or too far to matter
            if (++computed > computedLimit)
                return std::nullopt;
            if (computed % POLL_EVERY == 0)
                task.Ask();
            const bat_Corners moving = movable_.Corners(m.triangle);
            const bat_Corners standing = fixed_.Corners(f.triangle);
            const bat_TriTriTravel travel(moving, standing, direction_);
            const auto grown = travel.Grown(margin_);
            if (!grown || grown->last < 0.0)
                continue;
            bracket.low = std::min(bracket.low, std::max(grown->first, 0.0));
            if (const auto shrunk = travel.Shrunk(rounding_); shrunk && shrunk->last >= 0.0)
            {
                // A pair that stands in each other's way counts as crossing once it would take more than the
                // tolerance to get through; below that its last contact may be taken for the first.
                const double start = shrunk->last > margin_ ? 0.0 : margin_;
                bracket.high = std::min(bracket.high, shrunk->first >= 0.0 ? shrunk->first : start);
            }
            if (grown->first <= 0.0 && !bracket.crossing)
                bracket.crossing = bat_TriTriCrossing(moving, standing).IsBeyond(tolerance_);
        }
        task.Step();
    }
    const double travel = bracket.low < bound_ ? bracket.low : 0.0;
    bracket.slack = RELATIVE_SLACK * std::max({fixed_.Reach(), movable_.Reach(), travel});
    return bracket;
}
