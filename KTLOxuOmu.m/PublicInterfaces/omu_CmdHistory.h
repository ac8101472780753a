#pragma once

#include <cow_List.h>
#include <cow_String.h>
#include <omi_Singleton.h>
#include <oxu_Export.h>

/// The commands of this process as texts, with a cursor for undo and redo. It runs nothing: whoever undoes a
/// command asks here which one it is.
///
/// One a process: omi_Singleton<omu_CmdHistory>::Instance(). Not locked: for the scripting thread.
class OXU_EXPORT omu_CmdHistory : public omi_Singleton<omu_CmdHistory>
{
public:
    virtual ~omu_CmdHistory();

    /// Appends a command behind the cursor; commands that were undone are forgotten.
    void Add(const cow_String& commandText, bool undoable);
    void Clear();

    /// Moves the cursor before the last command and gives its text. False, and nothing moves, when there is
    /// none or it cannot be undone.
    [[nodiscard]] bool Undo(cow_String& commandText);
    /// Moves the cursor behind the command undone last and gives its text. False when there is none.
    [[nodiscard]] bool Redo(cow_String& commandText);

    int Length() const { return texts_.Length(); }
    /// How many commands stand before the cursor: done and not undone.
    int Done() const { return cursor_; }
    /// From 0, the oldest; an index outside raises the out-of-range error.
    const cow_String& Command(int index) const { return texts_.Get(index); }
    bool IsUndoable(int index) const { return undoable_.Get(index); }

private:
    cow_List<cow_String> texts_;
    cow_List<bool> undoable_;
    int cursor_ = 0;
};
