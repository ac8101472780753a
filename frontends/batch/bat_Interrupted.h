#pragma once

#include <exception>

/// The user asked to stop: unwinds to the driver, which ends with bat_ExitCode::INTERRUPTED.
class bat_Interrupted : public std::exception
{
public:
    const char* what() const noexcept override { return "interrupted"; }
};
