#pragma once

#include <bat_ExitCode.h>

class bat_OptionSet;
struct bat_Console;

/// One of the driver's subcommands: says which options it has, then runs with what was read into them.
class bat_Subcommand
{
public:
    virtual ~bat_Subcommand() = default;

    virtual const char* Name() const = 0;
    /// One line for the list of subcommands.
    virtual const char* Summary() const = 0;
    /// Two command lines at least that run as they stand, and the exit codes; stands below the options in
    /// --help.
    virtual const char* Footer() const = 0;

    /// Declares the options, which are read into this object.
    virtual void Declare(bat_OptionSet& options) = 0;

    /// Results go to console.out, everything else to console.err. Raises bat_UsageError, bat_InputError,
    /// bat_MeshError, bat_Interrupted, or whatever went wrong inside.
    virtual bat_ExitCode Run(const bat_Console& console) = 0;
};
