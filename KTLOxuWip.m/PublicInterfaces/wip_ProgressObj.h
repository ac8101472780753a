#pragma once

#include <atr_String.h>
#include <oxu_Export.h>

class wip_Progress;

/// A task's part in the process's progress, for the length of a scope.
///
/// The outermost task begins the job anew and opens a level over all of it; a task within another only shows
/// its text on the level that it was given. When the object dies, the levels that the task opened and left
/// open are closed, or the job ends. The progress must outlive the object.
class OXU_EXPORT wip_ProgressObj
{
public:
    wip_ProgressObj();
    explicit wip_ProgressObj(const atr_String& message);
    wip_ProgressObj(const wip_ProgressObj&) = delete;
    wip_ProgressObj& operator=(const wip_ProgressObj&) = delete;
    /// Finishes; what a reporter throws ends here.
    virtual ~wip_ProgressObj();

    /// Opens a level over the fraction f (0 to 1) of the top level; false when f is refused.
    [[nodiscard]] virtual bool Push(float f);
    [[nodiscard]] virtual bool Push(float f, const atr_String& message);
    /// Closes at most n levels, never one that was open when this object began; false when there is none.
    /// The level that an outermost object opened for itself counts as one that it may close.
    [[nodiscard]] virtual bool Pop(int n);
    /// Finishes, then sets the level on top to the fraction f, unless f is negative; false when f is refused.
    virtual bool Restart(float f = -1.0f);

    /// Begins: done by the constructors, and again by whoever uses the object for another job.
    void Initialize();
    /// Closes what is left open; a second call in a row does nothing.
    void Finish();

private:
    wip_Progress* progress_;
    int level_ = 1; ///< how many levels were open when this object began
    atr_String message_;
    bool done_ = false;
};
