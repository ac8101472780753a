#pragma once

#include <bat_JobCommand.h>
#include <bat_TravelOptions.h>
#include <bat_TravelResult.h>

class bat_BruteForce;
class bat_Part;
class bat_Watcher;

/// `orvex travel FIXED MOVABLE --dir X,Y,Z`: how far one part can go until it touches another.
class bat_TravelCommand : public bat_JobCommand
{
public:
    const char* Name() const override { return "travel"; }
    const char* Summary() const override;
    const char* Footer() const override;
    void Declare(bat_OptionSet& options) override { options_.Declare(options); }

private:
    const bat_JobOptions& Options() const override { return options_; }
    Answer Compute() override;
    void Draw(const bat_Part& fixed, const bat_Part& movable, bat_TravelResult& result, bat_Watcher& watcher);
    void Check(const bat_BruteForce& bruteForce, const bat_TravelResult& result, bat_Watcher& watcher);

    bat_TravelOptions options_;
};
