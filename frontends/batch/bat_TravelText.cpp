#include <bat_Number.h>
#include <bat_PlainText.h>
#include <bat_TravelResult.h>
#include <bat_TravelText.h>

namespace
{
std::string Triple(double x, double y, double z)
{
    return "(" + bat_ReadableText(x) + ", " + bat_ReadableText(y) + ", " + bat_ReadableText(z) + ")";
}

std::string Line(std::string label, const std::string& text)
{
    constexpr std::size_t LABEL_COLUMNS = 10;
    label.resize(LABEL_COLUMNS, ' ');
    return label + text + "\n";
}

std::string Counted(int count, const char* what)
{
    return bat_CountText(static_cast<unsigned long long>(count)) + " " + what + (count == 1 ? "" : "s");
}

std::string Travel(const bat_TravelResult& result)
{
    const gsl_Vector& u = result.direction;
    const std::string along = " along " + Triple(u.X(), u.Y(), u.Z());
    if (!result.IsClear())
        return bat_ReadableText(result.travel) + along;
    if (result.bound == bat_TravelResult::UNLIMITED)
        return "unlimited" + along;
    return bat_ReadableText(result.bound) + ", the bound," + along;
}

const char* Meaning(bat_TravelResult::State state)
{
    switch (state)
    {
    case bat_TravelResult::State::CONTACT:
        return "the movable part goes that far, then touches";
    case bat_TravelResult::State::TOUCHING:
        return "the parts touch where they stand, without crossing";
    case bat_TravelResult::State::OVERLAPPING:
        return "the parts cross each other where they stand";
    case bat_TravelResult::State::CLEAR:
        break;
    }
    return "no contact on the way";
}

std::string State(const bat_TravelResult& result)
{
    return std::string(result.StateName()) + ": " + Meaning(result.state);
}

std::string Part(const bat_TravelResult::Side& side, const char* remark)
{
    std::string text = bat_PlainText(side.file) + ", ";
    if (side.triangle < 0)
        return text + Counted(side.triangles, "triangle");
    return text + "triangle " + std::to_string(side.triangle) + " of " +
           bat_CountText(static_cast<unsigned long long>(side.triangles)) + " at " +
           Triple(side.point[0], side.point[1], side.point[2]) + remark;
}

std::string Size(const gsl_BBox& box)
{
    return bat_ReadableText(box.XLen()) + " x " + bat_ReadableText(box.YLen()) + " x " +
           bat_ReadableText(box.ZLen());
}
}

std::string bat_TravelHeadline(const bat_TravelResult& result)
{
    return Travel(result) + "\n" + State(result);
}

std::string bat_TravelText(const bat_TravelResult& result)
{
    const bool travels = result.state == bat_TravelResult::State::CONTACT;
    std::string text =
        Line("travel", Travel(result)) + Line("state", State(result)) +
        Line("fixed", Part(result.fixed, "")) +
        Line("movable", Part(result.movable, travels ? " before the travel" : "")) +
        Line("sizes", "fixed " + Size(result.fixed.box) + ", movable " + Size(result.movable.box));
    if (result.degenerate > 0)
        text += Line("skipped", Counted(result.degenerate, "degenerate triangle"));
    if (result.outside > 0)
        text += Line("skipped", Counted(result.outside, "triangle") + " outside the trees");
    return text;
}
