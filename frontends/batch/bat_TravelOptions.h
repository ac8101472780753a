#pragma once

#include <CLI/App.hpp>
#include <bat_TravelResult.h>
#include <gsl_TriOctree.h>
#include <gsl_Vector.h>
#include <string>

/// What `orvex travel` was asked to do.
class bat_TravelOptions
{
public:
    static constexpr int DEFAULT_DEPTH = 7;
    static constexpr int GREATEST_DEPTH = 20;

    /// Declares the options, which are read into this object: it must outlive the parsing.
    void Declare(CLI::App& app);

    const std::string& FixedFile() const { return fixed_; }
    const std::string& MovableFile() const { return movable_; }
    /// Raises bat_UsageError with what is wrong with the text given; unit length.
    gsl_Vector Direction() const;
    /// Above zero, bat_TravelResult::UNLIMITED when not given; raises bat_UsageError.
    double Bound() const;
    int Depth() const { return depth_; }
    gsl_TriOctree::OctreeNodeType Tree() const;
    bool Json() const { return json_; }
    bool Check() const { return check_; }
    /// Neither notes nor progress.
    bool Quiet() const { return quiet_; }
    bool ShowsProgress() const { return !quiet_ && !noProgress_; }

private:
    std::string fixed_;
    std::string movable_;
    std::string direction_;
    std::string bound_;
    bool hasBound_ = false;
    std::string tree_ = "oct";
    int depth_ = DEFAULT_DEPTH;
    bool json_ = false;
    bool check_ = false;
    bool quiet_ = false;
    bool noProgress_ = false;
};
