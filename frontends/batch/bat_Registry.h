#pragma once

#include <bat_Subcommand.h>
#include <memory>
#include <vector>

/// All subcommands of the driver, in the order in which --help lists them.
std::vector<std::unique_ptr<bat_Subcommand>> bat_Registry();
