#include <idb_WriteFrame.h>

const idb_PartWriter& idb_WriteFrame::Begin()
{
    collection_.reset();
    stream_.Clear();
    open_ = nullptr;
    for (const idb_PartWriter& part : parts_)
        part.Reset();
    return Part(0);
}

const idb_PartWriter& idb_WriteFrame::Part(std::size_t index)
{
    while (parts_.size() <= index)
        parts_.emplace_back(*this, parts_.size());
    return parts_[index];
}
