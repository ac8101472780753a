#include <idb_WriteFrame.h>

const idb_PartWriter& idb_WriteFrame::Begin()
{
    collection_.reset();
    stream_.Clear();
    runs_.clear();
    lentBytes_ = 0;
    height_ = 1;
    open_ = nullptr;
    for (const idb_PartWriter* part : partPlaces_)
        part->Reset();
    return Part(0);
}

const idb_PartWriter& idb_WriteFrame::Part(std::size_t index)
{
    while (partPlaces_.size() <= index)
        partPlaces_.push_back(&parts_.emplace_back(*this, partPlaces_.size()));
    return *partPlaces_[index];
}

void idb_WriteFrame::Lend(std::span<const unsigned char> bytes, std::shared_ptr<const void> keep)
{
    runs_.push_back({stream_.Position(), bytes, std::move(keep)});
    lentBytes_ += bytes.size();
}
