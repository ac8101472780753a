#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

/// JSON on one line. What is no UTF-8, as in the name of a file, is replaced.
std::string bat_JsonText(const nlohmann::ordered_json& json);
