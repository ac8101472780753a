#include <wip_WIPBase.h>

#include <nex_Raise.h>
#include <wip_WipReporter.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuWip.m/src/wip_WIP";
constexpr const char* NO_REPORTER = "WipReporter != 0";
}

wip_WIPBase::~wip_WIPBase() = default;

wip_WipReporter& wip_WIPBase::Reporter() const
{
    if (!reporter_)
        nex_RaisePrim(NO_REPORTER, SOURCE, __LINE__);
    return *reporter_;
}

void wip_WIPBase::SetWipReporter(wip_WipReporter* reporter)
{
    reporter_ = reporter;
}

void wip_WIPBase::RemoveWipReporter(wip_WipReporter* reporter)
{
    if (reporter_ == reporter)
        reporter_ = nullptr;
}

wip_WipReporter* wip_WIPBase::GetWipReporter() const
{
    return reporter_;
}

void wip_WIPBase::Display(const atr_String& message)
{
    Reporter().Display(message);
}

void wip_WIPBase::Print(const atr_String& message)
{
    Reporter().Print(message);
}

void wip_WIPBase::Landmark(const atr_String& message)
{
    Reporter().Landmark(message);
}

void wip_WIPBase::Milestone(const atr_String& message)
{
    Reporter().Milestone(message);
}

void wip_WIPBase::Milestone(const atr_String& message, int percent)
{
    Reporter().Milestone(message, percent);
}

void wip_WIPBase::Milestone(const atr_String& message, const atr_String& object, int done, int total)
{
    Reporter().Milestone(message, object, done, total);
}

void wip_WIPBase::Verbose(const atr_String& message)
{
    Reporter().Verbose(message);
}

void wip_WIPBase::Warning(const atr_String& message)
{
    Reporter().Warning(message);
}

void wip_WIPBase::Error(const atr_String& message, wip_errorLevelEnm level)
{
    Reporter().Error(message, level);
}

void wip_WIPBase::FacilityMessage(const atr_String& message, int first, int second, int third,
                                  omu_PrimTuple& values)
{
    Reporter().FacilityMessage(message, first, second, third, values);
}

bool wip_WIPBase::Interrupted()
{
    return Reporter().Interrupted();
}

void wip_WIPBase::InterruptedThrow()
{
    Reporter().InterruptedThrow();
}

void wip_WIPBase::CommandDone()
{
    Reporter().CommandDone();
}
