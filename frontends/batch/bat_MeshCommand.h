#pragma once

#include <bat_JobCommand.h>
#include <bat_MeshOptions.h>

/// `orvex mesh FILE`: whether a mesh is fit for use.
class bat_MeshCommand : public bat_JobCommand
{
public:
    const char* Name() const override { return "mesh"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(bat_OptionSet& options) override { options_.Declare(options); }

private:
    const bat_JobOptions& Options() const override { return options_; }
    Answer Compute() override;

    bat_MeshOptions options_;
};
