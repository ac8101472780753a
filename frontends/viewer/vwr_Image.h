#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Pixels row by row from the upper left corner: alpha, red, green and blue from the most significant byte
/// down, colours multiplied by alpha; 0 is nothing at all.
struct vwr_Image
{
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t At(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};
