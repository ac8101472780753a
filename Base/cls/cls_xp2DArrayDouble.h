#pragma once

#include <cow_2DArray.h>

/// Rectangle of doubles; a type of its own, so that an attribute of it differs from the other kinds.
class cls_xp2DArrayDouble : public cow_2DArray<double>
{
public:
    using cow_2DArray<double>::cow_2DArray;
    cls_xp2DArrayDouble() noexcept = default;
    explicit cls_xp2DArrayDouble(const cow_2DArray<double>& values) noexcept : cow_2DArray<double>(values) {}
};
