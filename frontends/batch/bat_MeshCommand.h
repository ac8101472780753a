#pragma once

#include <bat_MeshHealth.h>
#include <bat_MeshOptions.h>
#include <bat_Subcommand.h>

/// `orvex mesh FILE`: whether a mesh is fit for use.
class bat_MeshCommand : public bat_Subcommand
{
public:
    const char* Name() const override { return "mesh"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(CLI::App& app) override { options_.Declare(app); }
    bat_ExitCode Run(const bat_Console& console) override;

private:
    bat_MeshHealth Compute();

    bat_MeshOptions options_;
    bool differs_ = false;     ///< the check found another answer
    std::string pictureFault_; ///< why there is no picture
};
