#pragma once

#include <compare>
#include <string>
#include <string_view>

/// A font as renderers choose it.
struct vwr_Font
{
    static constexpr double DEFAULT_SIZE = 16.0;
    static constexpr double SMALLEST_SIZE = 1.0;
    static constexpr double LARGEST_SIZE = 2000.0;

    std::string family = "Liberation Sans";
    bool bold = false;
    bool italic = false;
    /// Of the em, in pixels.
    double size = DEFAULT_SIZE;

    /// Reads an X logical font description, "-foundry-family-weight-slant-width-style-pixels-decipoints-…",
    /// which may end early; "*" and "?" leave the choice. The size is the pixels, else the tenths of points
    /// (a point is 4/3 pixels), else 12 points, limited to SMALLEST_SIZE and LARGEST_SIZE. Text that does not
    /// begin with "-" gives the default font, Helvetica of 12 points. Families that everybody calls by
    /// another name are drawn in the metric-compatible free ones.
    static vwr_Font OfDescription(std::string_view description);

    // What the compiler writes compares with 0. NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const vwr_Font&, const vwr_Font&) = default;
};
