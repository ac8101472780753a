#pragma once

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <locale>
#include <string>
#include <unistd.h>

/// Puts the process into a locale that writes a decimal comma, for the length of a scope: one that is
/// installed, or else one that localedef makes in a temporary folder. Where neither can be had, IsActive() is
/// false.
class CommaLocale
{
public:
    CommaLocale() : former_(std::setlocale(LC_ALL, nullptr))
    {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"})
            if (TrySet(name))
                return;
        folder_ = std::filesystem::temp_directory_path() / ("comma_locale_" + std::to_string(getpid()));
        std::filesystem::create_directories(folder_);
        const std::string made = (folder_ / "de_DE.UTF-8").string();
        if (std::system(("localedef -i de_DE -f UTF-8 '" + made + "' >/dev/null 2>&1").c_str()) != 0)
            return;
        setenv("LOCPATH", folder_.c_str(), 1);
        TrySet("de_DE.UTF-8");
        unsetenv("LOCPATH");
    }
    ~CommaLocale()
    {
        std::setlocale(LC_ALL, former_.c_str());
        if (!folder_.empty())
        {
            std::error_code ignored;
            std::filesystem::remove_all(folder_, ignored);
        }
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool IsActive() const { return active_; }

private:
    bool TrySet(const char* name)
    {
        active_ = std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',';
        return active_;
    }

    std::string former_;
    std::filesystem::path folder_;
    bool active_ = false;
};

/// Streams write 1234.5 as "1.234,5" for the length of a scope, the C library as before.
class CommaStreams
{
public:
    CommaStreams() : former_(std::locale::global(std::locale(std::locale(), new Digits))) {}
    ~CommaStreams() { std::locale::global(former_); }
    CommaStreams(const CommaStreams&) = delete;
    CommaStreams& operator=(const CommaStreams&) = delete;

private:
    struct Digits : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale former_;
};
