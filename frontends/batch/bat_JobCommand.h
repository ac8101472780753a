#pragma once

#include <bat_Subcommand.h>
#include <string>

class bat_JobOptions;

/// A command that computes over meshes: its progress is shown, its answer printed, checked and drawn where
/// that is asked for.
class bat_JobCommand : public bat_Subcommand
{
public:
    bat_ExitCode Run(const bat_Console& console) final;

protected:
    struct Answer
    {
        std::string text; ///< with the end of its last line
        bat_ExitCode code;
    };

    virtual const bat_JobOptions& Options() const = 0;
    virtual Answer Compute() = 0;

    bool differs_ = false;     ///< the check found another answer
    std::string pictureFault_; ///< why there is no picture
};
