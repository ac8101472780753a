#pragma once

#include <cow_Stack.h>
#include <omi_Singleton.h>
#include <oxu_Export.h>
#include <wip_ProgressState.h>

/// The process's stack of nested progress ranges; every change is reported through the calling thread's
/// wip_WIP.
///
/// The bottom level, the root, is the whole job and is never popped. Push() hands a slice of what is left to
/// a sub-task, Update() says how far the top level has come: Push measures from the present position, Update
/// from the level's start, on purpose. Not locked: driven from one thread at a time.
///
/// What is refused answers false and changes nothing. Each operation changes the stack before it reports, so
/// that a reporter which throws (or none: nex_PrimException "WipReporter != 0") leaves the stack consistent.
class OXU_EXPORT wip_Progress : public omi_Singleton<wip_Progress>
{
public:
    wip_Progress();
    virtual ~wip_Progress();

    /// Back to the root alone, at 0 and without text; reports nothing. Until the next percentage is reported,
    /// messages are reported without one.
    bool Clear();
    /// Clears, then gives the root its text and reports that.
    bool Initialize(const atr_String& message);

    /// Opens a level over the fraction f (0 to 1) of the top level's length, from where that level is now.
    [[nodiscard]] bool Push(float f);
    [[nodiscard]] bool Push(float f, const atr_String& message);
    /// Closes n levels, at most all above the root: the level then on top has come to the end of the last
    /// closed.
    [[nodiscard]] bool Pop(int n);

    /// The top level has come to the fraction f (0 to 1) of its length.
    [[nodiscard]] bool Update(float f);
    /// i of n steps are done; i >= n is the end, also when both are 0.
    [[nodiscard]] bool Update(int i, int n);
    bool Update(const atr_String& message);
    [[nodiscard]] bool Update(float f, const atr_String& message);

    /// Clears, then reports the root's text: always the empty one, on purpose, so that displays go blank.
    bool Finish();

    /// Reports a level's text with its percentage, floor(current * 100 + 0.01).
    bool SetProgress(wip_ProgressState& state);

    /// How far the top level has come, as a fraction of its length; 0 where it has none.
    float CurrentProgress() const;
    /// How many levels are open; 1 is the root alone.
    int Depth() const;

private:
    const wip_ProgressState& Top() const;
    wip_ProgressState& WriteTop();

    cow_Stack<wip_ProgressState> levels_;
    bool messageOnly_ = true;
};
