#pragma once

#include <CLI/App.hpp>
#include <bat_TravelQuestion.h>
#include <string>

/// What `orvex travel` was asked to do.
class bat_TravelOptions
{
public:
    /// Declares the options, which are read into this object: it must outlive the parsing.
    void Declare(CLI::App& app);

    const std::string& FixedFile() const { return fixed_; }
    const std::string& MovableFile() const { return movable_; }
    /// Raises bat_UsageError with what is wrong with the texts of direction and bound.
    bat_TravelQuestion Question() const;
    /// Empty for none.
    const std::string& Picture() const { return picture_; }
    bool Json() const { return json_; }
    bool Check() const { return check_; }
    /// Neither notes nor progress.
    bool Quiet() const { return quiet_; }
    bool ShowsProgress() const { return !quiet_ && !noProgress_; }

private:
    double Bound() const;

    std::string fixed_;
    std::string movable_;
    std::string direction_;
    std::string bound_;
    bool hasBound_ = false;
    std::string tree_ = "oct";
    int depth_ = bat_TravelQuestion::DEFAULT_DEPTH;
    std::string picture_;
    bool json_ = false;
    bool check_ = false;
    bool quiet_ = false;
    bool noProgress_ = false;
};
