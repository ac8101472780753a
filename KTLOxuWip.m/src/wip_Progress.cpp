#include <wip_Progress.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <wip_WIP.h>

namespace
{
// Absorbs float rounding just below a whole percent.
constexpr double PERCENT_SLACK = 0.01;

// A fraction that is not a number is refused like one out of range.
bool IsFraction(float f)
{
    return f >= 0.0f && f <= 1.0f;
}

float Along(const wip_ProgressState& level, float from, float f)
{
    return std::min(from + f * (level.end - level.start), level.end);
}
}

wip_Progress::wip_Progress()
{
    Clear();
}

wip_Progress::~wip_Progress() = default;

const wip_ProgressState& wip_Progress::Top() const
{
    // The root is never popped: without it the object is broken beyond repair.
    if (levels_.Depth() < 1)
        std::abort();
    return levels_.Top();
}

wip_ProgressState& wip_Progress::WriteTop()
{
    if (levels_.Depth() < 1)
        std::abort();
    return levels_.WriteTop();
}

bool wip_Progress::Clear()
{
    cow_Stack<wip_ProgressState> root;
    root.Push(wip_ProgressState());
    levels_ = root;
    messageOnly_ = true;
    return true;
}

bool wip_Progress::Initialize(const atr_String& message)
{
    // May be the text of a level that goes.
    const atr_String text = message; // NOLINT(performance-unnecessary-copy-initialization)
    Clear();
    WriteTop().message = text;
    wip_WIP::Instance().Milestone(text);
    return true;
}

bool wip_Progress::Push(float f)
{
    const atr_String message = Top().message;
    return Push(f, message);
}

bool wip_Progress::Push(float f, const atr_String& message)
{
    if (!IsFraction(f))
        return false;
    const wip_ProgressState& top = Top();
    levels_.Push(wip_ProgressState{top.current, Along(top, top.current, f), top.current, message});
    return true;
}

bool wip_Progress::Pop(int n)
{
    if (n < 1 || Depth() == 1)
        return false;
    float reached = 0.0f;
    for (int left = std::min(n, Depth() - 1); left > 0; --left)
    {
        reached = Top().end;
        levels_.Pop();
    }
    wip_ProgressState& top = WriteTop();
    top.current = reached;
    return SetProgress(top);
}

bool wip_Progress::Update(float f)
{
    if (!IsFraction(f))
        return false;
    wip_ProgressState& top = WriteTop();
    top.current = Along(top, top.start, f);
    return SetProgress(top);
}

bool wip_Progress::Update(int i, int n)
{
    if (i < 0 || n < 0)
        return false;
    return Update(i < n ? static_cast<float>(i) / static_cast<float>(n) : 1.0f);
}

bool wip_Progress::Update(const atr_String& message)
{
    // May be the text of a level, which a reporter may change.
    const atr_String text = message; // NOLINT(performance-unnecessary-copy-initialization)
    wip_ProgressState& top = WriteTop();
    top.message = text;
    if (!messageOnly_)
        return SetProgress(top);
    wip_WIP::Instance().Milestone(text);
    return true;
}

bool wip_Progress::Update(float f, const atr_String& message)
{
    if (!IsFraction(f))
        return false;
    WriteTop().message = message;
    return Update(f);
}

bool wip_Progress::Finish()
{
    return Initialize(atr_String());
}

bool wip_Progress::SetProgress(wip_ProgressState& state)
{
    // The text is copied: a reporter may use this object, and the level may be gone when it returns.
    const atr_String message = state.message;
    const double percent = std::floor(static_cast<double>(state.current) * 100.0 + PERCENT_SLACK);
    wip_WIP::Instance().Milestone(message, static_cast<int>(percent));
    messageOnly_ = false;
    return true;
}

float wip_Progress::CurrentProgress() const
{
    const wip_ProgressState& top = Top();
    const float length = top.end - top.start;
    return length > 0.0f ? (top.current - top.start) / length : 0.0f;
}

int wip_Progress::Depth() const
{
    return levels_.Depth();
}
