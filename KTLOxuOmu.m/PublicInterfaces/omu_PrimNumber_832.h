#pragma once

#include <omu_PrimNumber.h>

/// The stored layout of omu_PrimNumber in releases 832 to 834: the attributes of omu_PrimNumber_800 under a
/// version of its own.
class OXU_EXPORT omu_PrimNumber_832
{
public:
    omu_PrimNumber_832() = delete;

    static constexpr unsigned TypeId() { return omu_PrimNumber::TypeId(); }
    static constexpr unsigned Version() { return 832; }
    /// Declares omu_PrimNumber as those releases did, to a registrar that stands for one of them.
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
};
