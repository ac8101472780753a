#include <cstdio>
#include <omu_CmdHistory.h>
#include <omu_EnvSwitches.h>

omu_CmdHistory::~omu_CmdHistory() = default;

void omu_CmdHistory::Add(const cow_String& commandText, bool undoable)
{
    while (texts_.Length() > cursor_)
    {
        texts_.Remove(texts_.Length() - 1);
        undoable_.Remove(undoable_.Length() - 1);
    }
    texts_.Append(commandText);
    undoable_.Append(undoable);
    ++cursor_;
    if (omu_EnvSwitches::TraceCommandHistory())
        std::fprintf(stderr, "omu_CmdHistory::Add(%s, undoable=%d) length:%d\n", commandText.AsCharPtr(),
                     undoable ? 1 : 0, Length());
}

void omu_CmdHistory::Clear()
{
    texts_.Clear();
    undoable_.Clear();
    cursor_ = 0;
}

bool omu_CmdHistory::Undo(cow_String& commandText)
{
    if (cursor_ == 0 || !undoable_.Get(cursor_ - 1))
        return false;
    commandText = texts_.Get(--cursor_);
    return true;
}

bool omu_CmdHistory::Redo(cow_String& commandText)
{
    if (cursor_ == Length())
        return false;
    commandText = texts_.Get(cursor_++);
    return true;
}
