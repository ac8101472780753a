#pragma once

#include <cow_List.h>

/// Array of lists of floats; a type of its own, so that an attribute of it differs from the other kinds.
class cls_xp1DArrayListFloat : public cow_List<cow_List<float>>
{
public:
    using cow_List<cow_List<float>>::cow_List;
    cls_xp1DArrayListFloat() noexcept = default;
    explicit cls_xp1DArrayListFloat(const cow_List<cow_List<float>>& lists) noexcept
        : cow_List<cow_List<float>>(lists)
    {}
};
