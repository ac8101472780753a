#pragma once

#include <bas_Export.h>
#include <cow_String.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Gathers bytes, little-endian whatever the machine: bool and char 1 byte, 16-bit 2, int 4, 64-bit 8, float
/// and double by their IEEE bits, text as its length (int) and its bytes.
///
/// Beneath: std::vector of bytes. Only the widths below are taken; any other type must be cast to one.
class BAS_EXPORT bio_Ofilter
{
public:
    void Write(bool value);
    void Write(char value);
    void Write(std::uint16_t value);
    void Write(std::int32_t value);
    void Write(std::uint32_t value);
    void Write(std::int64_t value);
    void Write(std::uint64_t value);
    void Write(float value);
    void Write(double value);
    void Write(const cow_String& value);
    template <class T>
    void Write(const T&) = delete;
    void Write(const char*) = delete;

    /// `count` bytes as they are.
    void WriteRaw(const void* bytes, std::size_t count);
    /// Consecutive elements without a count.
    void WriteArray(std::span<const std::int32_t> values);
    void WriteArray(std::span<const std::uint32_t> values);
    void WriteArray(std::span<const float> values);
    void WriteArray(std::span<const double> values);

    /// Overwrites 4 or 8 bytes written before, for lengths that are known late. Raises nex_RangeException
    /// where they are not all there.
    void Patch(std::size_t position, std::uint32_t value);
    void Patch(std::size_t position, std::uint64_t value);

    std::size_t Position() const { return bytes_.size(); }
    const std::vector<unsigned char>& Bytes() const { return bytes_; }
    /// Gives the bytes away and begins anew.
    std::vector<unsigned char> Take();
    /// Begins anew in the room that there is.
    void Clear() noexcept { bytes_.clear(); }

    /// For who met a failure where nothing can be thrown (a destructor): the bytes are not all there. The
    /// stream goes on as before; its owner asks Failed() in the end.
    void MarkFailed() noexcept { failed_ = true; }
    [[nodiscard]] bool Failed() const noexcept { return failed_; }

private:
    std::vector<unsigned char> bytes_;
    bool failed_ = false;
};
