#pragma once

#include <stdexcept>

/// What was given is wrong or cannot be had: a file, a colour; what() is a sentence for the user.
class bat_InputError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
