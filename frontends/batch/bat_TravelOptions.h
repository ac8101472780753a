#pragma once

#include <bat_JobOptions.h>
#include <bat_TravelQuestion.h>
#include <optional>
#include <string>

/// What `orvex travel` was asked to do.
class bat_TravelOptions : public bat_JobOptions
{
public:
    /// Declares the options, which are read into this object: it must outlive the parsing.
    void Declare(bat_OptionSet& options);

    const std::string& FixedFile() const { return fixed_; }
    const std::string& MovableFile() const { return movable_; }
    /// Raises bat_UsageError with what is wrong with the texts of direction and bound.
    bat_TravelQuestion Question() const;

private:
    double Bound() const;

    std::string fixed_;
    std::string movable_;
    std::string direction_;
    std::optional<std::string> bound_;
    std::string tree_ = "oct";
    int depth_ = bat_TravelQuestion::DEFAULT_DEPTH;
};
