#pragma once

#include <omu_ChangeHistory.h>
#include <omu_PrimTuple.h>
#include <string>

/// The changes of this thread since construction or the last Take.
class AnnotationHistory
{
public:
    /// Each delta as scripts write it, blanks between.
    std::string Take()
    {
        std::string text;
        for (const omu_PrimTuple& delta : omu_ChangeHistory::Instance().Since(mark_))
            text += (text.empty() ? "" : " ") + std::string(delta.AsString(0).View());
        mark_ = omu_ChangeHistory::Instance().NextMark();
        return text;
    }

private:
    long long mark_ = omu_ChangeHistory::Instance().NextMark();
};
