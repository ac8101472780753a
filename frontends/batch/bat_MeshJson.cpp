#include <bat_JsonText.h>
#include <bat_MeshHealth.h>
#include <bat_MeshJson.h>
#include <bat_Version.h>
#include <nlohmann/json.hpp>

namespace
{
using Json = nlohmann::ordered_json;
using Flaw = bat_MeshHealth::Flaw;

constexpr const char* SCHEMA = "orvex.mesh/1";

Json Triple(const gsl_Point& p)
{
    return {p.X() + 0.0, p.Y() + 0.0, p.Z() + 0.0};
}

/// The kinds of flaws from one to before another.
Json Findings(const bat_MeshHealth& health, std::size_t from, std::size_t to)
{
    Json found = Json::object();
    for (std::size_t i = from; i < to; ++i)
        found[bat_MeshHealth::Name(static_cast<Flaw>(i))] = {{"count", health.findings[i].count},
                                                             {"triangles", health.findings[i].triangles}};
    return found;
}
}

std::string bat_MeshJson(const bat_MeshHealth& health)
{
    Json worst = Json::array();
    for (const bat_MeshHealth::Shape& shape : health.worst)
        worst.push_back({{"triangle", shape.triangle}, {"factor", shape.factor}});
    const Json volume = health.volume ? Json(*health.volume) : Json();
    const Json json = {{"schema", SCHEMA},
                       {"file", health.file},
                       {"fit", health.IsFit()},
                       {"hindrances", health.Hindrances()},
                       {"tolerance", health.question.tolerance},
                       {"triangles", health.triangles.size()},
                       {"corners", health.Corners()},
                       {"points", health.points.size()},
                       {"edges", health.edges},
                       {"groups", {{"count", health.groupSizes.size()}, {"largest", health.LargestGroups()}}},
                       {"box", {{"low", Triple(health.box.Low())}, {"high", Triple(health.box.High())}}},
                       {"closed", health.closed},
                       {"area", health.area},
                       {"volume", volume},
                       {"shape",
                        {{"mean", health.meanFactor},
                         {"classes", health.histogram},
                         {"worst", worst},
                         {"sliver", health.question.sliver}}},
                       {"degenerate", Findings(health, 0, bat_MeshHealth::DEGENERATE)},
                       {"flaws", Findings(health, bat_MeshHealth::DEGENERATE, bat_MeshHealth::FLAWS)},
                       {"version", BAT_VERSION}};
    return bat_JsonText(json);
}
