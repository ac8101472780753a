#pragma once

#include <cow_List.h>
#include <cow_String.h>

/// List of texts; a type of its own, so that an attribute of it differs from the other kinds.
class cls_xpListString : public cow_List<cow_String>
{
public:
    using cow_List<cow_String>::cow_List;
    cls_xpListString() noexcept = default;
    explicit cls_xpListString(const cow_List<cow_String>& values) noexcept : cow_List<cow_String>(values) {}
};
