#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

struct bat_Console;

/// What the program is made of and what it finds where it runs: versions, build, limits, environment.
class bat_Diagnosis
{
public:
    using Json = nlohmann::ordered_json;

    struct Row
    {
        std::string label;
        Json value;       ///< null where there is none
        std::string note; ///< what the value means, in a few words; may be empty
    };
    struct Section
    {
        std::string title;
        std::vector<Row> rows;
    };

    /// The library must be started.
    static std::vector<Section> Take(const bat_Console& console);
};
