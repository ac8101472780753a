#pragma once

#include <nex_PrimException.h>
#include <oxu_Export.h>

#include <cstdint>

/// A memento that cannot be read or written. The message is whole ("idb_MementoRead: not a memento") and
/// names the place; the place is there for programs too, as far as it is known.
///
/// Written and read back as the nex_PrimException that it is.
class OXU_EXPORT idb_MementoException : public nex_PrimException
{
public:
    /// Where in a memento something went wrong.
    struct Place
    {
        std::int64_t byte = -1;    ///< offset from the first byte; -1 where there is none
        std::uint32_t object = 0;  ///< number of the object; 0 where there is none
        cow_String className = {}; ///< registered name of its class; empty where there is none
        int systemNumber = 0;      ///< of errno where the system refused the file; else 0
    };

    explicit idb_MementoException(const atr_String& message);
    idb_MementoException(const atr_String& message, const Place& place);
    idb_MementoException(const idb_MementoException&);
    idb_MementoException& operator=(const idb_MementoException&);
    ~idb_MementoException() override;

    std::int64_t ByteOffset() const { return place_.byte; }
    std::uint32_t ObjectNumber() const { return place_.object; }
    const cow_String& ClassName() const { return place_.className; }
    int SystemNumber() const { return place_.systemNumber; }

    /// Takes from `place` what is not known yet.
    void Complete(const Place& place);

    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override;
    idb_MementoException* Copy() const override;

private:
    Place place_;
};
