#pragma once

#include <idb_CollectionWriter.h>

#include <cstdint>
#include <vector>

/// A list of objects, by their numbers, stored as idb_ReadListObj reads it.
class OXU_EXPORT idb_WriteListObj final : public idb_CollectionWriter
{
public:
    using idb_CollectionWriter::idb_CollectionWriter;
    ~idb_WriteListObj() override;

    /// An object that the memento has written; 0 is null.
    void Write(std::uint32_t number) { numbers_.push_back(number); }

private:
    void Emit(bio_Ofilter& out) const override;

    std::vector<std::uint32_t> numbers_;
};
