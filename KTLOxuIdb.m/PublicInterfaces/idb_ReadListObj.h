#pragma once

#include <bio_Ifilter.h>
#include <oxu_Export.h>

#include <cstdint>
#include <vector>

class cls_ObjectSink;
class idb_MementoRead;

/// A stored list of objects: element count (int), the objects' numbers. The numbers are read by the
/// constructor; an object is read when it is asked for.
///
/// Objects that are shared copy-on-write bodies need a destructor hook in the metadata of their class or of a
/// parent. The reader holds the object that it read last until it reads the next one or ends, and then says
/// on standard error, once for each class, where the hook is missing.
class OXU_EXPORT idb_ReadListObj
{
public:
    /// Reads the record at the stream's position; a count below 1 ends it and reads as 0. `memento`, whose
    /// objects they are, outlives the reader.
    idb_ReadListObj(idb_MementoRead& memento, bio_Ifilter& in);
    idb_ReadListObj(const idb_ReadListObj&) = delete;
    idb_ReadListObj& operator=(const idb_ReadListObj&) = delete;
    ~idb_ReadListObj();

    /// Sets the cursor to `index`, whatever it is; whether there is an element.
    bool Next(int index)
    {
        cursor_ = index;
        return index >= 0 && index < Size();
    }
    /// Gives the object at the cursor to the sink; nex_RangeException where there is none.
    void ReadObjCow(cls_ObjectSink& sink);

    int Size() const { return static_cast<int>(numbers_.size()); }
    /// The number of the object at the cursor, 0 for null; nex_RangeException where there is none.
    std::uint32_t Number() const;

protected:
    /// For maps, which read the numbers themselves.
    explicit idb_ReadListObj(idb_MementoRead& memento) : memento_(memento) {}
    void SetNumbers(std::vector<std::uint32_t> numbers) { numbers_ = std::move(numbers); }
    int Cursor() const { return cursor_; }

private:
    void Release() noexcept;

    idb_MementoRead& memento_;
    std::vector<std::uint32_t> numbers_;
    int cursor_ = -1;
    unsigned heldTypeId_ = 0; // class of the shared body read last; 0 for none
    std::vector<unsigned> reported_; // classes that were asked for their hook, or will be
};
