#include <vwr_FeatureEdges.h>
#include <vwr_MeshRaster.h>
#include <vwr_Scene.h>
#include <vwr_Viewport.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{
// Where the light stands, along right, up and towards the eye, and how much light shadows get.
constexpr std::array<double, 3> LIGHT = {-0.25, 0.35, 0.9};
constexpr double AMBIENT = 0.35;
// Edges of a shaded part, of the part's colour.
constexpr float EDGE_SHADE = 0.25f;
constexpr double EDGE_WIDTH = 1.3; // pixels
// An edge is seen where it lies no further than this behind the farthest of the samples around it, in
// samples: it lies in the surfaces that it bounds, and these fall away from it.
constexpr float EDGE_DEPTH = 2.0f;
constexpr int BAND_ROWS = 192;
// After so many shapes the scene is asked whether to go on; each takes half a millisecond at most.
constexpr std::size_t ASK_EVERY = 32;
// Rows above and below a band that its edges look at.
constexpr int MARGIN_ROWS = 4;
// No part: farther than everything.
constexpr float NOTHING = -std::numeric_limits<float>::infinity();

std::uint32_t Packed(const g3d_Color& color)
{
    return color.GetRGBA() >> 8 | 0xFF000000u;
}

g3d_Color Dimmed(const g3d_Color& color, float factor)
{
    return {factor * color.Red(), factor * color.Green(), factor * color.Blue()};
}

// What a triangle looks like; both its sides do.
class Shading
{
public:
    Shading(const vwr_View& view, const g3d_Color& color)
        : eye_(view.TowardsEye()),
          light_(LIGHT[0] * view.Right() + LIGHT[1] * view.Up() + LIGHT[2] * view.TowardsEye()),
          color_(color)
    {
        color_.Clamp();
    }

    std::uint32_t Of(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c) const
    {
        const gsl_Vector normal = (b - a).CrossProduct(c - a);
        const double length = std::hypot(normal.X(), normal.Y(), normal.Z());
        const double towards = normal.DotProduct(eye_) < 0.0 ? -1.0 : 1.0;
        const double cosine = length > 0.0 ? towards * normal.DotProduct(light_) / length : 0.0;
        return Packed(Dimmed(color_, static_cast<float>(AMBIENT + (1.0 - AMBIENT) * std::max(cosine, 0.0))));
    }

private:
    gsl_Vector eye_;
    gsl_Vector light_;
    g3d_Color color_;
};
}

// Samples of some rows of the picture.
class vwr_MeshRaster::Band
{
public:
    Band(int width, int rows)
        : width_(width),
          depths_(static_cast<std::size_t>(width) * static_cast<std::size_t>(rows)),
          colors_(depths_.size()),
          rows_(rows)
    {}

    // From now on the samples of the rows from `top` on, all empty.
    void Start(int top)
    {
        top_ = top;
        std::fill(depths_.begin(), depths_.end(), NOTHING);
        std::fill(colors_.begin(), colors_.end(), 0u);
    }

