#include <idb_Budget.h>
#include <idb_Fault.h>
#include <idb_MementoLimits.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_Budget";
constexpr std::uint64_t WIDEST = ~std::uint64_t{0};

std::uint64_t Total(const idb_MementoLimits& limits, std::uint64_t bytes)
{
    if (bytes != 0 && limits.budgetFactor > (WIDEST - limits.budgetBase) / bytes)
        return WIDEST;
    return limits.budgetFactor * bytes + limits.budgetBase;
}
}

idb_Budget::idb_Budget(const idb_MementoLimits& limits, std::uint64_t mementoBytes)
    : left_(Total(limits, mementoBytes))
{}

void idb_Budget::Charge(std::uint64_t bytes)
{
    if (bytes > left_)
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::READ_LIMIT, idb_Fault::BUDGET);
    left_ -= bytes;
}

void idb_Budget::Charge(std::uint64_t count, std::uint64_t bytesEach)
{
    Charge(count > WIDEST / bytesEach ? WIDEST : count * bytesEach);
}
