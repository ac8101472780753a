#pragma once

#include <bio_Ofilter.h>
#include <idb_ByteChunks.h>
#include <idb_CollectionWriter.h>
#include <idb_PartWriter.h>

#include <algorithm>
#include <cstdint>
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
    /// Puts a run behind what was written, in place and not into the stream.
    void Lend(std::span<const unsigned char> bytes, std::shared_ptr<const void> keep);
    std::vector<idb_ByteChunks::Lent>& Runs() { return runs_; }
    /// Bytes of the body so far, the runs included.
    std::size_t Length() const { return stream_.Position() + lentBytes_; }
    /// The height of the object: 1, or 1 more than that of the highest that it refers to.
    std::uint32_t Height() const { return height_; }
    void SetHeightAbove(std::uint32_t other) { height_ = std::max(height_, other + 1); }
    /// Parts from the object's own class (0) to its last base.
    const idb_PartWriter& Part(std::size_t index);
    /// The part whose attributes are being written, null before the first.
    const idb_PartWriter* Open() const { return open_; }
    void SetOpen(const idb_PartWriter* part) { open_ = part; }
    std::unique_ptr<idb_CollectionWriter>& Collection() { return collection_; }

private:
    idb_MementoWrite& memento_;
    bio_Ofilter stream_;
    std::vector<idb_ByteChunks::Lent> runs_;
    std::size_t lentBytes_ = 0;
    std::uint32_t height_ = 1;
    std::deque<idb_PartWriter> parts_;
    std::vector<const idb_PartWriter*> partPlaces_;
    const idb_PartWriter* open_ = nullptr;
    std::unique_ptr<idb_CollectionWriter> collection_; // of the attribute being written
};
