#pragma once

#include <bat_JobOptions.h>
#include <bat_MeshQuestion.h>
#include <optional>
#include <string>

/// What `orvex mesh` was asked to do.
class bat_MeshOptions : public bat_JobOptions
{
public:
    /// Declares the options, which are read into this object: it must outlive the parsing.
    void Declare(bat_OptionSet& options);

    const std::string& File() const { return file_; }
    /// Raises bat_UsageError with what is wrong with the texts of the numbers.
    bat_MeshQuestion Question() const;

private:
    std::string file_;
    std::string tolerance_ = "0";
    std::optional<std::string> sliver_;
    int named_ = bat_MeshQuestion::DEFAULT_NAMED;
    bool open_ = false;
};