    void Draw(const Triangle& triangle)
    {
        const auto& [a, b, c] = triangle.corners;
        const double abx = static_cast<double>(b.x) - static_cast<double>(a.x);
        const double aby = static_cast<double>(b.y) - static_cast<double>(a.y);
        const double acx = static_cast<double>(c.x) - static_cast<double>(a.x);
        const double acy = static_cast<double>(c.y) - static_cast<double>(a.y);
        const double area = abx * acy - aby * acx;
        if (!(std::fabs(area) > 0.0))
            return;
        const float low = std::min({a.z, b.z, c.z});
        const float high = std::max({a.z, b.z, c.z});
        const double abz = static_cast<double>(b.z) - static_cast<double>(a.z);
        const double acz = static_cast<double>(c.z) - static_cast<double>(a.z);
        const double zx = (abz * acy - acz * aby) / area;
        const double zy = (acz * abx - abz * acx) / area;
        const auto [upper, lower] = Rows(std::min({a.y, b.y, c.y}), std::max({a.y, b.y, c.y}));
        for (int row = upper; row <= lower; ++row)
        {
            const double y = row + 0.5;
            double left = std::numeric_limits<double>::infinity();
            double right = -left;
            for (std::size_t i = 0; i < 3; ++i)
                Cross(triangle.corners[i], triangle.corners[(i + 1) % 3], y, left, right);
            // Sample centres from left to right, both included: neighbours leave no gap.
            const double first = std::max(std::ceil(left - 0.5), 0.0);
            const double last = std::min(std::floor(right - 0.5), width_ - 1.0);
            if (!(first <= last))
                continue;
            const std::size_t line = Offset(row);
            double z = static_cast<double>(a.z) + zy * (y - static_cast<double>(a.y)) +
                       zx * (first + 0.5 - static_cast<double>(a.x));
            const auto end = static_cast<std::size_t>(last);
            for (auto x = static_cast<std::size_t>(first); x <= end; ++x, z += zx)
            {
                // Limited to the corners: seen nearly from its edge a triangle's slope knows no bounds.
                const float depth = std::clamp(static_cast<float>(z), low, high);
                if (depth > depths_[line + x])
                {
                    depths_[line + x] = depth;
                    colors_[line + x] = triangle.color;
                }
            }
        }
    }

    void Draw(const Segment& segment, float radius)
    {
        const auto& [a, b] = segment.corners;
        const float dx = b.x - a.x;
        const float dy = b.y - a.y;
        // The part of it that touches this band and the picture's width, so that no step is taken outside.
        float from = 0.0f;
        float to = 1.0f;
        const float border = radius + 1.0f;
        Limit(a.x, dx, -border, static_cast<float>(width_) + border, from, to);
        Limit(a.y, dy, static_cast<float>(top_) - border, static_cast<float>(top_ + rows_) + border, from,
              to);
        if (!(from <= to))
            return;
        const float length = std::max(std::fabs(dx), std::fabs(dy)) * (to - from);
        const int steps = static_cast<int>(std::ceil(2.0f * length)) + 1;
        for (int i = 0; i <= steps; ++i)
        {
            const float t = from + (to - from) * static_cast<float>(i) / static_cast<float>(steps);
            const Corner at = {a.x + t * dx, a.y + t * dy, a.z + t * (b.z - a.z)};
            if (IsSeen(at))
                Stamp(at, radius, segment.color);
        }
    }

    // The mean of the samples of a pixel.
    std::uint32_t Pixel(int x, int row, int samples) const
    {
        std::array<std::uint32_t, 4> sums = {};
        for (int j = 0; j < samples; ++j)
            for (int i = 0; i < samples; ++i)
            {
                const std::uint32_t color =
                    colors_[Offset(row + j) + static_cast<std::size_t>(x * samples + i)];
                for (unsigned channel = 0; channel < 4; ++channel)
                    sums[channel] += color >> (8 * channel) & 255;
            }
        const auto count = static_cast<std::uint32_t>(samples * samples);
        std::uint32_t mean = 0;
        for (unsigned channel = 0; channel < 4; ++channel)
            mean |= (sums[channel] + count / 2) / count << (8 * channel);
        return mean;
    }

private:
    std::size_t Offset(int row) const
    {
        return static_cast<std::size_t>(row - top_) * static_cast<std::size_t>(width_);
    }

    // The rows of the band whose sample centres lie between two heights.
    std::array<int, 2> Rows(float low, float high) const
    {
        const float upper =
            std::clamp(std::ceil(low - 0.5f), static_cast<float>(top_), static_cast<float>(top_ + rows_));
        const float lower = std::clamp(std::floor(high - 0.5f), static_cast<float>(top_ - 1),
                                       static_cast<float>(top_ + rows_ - 1));
        return {static_cast<int>(upper), static_cast<int>(lower)};
    }

