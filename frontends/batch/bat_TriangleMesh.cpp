#include <bat_TriangleMesh.h>

#include <bat_Task.h>

#include <cmath>

namespace
{
// An opening below this share of the surface passes for rounding of the file's numbers.
constexpr double NEGLIGIBLE_SHARE = 1e-6;
}

bool bat_TriangleMesh::IsSurelyOpen(bat_Watcher& watcher) const
{
    double sum[3] = {0, 0, 0};
    double surface = 0;
    bat_Task task(watcher, 0, 4096);
    for (std::size_t i = 0; i < Length(); ++i, task.Step())
    {
        const double* a = Corner(i, 0);
        const double u[3] = {a[3] - a[0], a[4] - a[1], a[5] - a[2]};
        const double v[3] = {a[6] - a[0], a[7] - a[1], a[8] - a[2]};
        const double area[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                                u[0] * v[1] - u[1] * v[0]};
        for (int k = 0; k < 3; ++k)
        {
            sum[k] += area[k];
        }
        surface += std::sqrt(area[0] * area[0] + area[1] * area[1] + area[2] * area[2]);
    }
    // Written so that an overflow, which knows nothing, answers false.
    return std::hypot(sum[0], sum[1], sum[2]) > NEGLIGIBLE_SHARE * surface;
}
