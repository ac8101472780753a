#pragma once

#include <vwr_Image.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

class vwr_Viewport;
struct vwr_Part;
struct vwr_Scene;

/// Draws the parts of a scene with a depth buffer: at each sample the nearest triangle is seen, whatever the
/// order; of equally near ones the first. Triangles are lit flat from a little above and left of the eye, so
/// that the sides of a box differ. A pixel is the mean of SAMPLES x SAMPLES samples, of one in pictures of
/// more than LARGEST_SMOOTH pixels. Works by bands of rows, so that the buffers stay small.
class vwr_MeshRaster
{
public:
    static constexpr int SAMPLES = 3;
    static constexpr std::int64_t LARGEST_SMOOTH = std::int64_t{4096} * 4096;

    vwr_MeshRaster(const vwr_Scene& scene, const vwr_Viewport& viewport);

    vwr_Image Draw() const;

private:
    // Coordinates in samples; z grows towards the eye.
    struct Corner
    {
        float x, y, z;
    };
    struct Triangle
    {
        std::array<Corner, 3> corners;
        std::uint32_t color;
    };
    struct Segment
    {
        std::array<Corner, 2> corners;
        std::uint32_t color;
    };
    // Which shapes touch each band: those of band b are items[first[b]] up to items[first[b + 1]].
    struct Bands
    {
        std::vector<std::size_t> first;
        std::vector<std::uint32_t> items;

        std::span<const std::uint32_t> Of(int band) const
        {
            const auto b = static_cast<std::size_t>(band);
            return std::span(items).subspan(first[b], first[b + 1] - first[b]);
        }
    };
    class Band;

    void Add(const vwr_Part& part, const vwr_Scene& scene, const vwr_Viewport& viewport);
    int BandCount() const;
    template <class Shape>
    Bands Sort(const std::vector<Shape>& shapes) const;

    int width_;
    int height_;
    int samples_;
    std::function<void()> proceed_; ///< as the scene's
    std::vector<Triangle> triangles_;
    std::vector<Segment> segments_;
};
