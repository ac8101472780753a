#pragma once

#include <cow_List.h>

/// Flat array of integers; a type of its own, so that an attribute of it differs from the other kinds.
class cls_xp1DArrayInt : public cow_List<int>
{
public:
    using cow_List<int>::cow_List;
    cls_xp1DArrayInt() noexcept = default;
    explicit cls_xp1DArrayInt(const cow_List<int>& values) noexcept : cow_List<int>(values) {}
};
