#include <algorithm>
#include <atr_String.h>
#include <bat_WipWatcher.h>
#include <wip_Progress.h>
#include <wip_WIP.h>

void bat_WipWatcher::Begin(const std::string& what, float share)
{
    wip_Progress::Instance().Update(atr_String(what.c_str()));
    (void)wip_Progress::Instance().Push(share); // never refused
}

void bat_WipWatcher::End()
{
    (void)wip_Progress::Instance().Pop(1);
}

bool bat_WipWatcher::Proceed(double done)
{
    if (wip_WIP::Instance().Interrupted())
        return false;
    (void)wip_Progress::Instance().Update(static_cast<float>(std::clamp(done, 0.0, 1.0))); // never refused
    return true;
}

void bat_WipWatcher::Note(const std::string& sentence)
{
    wip_WIP::Instance().Warning(atr_String(sentence.c_str()));
}
