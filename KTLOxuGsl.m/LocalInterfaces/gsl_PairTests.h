#pragma once

/// What is tested of a pair of triangles: which corners against the other triangle, by bit, and whether edges
/// are tested against edges.
struct gsl_PairTests
{
    static constexpr unsigned ALL = 7;

    unsigned movable = ALL;
    unsigned fixed = ALL;
    bool edges = true;

    static constexpr bool Has(unsigned corners, int i) noexcept { return ((corners >> i) & 1) != 0; }
};
