#pragma once

#include <bat_EdgeTable.h>
#include <bat_MeshHealth.h>

class bat_Part;
class bat_Watcher;

/// Computes the health of a mesh: merges its corners, links its triangles over them, and measures every one.
/// Time and memory grow with the number of triangles. The part must outlive the object.
class bat_MeshCheck
{
public:
    /// What this takes of a job's progress, in shares; reading the part is beside it.
    static constexpr float SHARE = 60.0f;
    static constexpr float READ_SHARE = 40.0f;

    /// total is the sum of the shares of the whole job.
    bat_MeshCheck(const bat_Part& part, bat_Watcher& watcher, float total)
        : part_(part), watcher_(watcher), total_(total)
    {}

    /// Raises bat_MeshError for arrays that became useless meanwhile, and bat_Interrupted.
    bat_MeshHealth Find(const bat_MeshQuestion& question);

private:
    void Merge(bat_MeshHealth& health);
    void FindGroups(bat_MeshHealth& health);
    void FindEdges(bat_MeshHealth& health);
    void FindDuplicates(bat_MeshHealth& health);
    void Measure(bat_MeshHealth& health);
    void NameTriangles(bat_MeshHealth& health) const;
    bool HasCoincident(const std::array<std::uint32_t, 3>& points) const;
    std::uint16_t FlawOf(std::size_t triangle, double factor, const double* corners,
                         const bat_MeshHealth& health) const;

    const bat_Part& part_;
    bat_Watcher& watcher_;
    float total_;
    std::vector<std::uint16_t> flaws_; ///< of every triangle, a bit each
    bool balanced_ = false;            ///< every edge has as many triangles one way as the other
};
