#pragma once

#include <cstdint>

/// How large a memento may be, for its writer and its reader. What goes beyond is refused: "limit exceeded:
/// nesting depth". A writer holds to the limits too, so that what it wrote can be read.
struct idb_MementoLimits
{
    std::uint64_t bytes = std::uint64_t{1} << 30; ///< "total bytes"
    std::uint32_t objects = 10'000'000;           ///< "objects"; names of objects
    std::uint32_t classes = 4096;                 ///< "classes"
    std::uint32_t attributes = 1024;              ///< "attributes of a class", of its own alone
    /// "nesting depth": objects that each hold the next one, whichever is asked for first; parts of one
    /// object.
    std::uint32_t depth = 200;
    std::uint64_t text = std::uint64_t{256} << 20; ///< "text length", in bytes
    /// "allocation budget", for the reader: what it may allocate is budgetFactor times the bytes of the
    /// memento plus budgetBase, by an estimate from above.
    std::uint64_t budgetFactor = 16;
    std::uint64_t budgetBase = std::uint64_t{64} << 20;
};
