#pragma once

#include <cstddef>
#include <string>

/// The names that are spelt nearly as an unknown one, for the sentence that refuses it. Upper and lower case
/// do not matter, nor does a module's prefix that the unknown name lacks.
class bat_NearestNames
{
public:
    explicit bat_NearestNames(const std::string& unknown);

    void Offer(const std::string& name);
    /// " Did you mean "A" or "B"?" with the nearest of those offered; empty where none is near.
    std::string Hint() const;

private:
    std::size_t EditsTo(const std::string& name) const;

    std::string unknown_;
    std::string names_;
    std::size_t best_;
};
