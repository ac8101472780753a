#pragma once

#include <bat_ConsoleReporter.h>
#include <string>

class bat_OptionSet;

/// What every command that computes over meshes may be asked for, besides its question.
class bat_JobOptions
{
public:
    /// Empty for none.
    const std::string& Picture() const { return picture_; }
    bool Json() const { return json_; }
    bool Check() const { return check_; }
    /// Neither notes nor progress.
    bool Quiet() const { return quiet_; }
    bat_ConsoleReporter::Progress Progress(const bat_Console& console) const;

protected:
    /// Declares the options, which are read into this object, with what a picture shows and what a check is.
    void DeclareJob(bat_OptionSet& options, const std::string& picture, const std::string& check);

private:
    std::string picture_;
    bool json_ = false;
    bool check_ = false;
    bool quiet_ = false;
    bool noProgress_ = false;
};
