#pragma once

#include <cstdint>

struct idb_MementoLimits;

/// What a reader may allocate for a memento, by estimates from above that are charged before it does.
class idb_Budget
{
public:
    idb_Budget(const idb_MementoLimits& limits, std::uint64_t mementoBytes);

    /// What goes beyond raises idb_MementoException "... limit exceeded: allocation budget".
    void Charge(std::uint64_t bytes);
    /// bytesEach is above 0.
    void Charge(std::uint64_t count, std::uint64_t bytesEach);

private:
    std::uint64_t left_;
};
