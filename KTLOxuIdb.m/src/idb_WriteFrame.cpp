#include <idb_WriteFrame.h>

const idb_PartWriter& idb_WriteFrame::Begin()
{
    collection_.reset();
    stream_.Clear();
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
