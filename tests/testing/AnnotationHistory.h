#pragma once

#include <algorithm>
#include <omu_ChangeHistory.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <string>
#include <vector>

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
    /// Applies them to a list of names, as a viewer does.
    void Follow(std::vector<std::string>& names)
    {
        const auto erase = [&names](const std::string& name) {
            names.erase(std::find(names.begin(), names.end(), name));
        };
        for (const omu_PrimTuple& delta : omu_ChangeHistory::Instance().Since(mark_))
        {
            const std::string kind = Text(delta, 0);
            const std::string name = Text(delta, 1);
            if (kind == "Remove" || kind == "Rename")
                erase(name);
            if (kind == "Insert")
                names.insert(names.begin() + Index(delta, 2), name);
            if (kind == "Rename")
                names.insert(names.begin() + Index(delta, 3), Text(delta, 2));
        }
        mark_ = omu_ChangeHistory::Instance().NextMark();
    }

private:
    static std::string Text(const omu_PrimTuple& delta, int item)
    {
        return std::string(dynamic_cast<const omu_PrimString&>(*delta[item]).Value().View());
    }
    static int Index(const omu_PrimTuple& delta, int item)
    {
        return static_cast<int>(dynamic_cast<const omu_PrimNumber&>(*delta[item]).Value());
    }

    long long mark_ = omu_ChangeHistory::Instance().NextMark();
};
