#pragma once

#include <bio_Ofilter.h>
#include <oxu_Export.h>

/// Gathers a collection in memory and emits its record to a stream when it is finished: by Finish(), or by
/// its destructor, which marks the stream failed where the record cannot be emitted.
class OXU_EXPORT idb_CollectionWriter
{
public:
    explicit idb_CollectionWriter(bio_Ofilter& out) : out_(out) {}
    idb_CollectionWriter(const idb_CollectionWriter&) = delete;
    idb_CollectionWriter& operator=(const idb_CollectionWriter&) = delete;
    virtual ~idb_CollectionWriter();

    /// Emits the record, once: a second call does nothing. Nothing may be written behind it.
    void Finish();

    /// True: the memento owns the writer that one of its factories made, and ends it.
    bool NeedsDeletion() const { return true; }

protected:
    /// Emits the record.
    virtual void Emit(bio_Ofilter& out) const = 0;
    /// For the destructors of the classes whose Emit it is.
    void FinishQuietly() noexcept;

private:
    bio_Ofilter& out_;
    bool finished_ = false;
};
