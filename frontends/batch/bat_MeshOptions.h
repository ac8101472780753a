#pragma once

#include <CLI/App.hpp>
#include <bat_MeshQuestion.h>
#include <string>

/// What `orvex mesh` was asked to do.
class bat_MeshOptions
{
public:
    /// Declares the options, which are read into this object: it must outlive the parsing.
    void Declare(CLI::App& app);

    const std::string& File() const { return file_; }
    /// Raises bat_UsageError with what is wrong with the texts of the numbers.
    bat_MeshQuestion Question() const;
    /// Empty for none.
    const std::string& Picture() const { return picture_; }
    bool Json() const { return json_; }
    bool Check() const { return check_; }
    /// Neither notes nor progress.
    bool Quiet() const { return quiet_; }
    bool ShowsProgress() const { return !quiet_ && !noProgress_; }

private:
    std::string file_;
    std::string tolerance_ = "0";
    std::string sliver_; ///< empty when none was given
    std::size_t named_ = bat_MeshQuestion::DEFAULT_NAMED;
    bool open_ = false;
    std::string picture_;
    bool json_ = false;
    bool check_ = false;
    bool quiet_ = false;
    bool noProgress_ = false;
};
