#include <atomic>
#include <omu_PyObjectOps.h>

namespace
{
constinit std::atomic<const omu_PyObjectOps*> installed{nullptr};
}

omu_PyObjectOps::~omu_PyObjectOps() = default;

const omu_PyObjectOps* omu_PyObjectOps::Install(const omu_PyObjectOps* ops) noexcept
{
    return installed.exchange(ops);
}

const omu_PyObjectOps* omu_PyObjectOps::Installed() noexcept
{
    return installed.load();
}
