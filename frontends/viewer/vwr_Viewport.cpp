#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
#include <vwr_Block.h>
#include <vwr_Scene.h>
#include <vwr_Viewport.h>

#include <algorithm>
#include <limits>

struct vwr_Viewport::Extent
{
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void Add(double value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    bool IsEmpty() const { return low > high; }
    double Length() const { return high - low; }
    double Middle() const { return low + 0.5 * (high - low); }
};

namespace
{
template <class F>
void EachAnchor(const annC_AnnotationContainer& annotations, F take)
{
    for (const cow_String& name : annotations.Keys())
    {
        const annC_Annotation* const annotation = annotations.ConstGet(name);
        if (const auto* arrow = dynamic_cast<const annC_Arrow*>(annotation))
        {
            take(arrow->startAnchor.AsPtr());
            take(arrow->endAnchor.AsPtr());
        }
        else if (const auto* text = dynamic_cast<const annC_Text*>(annotation))
            take(text->anchor.AsPtr());
    }
}
}

vwr_Viewport::vwr_Viewport(const vwr_Scene& scene)
    : width_(scene.width),
      height_(scene.height),
      fittedWidth_(std::max(width_ - scene.freeAtRight, 1.0)),
      right_(scene.view.Right()),
      up_(scene.view.Up()),
      eye_(scene.view.TowardsEye())
{
    Fit(scene);
}

bool vwr_Viewport::IsFinite(const gsl_Point& point)
{
    return std::fabs(point.X()) <= LARGEST_COORDINATE && std::fabs(point.Y()) <= LARGEST_COORDINATE &&
           std::fabs(point.Z()) <= LARGEST_COORDINATE;
}

void vwr_Viewport::Fit(const vwr_Scene& scene)
{
    Extent right;
    Extent up;
    Extent eye;
    const auto add = [&](const gsl_Point& point) {
        if (!IsFinite(point))
            return;
        right.Add(right_(point));
        up.Add(up_(point));
        eye.Add(eye_(point));
    };
    for (const vwr_Part& part : scene.parts)
        for (const gsl_Point& point : part.points)
            add(point);
    if (right.IsEmpty() && scene.annotations != nullptr)
        EachAnchor(*scene.annotations, [&](const annC_Anchor* anchor) {
            if (const auto* place = dynamic_cast<const annC_Point3DAnchor*>(anchor))
                add({place->positionX, place->positionY, place->positionZ});
        });
    if (right.IsEmpty())
        return;
    middleRight_ = right.Middle();
    middleUp_ = up.Middle();
    middleEye_ = eye.Middle();
    constexpr double FILLED = 1.0 - 2.0 * MARGIN;
    const double fitted = std::min(FILLED * fittedWidth_ / right.Length(), FILLED * height_ / up.Length());
    if (std::isfinite(fitted))
        scale_ = fitted;
}

vwr_Viewport::Seen vwr_Viewport::Project(const gsl_Point& point) const
{
    return {{0.5 * fittedWidth_ + scale_ * (right_(point) - middleRight_),
             0.5 * height_ - scale_ * (up_(point) - middleUp_)},
            scale_ * (eye_(point) - middleEye_)};
}

vwr_Spot vwr_Viewport::Place(const annC_Anchor* anchor) const
{
    const auto at = [this](vwr_Block::Fraction f) {
        return vwr_Spot{f.right * width_, height_ - f.up * height_};
    };
    if (const auto* named = dynamic_cast<const annC_NamedAnchor*>(anchor))
        return at(vwr_Block::Of(named->position));
    if (const auto* given = dynamic_cast<const annC_ViewportAnchor*>(anchor))
        return at({given->positionX / 100.0, given->positionY / 100.0});
    if (const auto* model = dynamic_cast<const annC_Point3DAnchor*>(anchor))
        return Project({model->positionX, model->positionY, model->positionZ}).spot;
    return at({});
}

vwr_Spot vwr_Viewport::Place(const annC_Anchor* anchor, double right, double up) const
{
    return Place(anchor) + vwr_Spot{PIXELS_PER_MM * right, -PIXELS_PER_MM * up};
}
