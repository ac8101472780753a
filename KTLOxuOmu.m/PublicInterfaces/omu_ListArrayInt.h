#pragma once

#include <cow_List.h>

/// A list of lists of integers: the entries of an identifier sequence, one list for each instance.
class omu_ListArrayInt : public cow_List<cow_List<int>>
{
public:
    using cow_List<cow_List<int>>::cow_List;
    omu_ListArrayInt() noexcept = default;
    explicit omu_ListArrayInt(const cow_List<cow_List<int>>& lists) noexcept : cow_List<cow_List<int>>(lists)
    {}
};
