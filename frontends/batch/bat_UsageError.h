#pragma once

#include <stdexcept>

/// The command line asks for something that cannot be done; what() is a sentence for the user.
class bat_UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
