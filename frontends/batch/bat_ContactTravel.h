#pragma once

#include <bat_TravelResult.h>

class bat_Part;
class bat_Watcher;

/// How far the movable part can go until it touches the fixed one: plants the trees, searches, and tells at
/// travel 0 whether the parts touch or cross.
///
/// The parts must outlive the object and are planted by it.
class bat_ContactTravel
{
public:
    /// What this takes of a job's progress, in shares; what it takes to read both parts is beside it.
    static constexpr float SHARE = 60.0f;
    static constexpr float READ_SHARE = 40.0f;

    /// total is the sum of the shares of the whole job.
    bat_ContactTravel(bat_Part& fixed, bat_Part& movable, bat_Watcher& watcher, float total)
        : fixed_(fixed), movable_(movable), watcher_(watcher), total_(total)
    {}

    /// Raises bat_MeshError for a fixed part smaller than the tolerance, and bat_Interrupted.
    bat_TravelResult Find(const bat_TravelQuestion& question);

private:
    int DepthFor(int asked, double tolerance) const;
    void Plant(bat_Part& part, gsl_TriOctree::OctreeNodeType type, int depth) const;
    void Search(int depth, bat_TravelResult& result) const;
    void FindState(bat_TravelResult& result) const;

    bat_Part& fixed_;
    bat_Part& movable_;
    bat_Watcher& watcher_;
    float total_;
};
