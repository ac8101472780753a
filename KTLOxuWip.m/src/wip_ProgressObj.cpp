#include <wip_ProgressObj.h>

#include <algorithm>

#include <wip_Progress.h>

namespace
{
constexpr int ROOT_ALONE = 1;
}

wip_ProgressObj::wip_ProgressObj() : wip_ProgressObj(atr_String()) {}

wip_ProgressObj::wip_ProgressObj(const atr_String& message)
    : progress_(&wip_Progress::Instance()), message_(message)
{
    Initialize();
}

wip_ProgressObj::~wip_ProgressObj()
{
    try
    {
        Finish();
    }
    catch (...)
    {
        // The stack is right already; only the report was lost.
    }
}

void wip_ProgressObj::Initialize()
{
    done_ = false;
    level_ = progress_->Depth();
    if (level_ == ROOT_ALONE)
    {
        progress_->Initialize(message_);
        (void)progress_->Push(1.0f); // never refused
    }
    else
    {
        progress_->Update(message_);
    }
}

void wip_ProgressObj::Finish()
{
    if (done_)
        return;
    done_ = true;
    if (level_ == ROOT_ALONE)
        progress_->Finish();
    else if (const int open = progress_->Depth() - level_; open > 0)
        (void)progress_->Pop(open); // never refused: open is above 0 and below the depth
}

bool wip_ProgressObj::Push(float f)
{
    return progress_->Push(f);
}

bool wip_ProgressObj::Push(float f, const atr_String& message)
{
    return progress_->Push(f, message);
}

bool wip_ProgressObj::Pop(int n)
{
    const int open = progress_->Depth() - level_;
    return open > 0 && progress_->Pop(std::min(n, open));
}

bool wip_ProgressObj::Restart(float f)
{
    Finish();
    done_ = false;
    return f < 0.0f || progress_->Update(f);
}
