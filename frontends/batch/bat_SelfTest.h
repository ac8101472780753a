#pragma once

#include <span>
#include <string>
#include <vector>

/// Small jobs with known answers, which tell whether the library works where it runs. The library must be
/// started.
class bat_SelfTest
{
public:
    struct Check
    {
        const char* name;
        void (*run)(); ///< throws what is wrong
    };
    struct Finding
    {
        std::string name;
        std::string fault; ///< empty where all is well
    };

    bat_SelfTest() = delete;

    static std::span<const Check> Checks();
    /// Every check, whatever becomes of the others.
    static std::vector<Finding> Run(std::span<const Check> checks);
};
