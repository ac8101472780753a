#pragma once

#include <omu_PrimEnumBase.h>

/// The stored layout of symbolic constants before release 514: the name, as now, under version 1.
class OXU_EXPORT omu_PrimEnumBase_1
{
public:
    omu_PrimEnumBase_1() = delete;

    static constexpr unsigned TypeId() { return omu_PrimEnumBase::TypeId(); }
    static constexpr unsigned Version() { return 1; }
    /// Declares omu_PrimEnumBase as those releases did, to a registrar that stands for one of them. Objects
    /// are read by omu_PrimEnumBase's own constructor.
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
};
