#include <algorithm>
#include <bat_NearestNames.h>
#include <cctype>
#include <numeric>
#include <utility>
#include <vector>

namespace
{
constexpr std::size_t MOST_EDITS = 2;
constexpr std::size_t LONGEST = 64; // longer ones are no misspelt names

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// How many letters must be put in, taken out or replaced to come from one text to the other (Levenshtein,
/// "Binary codes capable of correcting deletions, insertions, and reversals", 1966).
std::size_t Edits(const std::string& from, const std::string& to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 1; i <= from.size(); ++i)
    {
        std::size_t diagonal = std::exchange(row[0], i);
        for (std::size_t k = 1; k <= to.size(); ++k)
        {
            const std::size_t replaced = diagonal + (from[i - 1] != to[k - 1]);
            diagonal = row[k];
            row[k] = std::min({replaced, row[k] + 1, row[k - 1] + 1});
        }
    }
    return row.back();
}
}

bat_NearestNames::bat_NearestNames(const std::string& unknown)
    : unknown_(Lower(unknown)), best_(MOST_EDITS + 1)
{}

std::size_t bat_NearestNames::EditsTo(const std::string& name) const
{
    const std::size_t edits = Edits(unknown_, name);
    // Of a short name two edits leave nothing.
    return edits < name.size() - 1 ? edits : MOST_EDITS + 1;
}

void bat_NearestNames::Offer(const std::string& name)
{
    if (unknown_.size() > LONGEST || name.empty())
        return;
    const std::string lower = Lower(name);
    std::size_t edits = EditsTo(lower);
    const std::size_t prefix = lower.find('_') + 1;
    if (prefix > 0 && prefix < lower.size() && unknown_.find('_') == unknown_.npos)
        edits = std::min(edits, EditsTo(lower.substr(prefix)));
    if (edits > best_ || edits > MOST_EDITS)
        return;
    names_ = (edits < best_ ? "" : names_ + " or ") + '"' + name + '"';
    best_ = edits;
}

std::string bat_NearestNames::Hint() const
{
    return names_.empty() ? names_ : " Did you mean " + names_ + "?";
}
