#pragma once

#include <cow_BoolVector.h>

#include <type_traits>
#include <vector>

/// std::vector<T>, but for bool too a sequence of objects.
template <class T>
using cow_Vector = std::conditional_t<std::is_same_v<T, bool>, cow_BoolVector, std::vector<T>>;
