#pragma once

#include <exception>

/// Whoever watches the job wants it stopped: unwinds to who began it, in the driver to the end with
/// bat_ExitCode::INTERRUPTED.
class bat_Interrupted : public std::exception
{
public:
    const char* what() const noexcept override { return "interrupted"; }
};
