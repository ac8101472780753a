#include <bat_PictureFile.h>
#include <bat_TravelPicture.h>

#ifdef ORVEX_WITH_VIEWER

#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <array>
#include <bat_InputError.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Task.h>
#include <bat_TravelResult.h>
#include <bat_TravelText.h>
#include <limits>
#include <memory>
#include <vwr_Scene.h>

namespace
{
using Point = std::array<double, 3>;

// In millimetres on the picture: how far the number stands from the point that it belongs to, and the
// headline from the picture's corner.
constexpr double LABEL_WAY = 14.0;
constexpr double MARGIN = 4.0;
constexpr const char* BOLD_FONT = "-*-helvetica-bold-r-normal-*-*-140-";

vwr_Part Drawn(const bat_Part& part, g3d_PresetColorEnum color)
{
    vwr_Part drawn;
    drawn.color = g3d_Color(color);
    drawn.edges = true;
    if (part.Count() > std::numeric_limits<int>::max() / 3)
        throw bat_InputError(part.File() + ": too many triangles for a picture");
    const std::size_t count = static_cast<std::size_t>(part.Count());
    drawn.triangles.reserve(count);
    drawn.points.reserve(3 * count);
    for (int i = 0; i < part.Count(); ++i)
    {
        gsl_Point p[3];
        part.Points(i, p[0], p[1], p[2]);
        drawn.points.insert(drawn.points.end(), p, p + 3);
        drawn.triangles.push_back({3 * i, 3 * i + 1, 3 * i + 2});
    }
    return drawn;
}

/// From above and aside, from where the travel is seen at its longest; from the front right when nothing else
/// decides.
vwr_View ViewAcross(const gsl_Vector& travel)
{
    constexpr double CLEARLY = 1e-9; // so that rounding decides nothing
    const gsl_Vector up(0.0, 0.0, 1.0);
    gsl_Vector best;
    double longest = -1.0;
    for (const auto& [x, y] : {std::pair{-1.0, -1.0}, {1.0, -1.0}, {-1.0, 1.0}, {1.0, 1.0}})
    {
        const gsl_Vector looking(x, y, -1.0);
        const double length = looking.CrossProduct(travel).Magnitude();
        if (length <= longest + CLEARLY)
            continue;
        longest = length;
        best = looking;
    }
    return vwr_View::Along(best, up);
}

annC_AnchorCow At(const Point& point)
{
    return annC_AnchorCow(new annC_Point3DAnchor(point[0], point[1], point[2]));
}

annC_AnchorCow At(annC_RelativePositionEnm position)
{
    return annC_AnchorCow(new annC_NamedAnchor(position));
}

std::unique_ptr<annC_Text> NewText(const std::string& text, annC_RelativePositionEnm reference)
{
    auto made = std::make_unique<annC_Text>();
    made->text = cow_String(std::string_view(text));
    made->color = "Black";
    made->referencePoint = At(reference);
    return made;
}

void InsertHeadline(annC_AnnotationContainer& annotations, const bat_TravelResult& result)
{
    auto text = NewText(bat_TravelHeadline(result), annC_RelativePositionEnm::BOTTOM_LEFT);
    text->anchor = At(annC_RelativePositionEnm::BOTTOM_LEFT);
    text->offsetX = MARGIN;
    text->offsetY = MARGIN;
    annotations.Insert("Headline", text.release());
}

void InsertTravel(annC_AnnotationContainer& annotations, const bat_TravelResult& result)
{
    auto arrow = std::make_unique<annC_Arrow>();
    arrow->startAnchor = At(result.movable.point);
    arrow->endAnchor = At(result.fixed.point);
    arrow->color = "Red";
    arrow->lineThickness = annC_LineThicknessEnm::MEDIUM;
    annotations.Insert("Travel", arrow.release());
}

/// A dot on the point, and what there is to say on the end of a line that leads to the picture's middle.
void InsertContact(annC_AnnotationContainer& annotations, const bat_TravelResult& result,
                   const vwr_View& view)
{
    gsl_BBox box = result.fixed.box;
    box.Add(result.movable.box);
    const Point& point = result.fixed.point;
    const gsl_Vector fromMiddle(box.Center(), gsl_Point(point[0], point[1], point[2]));
    const bool isRight = fromMiddle.DotProduct(view.Right()) > 0.0;
    const bool isHigh = fromMiddle.DotProduct(view.Up()) > 0.0;
    const double x = isRight ? -LABEL_WAY : LABEL_WAY;
    const double y = isHigh ? -LABEL_WAY : LABEL_WAY;

    using Position = annC_RelativePositionEnm;
    auto text = NewText(result.state == bat_TravelResult::State::CONTACT ? bat_ReadableText(result.travel)
                                                                         : result.StateName(),
                        isRight ? (isHigh ? Position::TOP_RIGHT : Position::BOTTOM_RIGHT)
                                : (isHigh ? Position::TOP_LEFT : Position::BOTTOM_LEFT));
    text->font = BOLD_FONT;
    text->backgroundStyle = annC_BackgroundStyleEnm::MATCH;
    text->box = true;
    text->anchor = At(point);
    text->offsetX = x;
    text->offsetY = y;

    auto mark = std::make_unique<annC_Arrow>();
    mark->startAnchor = At(point);
    mark->startPointX = x;
    mark->startPointY = y;
    mark->endAnchor = At(point);
    mark->endHeadStyle = annC_ArrowHeadStyleEnm::FILLED_CIRCLE;
    mark->color = "Black";
    mark->lineThickness = annC_LineThicknessEnm::THIN;

    annotations.Insert("Contact", mark.release());
    annotations.Insert("Distance", text.release());
}
}

void bat_TravelPicture::Save(const std::string& path) const
{
    vwr_Scene scene;
    scene.view = ViewAcross(result_.direction);
    scene.background = g3d_Color(g3d_White);
    bat_Task task(watcher_, 0, 1);
    scene.proceed = [&task] { task.Step(); };
    scene.parts.push_back(Drawn(fixed_, g3d_Grey60));
    scene.parts.push_back(Drawn(movable_, g3d_MediumBlue));
    annC_AnnotationContainer annotations;
    InsertHeadline(annotations, result_);
    if (result_.state == bat_TravelResult::State::CONTACT)
        InsertTravel(annotations, result_);
    if (!result_.IsClear())
        InsertContact(annotations, result_, scene.view);
    scene.annotations = &annotations;
    bat_PictureFile::Save(path, scene);
}

#else

void bat_TravelPicture::Save(const std::string& path) const
{
    bat_PictureFile::RequirePlace(path);
}

#endif
