#include <bat_JsonText.h>
#include <bat_Number.h>
#include <bat_TravelJson.h>
#include <bat_TravelResult.h>
#include <bat_Version.h>
#include <nlohmann/json.hpp>

namespace
{
constexpr const char* SCHEMA = "orvex.travel/1";

std::string Triple(double x, double y, double z)
{
    return "[" + bat_NumberText(x) + "," + bat_NumberText(y) + "," + bat_NumberText(z) + "]";
}

std::string Part(const bat_TravelResult::Side& side)
{
    const bool touches = side.triangle >= 0;
    return "{\"file\":" + bat_JsonText(side.file) + ",\"triangles\":" + std::to_string(side.triangles) +
           ",\"triangle\":" + (touches ? std::to_string(side.triangle) : "null") +
           ",\"point\":" + (touches ? Triple(side.point[0], side.point[1], side.point[2]) : "null") + "}";
}
}

std::string bat_TravelJson(const bat_TravelResult& result)
{
    const gsl_Vector& u = result.direction;
    return "{\"schema\":" + bat_JsonText(SCHEMA) + ",\"state\":" + bat_JsonText(result.StateName()) +
           ",\"travel\":" + (result.IsClear() ? "null" : bat_NumberText(result.travel)) + ",\"bound\":" +
           (result.bound == bat_TravelResult::UNLIMITED ? "null" : bat_NumberText(result.bound)) +
           ",\"tolerance\":" + bat_NumberText(result.tolerance) +
           ",\"direction\":" + Triple(u.X(), u.Y(), u.Z()) + ",\"fixed\":" + Part(result.fixed) +
           ",\"movable\":" + Part(result.movable) +
           ",\"skipped\":{\"degenerate\":" + std::to_string(result.degenerate) +
           ",\"outside\":" + std::to_string(result.outside) + "}" +
           (result.picture.empty() ? "" : ",\"picture\":" + bat_JsonText(result.picture)) +
           ",\"version\":" + bat_JsonText(BAT_VERSION) + "}";
}
