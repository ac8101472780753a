#pragma once

#include <cow_List.h>

/// List of integers; a type of its own, so that an attribute of it differs from the other kinds.
class cls_xpListInt : public cow_List<int>
{
public:
    using cow_List<int>::cow_List;
    cls_xpListInt() noexcept = default;
    explicit cls_xpListInt(const cow_List<int>& values) noexcept : cow_List<int>(values) {}
};
