#pragma once

#include <oxu_Export.h>
#include <wip_errorLevelEnm.h>

class atr_String;
class omu_PrimTuple;
class wip_WipReporter;

/// Passes messages, milestones and questions on to the reporter installed, unchanged.
///
/// The reporter is not owned. While none is installed, every forwarding operation raises
/// nex_PrimException "WipReporter != 0"; whoever may run without a reporter asks GetWipReporter() first.
class OXU_EXPORT wip_WIPBase
{
public:
    wip_WIPBase() = default;
    wip_WIPBase(const wip_WIPBase&) = delete;
    wip_WIPBase& operator=(const wip_WIPBase&) = delete;

    /// Installs a reporter in place of the present one; null uninstalls.
    virtual void SetWipReporter(wip_WipReporter* reporter);
    /// Uninstalls the reporter if it is the one installed, so that a late leaver does no harm to its
    /// successor.
    virtual void RemoveWipReporter(wip_WipReporter* reporter);
    virtual wip_WipReporter* GetWipReporter() const;

    /// What follows goes to the reporter's operation of the same name.
    virtual void Display(const atr_String& message);
    virtual void Print(const atr_String& message);
    virtual void Landmark(const atr_String& message);
    virtual void Milestone(const atr_String& message);
    virtual void Milestone(const atr_String& message, int percent);
    virtual void Milestone(const atr_String& message, const atr_String& object, int done, int total);
    virtual void Verbose(const atr_String& message);
    virtual void Warning(const atr_String& message);
    virtual void Error(const atr_String& message, wip_errorLevelEnm level);
    virtual void FacilityMessage(const atr_String& message, int first, int second, int third,
                                 omu_PrimTuple& values);
    /// Whether the user asked to stop.
    virtual bool Interrupted();
    /// Lets the reporter throw when the user asked to stop.
    virtual void InterruptedThrow();
    virtual void CommandDone();

    // Last, so that SetWipReporter keeps the first slot.
    virtual ~wip_WIPBase();

private:
    wip_WipReporter& Reporter() const;

    wip_WipReporter* reporter_ = nullptr;
};
