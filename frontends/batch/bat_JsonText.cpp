#include <bat_JsonText.h>
#include <nlohmann/json.hpp>

std::string bat_JsonText(const nlohmann::ordered_json& json)
{
    return json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}
