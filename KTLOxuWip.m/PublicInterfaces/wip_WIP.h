#pragma once

#include <oxu_Export.h>
#include <thr_ThreadSingleton.h>
#include <wip_WIPBase.h>

/// The outlet of the calling thread: each thread has its own, with its own reporter, and starts without one.
///
/// Created on the thread's first use, destroyed with the thread.
class OXU_EXPORT wip_WIP : public wip_WIPBase, public thr_ThreadSingleton<wip_WIP, 15>
{
public:
    wip_WIP();
    ~wip_WIP() override;
};
