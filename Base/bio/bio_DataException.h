#pragma once

#include <nex_PrimException.h>

#include <cstddef>

/// Bytes that cannot be what was asked for: "data ends at byte %d, %d more needed", "length %d at byte %d is
/// not possible", "bool %d at byte %d is neither 0 nor 1".
///
/// Written and read back as the nex_PrimException that it is.
class BAS_EXPORT bio_DataException : public nex_PrimException
{
public:
    /// The data ends at byte `position` and `missing` more bytes were needed there.
    static bio_DataException EndOfData(std::size_t position, std::size_t missing);
    static bio_DataException BadLength(std::size_t position, int length);
    static bio_DataException BadBool(std::size_t position, int value);

    bio_DataException(const bio_DataException&);
    bio_DataException& operator=(const bio_DataException&);
    ~bio_DataException() override;

    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override;
    bio_DataException* Copy() const override;

    /// Byte offset of the fault, counted from the start of the outermost data.
    std::size_t Position() const { return position_; }
    /// How many bytes were missing; 0 where the data did not end early.
    std::size_t Missing() const { return missing_; }

private:
    bio_DataException(const atr_String& message, std::size_t position, std::size_t missing);

    std::size_t position_;
    std::size_t missing_;
};