    // Widens the span of a row to where a side of the triangle crosses it.
    static void Cross(const Corner& one, const Corner& other, double y, double& left, double& right)
    {
        // From the upper end always: neighbours that share the side find the same place.
        const Corner& top = one.y <= other.y ? one : other;
        const Corner& bottom = one.y <= other.y ? other : one;
        const double from = static_cast<double>(top.y);
        const double to = static_cast<double>(bottom.y);
        if (y < from || y > to)
            return;
        const double x0 = static_cast<double>(top.x);
        const double x1 = static_cast<double>(bottom.x);
        const double x = from == to ? x0 : x0 + (x1 - x0) * ((y - from) / (to - from));
        left = std::min(left, x);
        right = std::max(right, x);
        if (from == to)
        {
            left = std::min(left, x1);
            right = std::max(right, x1);
        }
    }

    static void Limit(float start, float step, float low, float high, float& from, float& to)
    {
        if (step == 0.0f)
        {
            if (start < low || start > high)
                to = -1.0f;
            return;
        }
        const float one = (low - start) / step;
        const float other = (high - start) / step;
        from = std::max(from, std::min(one, other));
        to = std::min(to, std::max(one, other));
    }

    bool IsInside(int x, int row) const { return x >= 0 && x < width_ && row >= top_ && row < top_ + rows_; }

    bool IsSeen(const Corner& at) const
    {
        const int column = static_cast<int>(std::floor(at.x));
        const int row = static_cast<int>(std::floor(at.y));
        for (int y = row - 1; y <= row + 1; ++y)
            for (int x = column - 1; x <= column + 1; ++x)
                if (IsInside(x, y) && depths_[Offset(y) + static_cast<std::size_t>(x)] <= at.z + EDGE_DEPTH)
                    return true;
        return false;
    }

    void Stamp(const Corner& at, float radius, std::uint32_t color)
    {
        const int reach = static_cast<int>(std::ceil(radius));
        const int column = static_cast<int>(std::floor(at.x));
        const int row = static_cast<int>(std::floor(at.y));
        for (int y = row - reach; y <= row + reach; ++y)
            for (int x = column - reach; x <= column + reach; ++x)
            {
                const float dx = static_cast<float>(x) + 0.5f - at.x;
                const float dy = static_cast<float>(y) + 0.5f - at.y;
                if (!IsInside(x, y) || dx * dx + dy * dy > radius * radius)
                    continue;
                const std::size_t sample = Offset(y) + static_cast<std::size_t>(x);
                // A nearer part is not written over, but the surfaces that rise from the edge are.
                if (depths_[sample] <= at.z + EDGE_DEPTH + 2.0f * radius)
                    colors_[sample] = color;
            }
    }

    int width_;
    std::vector<float> depths_;
    std::vector<std::uint32_t> colors_;
    int rows_;
    int top_ = 0;
};

vwr_MeshRaster::vwr_MeshRaster(const vwr_Scene& scene, const vwr_Viewport& viewport)
    : width_(scene.width),
      height_(scene.height),
      samples_(static_cast<std::int64_t>(width_) * height_ > LARGEST_SMOOTH ? 1 : SAMPLES),
      proceed_(scene.proceed)
{
    for (const vwr_Part& part : scene.parts)
        Add(part, scene, viewport);
}

