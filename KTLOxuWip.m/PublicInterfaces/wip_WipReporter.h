#pragma once

#include <oxu_Export.h>
#include <wip_errorLevelEnm.h>

class atr_String;
class omu_PrimTuple;

/// Where progress, messages and questions about interruption go: implemented by a front end or a batch
/// driver.
///
/// Constructing one installs nothing; give it to wip_WIP::Instance().SetWipReporter() on every thread
/// that reports. The outlet does not own it: remove it before it dies. An operation may throw, and the
/// exception passes through whoever reported.
class OXU_EXPORT wip_WipReporter
{
public:
    virtual ~wip_WipReporter();

    /// A text for the user, of three kinds that a front end shows as it likes; progress sends none of them.
    virtual void Display(const atr_String& message) = 0;
    virtual void Print(const atr_String& message) = 0;
    virtual void Landmark(const atr_String& message) = 0;

    /// What is going on, without a percentage.
    virtual void Milestone(const atr_String& message) = 0;
    /// What is going on and how much of the whole job is done: 0 to 100.
    virtual void Milestone(const atr_String& message, int percent) = 0;
    /// What is going on with which object, and how many of how many are done.
    virtual void Milestone(const atr_String& message, const atr_String& object, int done, int total) = 0;

    virtual void Verbose(const atr_String& message) = 0;
    virtual void Warning(const atr_String& message) = 0;
    virtual void Error(const atr_String& message, wip_errorLevelEnm level) = 0;

    /// A message with three numbers and values, whose meaning the sender and the reporter agree on.
    /// The default does nothing.
    virtual void FacilityMessage(const atr_String& message, int, int, int, omu_PrimTuple& values);

    /// Whether the user asked to stop; asked often, so it must be cheap.
    virtual bool Interrupted() = 0;
    /// Throws, when the user asked to stop, whatever the front end unwinds with.
    virtual void InterruptedThrow() = 0;
    virtual void CommandDone() = 0;
};
