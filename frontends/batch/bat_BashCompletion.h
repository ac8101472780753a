#pragma once

#include <bat_Words.h>
#include <string>
#include <vector>

/// The script with which bash completes the command lines of `program`.
std::string bat_BashCompletion(const bat_Words& program, const std::vector<bat_Words>& subcommands);
