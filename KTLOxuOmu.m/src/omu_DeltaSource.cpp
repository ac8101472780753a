#include <omu_ChangeHistory.h>
#include <omu_DeltaSource.h>

void omu_DeltaSource::Restart() noexcept
{
    uid_ = cls_Uid();
    posted_ = 0;
}

void omu_DeltaSource::Post(omu_Delta::KindEnm kind, const cow_String& name, const cow_String& newName,
                           int index)
{
    try
    {
        omu_ChangeHistory::Instance().addChange(omu_Delta{name, newName, kind, index, uid_, ++posted_});
    }
    catch (...)
    {
        // What was to be posted next will not be, although the collection has changed.
        Restart();
        throw;
    }
}
