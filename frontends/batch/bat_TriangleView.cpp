#include <atomic>
#include <bat_TriangleMesh.h>
#include <bat_TriangleView.h>
#include <cstring>

bat_TriangleView::bat_TriangleView(const bat_TriangleMesh& mesh)
    : vertices_{reinterpret_cast<const std::byte*>(mesh.Coordinates().data()), 3 * sizeof(double),
                sizeof(double)},
      indices_(nullptr),
      length_(mesh.Length())
{}

bat_TriangleView::bat_TriangleView(const Vertices& vertices, std::span<const std::uint32_t> indices)
    : vertices_(vertices), indices_(indices.data()), length_(indices.size() / 3)
{}

bat_Corners bat_TriangleView::Corners(std::size_t triangle) const
{
    bat_Corners corners;
    if (!indices_)
    {
        const std::size_t bytes = sizeof(double) * corners.size();
        std::memcpy(corners.data(), vertices_.first + bytes * triangle, bytes);
        return corners;
    }
    for (std::size_t c = 0; c < 3; ++c)
    {
        const auto vertex = static_cast<std::ptrdiff_t>(indices_[3 * triangle + c]);
        const std::byte* at = vertices_.first + vertex * vertices_.toNext;
        for (std::size_t k = 0; k < 3; ++k, at += vertices_.toNextOfThree)
            std::memcpy(&corners[3 * c + k], at, sizeof(double));
    }
    // Keeps the compiler from reading a number again where it is used: what was checked is what counts.
    std::atomic_signal_fence(std::memory_order_seq_cst);
    return corners;
}
