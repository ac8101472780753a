#pragma once

#include <bat_Subcommand.h>
#include <bat_TravelOptions.h>
#include <bat_TravelResult.h>

class bat_BruteForce;
class bat_Part;
class bat_Watcher;

/// `orvex travel FIXED MOVABLE --dir X,Y,Z`: how far one part can go until it touches another.
class bat_TravelCommand : public bat_Subcommand
{
public:
    const char* Name() const override { return "travel"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(CLI::App& app) override { options_.Declare(app); }
    bat_ExitCode Run(const bat_Console& console) override;

private:
    bat_TravelResult Compute();
    void Draw(const bat_Part& fixed, const bat_Part& movable, bat_TravelResult& result);
    void Check(const bat_BruteForce& bruteForce, const bat_TravelResult& result, bat_Watcher& watcher);

    bat_TravelOptions options_;
    bool differs_ = false;     ///< the check found another answer
    std::string pictureFault_; ///< why there is no picture
};
