#pragma once

#include <bat_Words.h>
#include <string>
#include <vector>

/// The script with which zsh completes the command lines of `program`.
std::string bat_ZshCompletion(const bat_Words& program, const std::vector<bat_Words>& subcommands);
