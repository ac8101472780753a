#pragma once

#include <array>
#include <cls_xo1DArrayList.h>
#include <cstdint>
#include <gsl_Point.h>
#include <string>
#include <vector>

class bat_Part;
class bat_Task;
class bat_Watcher;
struct bat_MeshHealth;

/// Finds the health of a mesh once more by the geometry's own operations, which hold every point against
/// every other and every triangle against every other, without any index. The part must outlive the object.
class bat_MeshOracle
{
public:
    /// With more triangles these operations take too long to wait for.
    static constexpr int LIMIT = 5000;

    bat_MeshOracle(const bat_Part& part, bat_Watcher& watcher) : part_(part), watcher_(watcher) {}

    /// A sentence on the first difference; empty when there is none.
    std::string Compare(const bat_MeshHealth& health);

private:
    using Points = cls_xo1DArrayList<gsl_Point>;

    Points MergedPoints(double tolerance) const;
    void FindTriangles(const Points& points, double tolerance, bat_Task& task);
    std::vector<int> Groups(bat_Task& task) const;
    std::array<std::size_t, 3> CountEdges() const;

    const bat_Part& part_;
    bat_Watcher& watcher_;
    std::vector<std::array<std::size_t, 3>> triangles_; ///< points
};