void vwr_MeshRaster::Add(const vwr_Part& part, const vwr_Scene& scene, const vwr_Viewport& viewport)
{
    if (!part.shaded && !part.edges)
        return;
    std::vector<Corner> corners;
    corners.reserve(part.points.size());
    const auto inSamples = [this](double pixels) { return static_cast<float>(samples_ * pixels); };
    for (const gsl_Point& point : part.points)
    {
        // What is not finite is in no triangle drawn.
        const vwr_Viewport::Seen seen =
            vwr_Viewport::IsFinite(point) ? viewport.Project(point) : vwr_Viewport::Seen{};
        corners.push_back({inSamples(seen.spot.x), inSamples(seen.spot.y), inSamples(seen.nearness)});
    }
    const Shading shading(scene.view, part.color);
    const std::uint32_t plain = Packed(scene.background);
    triangles_.reserve(triangles_.size() + part.triangles.size());
    for (const std::array<int, 3>& indices : part.triangles)
    {
        if (!vwr_IsDrawable(part, indices))
            continue;
        const auto corner = [&](std::size_t i) { return corners[static_cast<std::size_t>(indices[i])]; };
        const auto point = [&](std::size_t i) -> const gsl_Point& {
            return part.points[static_cast<std::size_t>(indices[i])];
        };
        triangles_.push_back({{corner(0), corner(1), corner(2)},
                              part.shaded ? shading.Of(point(0), point(1), point(2)) : plain});
    }
    if (!part.edges)
        return;
    const std::uint32_t ink = Packed(part.shaded ? Dimmed(part.color, EDGE_SHADE) : part.color);
    for (const auto& [a, b] : vwr_FeatureEdges(part, scene.view.TowardsEye()))
        segments_.push_back(
            {{corners[static_cast<std::size_t>(a)], corners[static_cast<std::size_t>(b)]}, ink});
}

template <class Shape>
vwr_MeshRaster::Bands vwr_MeshRaster::Sort(const std::vector<Shape>& shapes) const
{
    const auto bands = static_cast<std::size_t>(BandCount());
    const auto rangeOf = [&](const Shape& shape) {
        const auto byHeight = [](const Corner& a, const Corner& b) { return a.y < b.y; };
        const auto [low, high] = std::minmax_element(shape.corners.begin(), shape.corners.end(), byHeight);
        const auto band = [&](float y) {
            const float last = static_cast<float>(bands) - 1.0f;
            return static_cast<std::size_t>(
                std::clamp(std::floor(y / static_cast<float>(BAND_ROWS)), 0.0f, last));
        };
        return std::array{band(low->y - static_cast<float>(MARGIN_ROWS)),
                          band(high->y + static_cast<float>(MARGIN_ROWS))};
    };
    Bands sorted;
    sorted.first.assign(bands + 1, 0);
    for (const Shape& shape : shapes)
    {
        const auto [from, to] = rangeOf(shape);
        for (std::size_t band = from; band <= to; ++band)
            ++sorted.first[band + 1];
    }
    std::partial_sum(sorted.first.begin(), sorted.first.end(), sorted.first.begin());
    sorted.items.resize(sorted.first.back());
    std::vector<std::size_t> next(sorted.first.begin(), sorted.first.end() - 1);
    for (std::size_t i = 0; i < shapes.size(); ++i)
    {
        const auto [from, to] = rangeOf(shapes[i]);
        for (std::size_t band = from; band <= to; ++band)
            sorted.items[next[band]++] = static_cast<std::uint32_t>(i);
    }
    return sorted;
}

int vwr_MeshRaster::BandCount() const
{
    return (samples_ * height_ + BAND_ROWS - 1) / BAND_ROWS;
}

vwr_Image vwr_MeshRaster::Draw() const
{
    vwr_Image image{width_, height_, {}};
    image.pixels.reserve(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    const Bands triangles = Sort(triangles_);
    const Bands segments = Sort(segments_);
    const float radius = static_cast<float>(0.5 * EDGE_WIDTH * samples_);
    Band band(samples_ * width_, BAND_ROWS + 2 * MARGIN_ROWS);
    std::size_t drawn = 0;
    const auto ask = [&] {
        if (++drawn % ASK_EVERY == 0 && proceed_)
            proceed_();
    };
    for (int b = 0; b < BandCount(); ++b)
    {
        const int top = b * BAND_ROWS;
        band.Start(top - MARGIN_ROWS);
        for (const std::uint32_t item : triangles.Of(b))
        {
            band.Draw(triangles_[item]);
            ask();
        }
        for (const std::uint32_t item : segments.Of(b))
        {
            band.Draw(segments_[item], radius);
            ask();
        }
        const int bottom = std::min(top + BAND_ROWS, samples_ * height_);
        for (int row = top; row < bottom; row += samples_)
            for (int x = 0; x < width_; ++x)
                image.pixels.push_back(band.Pixel(x, row, samples_));
    }
    return image;
}
