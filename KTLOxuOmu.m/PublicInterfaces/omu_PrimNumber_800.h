#pragma once

#include <omu_PrimNumber.h>

/// The stored layout of omu_PrimNumber in releases 800 to 831: value and data type, an unsigned number's
/// value in the double too.
class OXU_EXPORT omu_PrimNumber_800
{
public:
    omu_PrimNumber_800() = delete;

    static constexpr unsigned TypeId() { return omu_PrimNumber::TypeId(); }
    static constexpr unsigned Version() { return 800; }
    /// Declares omu_PrimNumber as those releases did, to a registrar that stands for one of them. Objects are
    /// read by omu_PrimNumber's own constructor.
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
};
