#pragma once

#include <oxu_Export.h>

class omu_Primitive;

/// How many levels deep values lie in values.
///
/// A scalar has depth 0, an empty tuple, list or dictionary 1. Deeper values than LIMIT cannot be built, so
/// that printing, comparing, storing and destroying one, which go down level by level, stay far from the end
/// of any thread's stack.
class OXU_EXPORT omu_NestingDepth
{
public:
    omu_NestingDepth() = delete;

    static constexpr int LIMIT = 1000;

    /// Null has depth 0.
    static int Of(const omu_Primitive* value);

    /// The depth of a container of the given depth once it holds `item` too. Beyond LIMIT it raises
    /// omu_OverflowErrorException "values are nested too deep; maximum depth is 1000".
    static int With(const omu_Primitive* item, int depth);
};
