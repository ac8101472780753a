#include <atr_Catalogue.h>

#include <atomic>

namespace
{
constinit std::atomic<const atr_Catalogue*> installed{nullptr};
}

atr_Catalogue::~atr_Catalogue() = default;

const atr_Catalogue* atr_InstallCatalogue(const atr_Catalogue* catalogue) noexcept
{
    return installed.exchange(catalogue, std::memory_order_acq_rel);
}

const atr_Catalogue* atr_InstalledCatalogue() noexcept
{
    return installed.load(std::memory_order_acquire);
}
