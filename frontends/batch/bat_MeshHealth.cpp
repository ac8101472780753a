#include <algorithm>
#include <bat_MeshHealth.h>
#include <functional>

const char* bat_MeshHealth::Name(Flaw flaw)
{
    static constexpr const char* NAMES[] = {"coincident", "collinear", "out of scale", "sliver",
                                            "duplicate",  "open",      "non-manifold", "misturned"};
    static_assert(std::size(NAMES) == FLAWS);
    return NAMES[flaw];
}

std::vector<std::size_t> bat_MeshHealth::LargestGroups() const
{
    std::vector<std::size_t> largest(std::min(groupSizes.size(), question.named));
    std::partial_sort_copy(groupSizes.begin(), groupSizes.end(), largest.begin(), largest.end(),
                           std::greater<>());
    return largest;
}

bool bat_MeshHealth::Hinders(Flaw flaw) const
{
    const bool isAllowed = (flaw == OPEN && question.open) || (flaw == SLIVER && !question.sliversHinder);
    return findings[flaw].count > 0 && !isAllowed;
}

std::vector<std::string> bat_MeshHealth::Hindrances() const
{
    std::vector<std::string> names;
    for (std::size_t flaw = 0; flaw < FLAWS; ++flaw)
        if (Hinders(static_cast<Flaw>(flaw)))
            names.emplace_back(Name(static_cast<Flaw>(flaw)));
    if (IsInsideOut())
        names.emplace_back("inside out");
    return names;
}
