#include <algorithm>
#include <bat_BoxTree.h>
#include <bat_Crossing.h>
#include <bat_Part.h>
#include <bat_Task.h>
#include <bat_TriTriCrossing.h>
#include <vector>

namespace
{
bat_BoxTree::Box BoxOf(const bat_Corners& corners)
{
    bat_BoxTree::Box box;
    for (std::size_t k = 0; k < 3; ++k)
    {
        box.low[k] = std::min({corners[k], corners[3 + k], corners[6 + k]});
        box.high[k] = std::max({corners[k], corners[3 + k], corners[6 + k]});
    }
    return box;
}

bat_BoxTree::Box BoxOf(const bat_Part& part)
{
    const gsl_BBox& box = part.Box();
    return {{box.Low().X(), box.Low().Y(), box.Low().Z()}, {box.High().X(), box.High().Y(), box.High().Z()}};
}
}

std::optional<bat_Crossing> bat_Crossing::Find(const bat_Part& fixed, const bat_Part& movable,
                                               double tolerance, bat_Watcher& watcher)
{
    // Only fixed triangles that reach into the other part's box go into the tree.
    const bat_BoxTree::Box there = BoxOf(movable);
    std::vector<int> fixedIndex;
    std::vector<bat_BoxTree::Box> boxes;
    const std::size_t count =
        static_cast<std::size_t>(fixed.Count()) + static_cast<std::size_t>(movable.Count());
    bat_Task task(watcher, count, 64);
    for (int f = 0; f < fixed.Count(); ++f, task.Step())
    {
        const bat_BoxTree::Box box = BoxOf(fixed.Corners(f));
        if (fixed.HasNormal(f) && box.Meets(there))
        {
            fixedIndex.push_back(f);
            boxes.push_back(box);
        }
    }
    const bat_BoxTree tree(std::move(boxes), [&task] { task.Ask(); });
    for (int m = 0; m < movable.Count(); ++m, task.Step())
    {
        if (!movable.HasNormal(m))
            continue;
        const bat_Corners corners = movable.Corners(m);
        std::optional<bat_Crossing> best;
        tree.Find(BoxOf(corners), [&](std::size_t at) {
            const int f = fixedIndex[at];
            if (best && best->fixed < f)
                return;
            const bat_TriTriCrossing crossing(corners, fixed.Corners(f));
            if (crossing.IsBeyond(tolerance))
                best = bat_Crossing{f, m, crossing.Middle()};
        });
        if (best)
            return best;
    }
    return std::nullopt;
}
