#pragma once

#include <bio_Ofilter.h>
#include <idb_CollectionWriter.h>
#include <idb_PartWriter.h>

#include <deque>
#include <memory>
#include <vector>

/// The body of one object while it is written. Serves one object after another, so that nothing is allocated
/// for each.
class idb_WriteFrame
{
public:
    explicit idb_WriteFrame(idb_MementoWrite& memento) : memento_(memento) {}
    idb_WriteFrame(const idb_WriteFrame&) = delete;
    idb_WriteFrame& operator=(const idb_WriteFrame&) = delete;

    /// Begins an object: the writer of its last part.
    const idb_PartWriter& Begin();
    /// Ends it; all that it wrote is in the stream.
    void End() { partPlaces_.front()->Close(); }

    idb_MementoWrite& Memento() const { return memento_; }
    bio_Ofilter& Stream() { return stream_; }
    /// Parts from the object's own class (0) to its last base.
    const idb_PartWriter& Part(std::size_t index);
    /// The part whose attributes are being written, null before the first.
    const idb_PartWriter* Open() const { return open_; }
    void SetOpen(const idb_PartWriter* part) { open_ = part; }
    std::unique_ptr<idb_CollectionWriter>& Collection() { return collection_; }

private:
    idb_MementoWrite& memento_;
    bio_Ofilter stream_;
    std::deque<idb_PartWriter> parts_;
    std::vector<const idb_PartWriter*> partPlaces_;
    const idb_PartWriter* open_ = nullptr;
    std::unique_ptr<idb_CollectionWriter> collection_; // of the attribute being written
};
