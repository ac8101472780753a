#pragma once

/// What the driver's process ends with; scripts rely on the numbers: never renumber.
enum class bat_ExitCode : int {
    DONE = 0,         ///< what was asked for is there
    CONTACT = 0,      ///< there is a contact: after a way, or at once
    FIT = 0,          ///< the mesh is fit for use
    CLEAR = 1,        ///< no contact within the bound
    UNFIT = 1,        ///< something hinders the use of the mesh
    USAGE = 2,        ///< the command line asks for something that does not exist
    INPUT = 3,        ///< a file cannot be read or written, or what was given is wrong: a file, a colour
    INTERNAL = 5,     ///< our own fault, or the machine's: memory, output
    INTERRUPTED = 130 ///< the user stopped it: 128 and the number of the signal
};
