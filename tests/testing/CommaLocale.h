#pragma once

#include <clocale>
#include <cstdlib>
#include <locale>
#include <string>
#include <testing/ScratchFolder.h>

/// Puts the process into a locale that writes a decimal comma, for the length of a scope: one that is
/// installed, or else one that localedef makes in a temporary folder. Where neither can be had, IsActive() is
/// false.
class CommaLocale
{
public:
    CommaLocale()
    {
        if (IsActive())
            return;
        const std::string made = folder_ / "de_DE.UTF-8";
        if (std::system(("localedef -i de_DE -f UTF-8 '" + made + "' >/dev/null 2>&1").c_str()) != 0)
            return;
        setenv("LOCPATH", folder_.Path().c_str(), 1);
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        unsetenv("LOCPATH");
    }
    ~CommaLocale() { std::setlocale(LC_ALL, former_.c_str()); }
    CommaLocale(const CommaLocale&) = delete;

    bool IsActive() const { return *std::localeconv()->decimal_point == ','; }

private:
    const std::string former_ = std::setlocale(LC_ALL, nullptr);
    const char* const installed_ = std::setlocale(LC_ALL, "de_DE.UTF-8");
    const ScratchFolder folder_;
};

/// Streams write 1234.5 as "1.234,5" for the length of a scope, the C library as before.
class CommaStreams
{
public:
    CommaStreams() = default;
    ~CommaStreams() { std::locale::global(former_); }
    CommaStreams(const CommaStreams&) = delete;

private:
    struct Digits : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale former_ = std::locale::global(std::locale(std::locale(), new Digits));
};
