#pragma once

#include <oxu_Export.h>

class omu_PrimTuple;

/// Who wants to hear of each change at once: see omu_ChangeHistory::Listen.
class OXU_EXPORT omu_ChangeListener
{
public:
    virtual ~omu_ChangeListener();

    /// The change is in the history already. What this raises reaches the one who made the change.
    virtual void Changed(const omu_PrimTuple& change) = 0;
};
