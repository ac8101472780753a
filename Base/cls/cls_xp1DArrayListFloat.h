#pragma once

#include <cow_List.h>

/// Flat growable array of floats; a type of its own, so that an attribute of it differs from the other kinds.
class cls_xp1DArrayListFloat : public cow_List<float>
{
public:
    using cow_List<float>::cow_List;
    cls_xp1DArrayListFloat() noexcept = default;
    explicit cls_xp1DArrayListFloat(const cow_List<float>& values) noexcept : cow_List<float>(values) {}
};
