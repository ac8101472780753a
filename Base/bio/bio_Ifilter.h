#pragma once

#include <bas_Export.h>
#include <bio_LittleEndian.h>
#include <cow_String.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

/// Takes apart bytes as bio_Ofilter lays them. It looks at them; their owner keeps them alive.
///
/// Every read checks the bytes left before it takes or allocates anything. What does not fit throws
/// bio_DataException and leaves position and output alone. Copying gives a second, independent cursor.
class BAS_EXPORT bio_Ifilter
{
public:
    bio_Ifilter() = default;
    explicit bio_Ifilter(std::span<const unsigned char> bytes) : bytes_(bytes) {}
    /// `base` is added to every position reported: where these bytes begin in larger data.
    bio_Ifilter(std::span<const unsigned char> bytes, std::size_t base) : bytes_(bytes), base_(base) {}

    /// A byte other than 0 and 1 is refused.
    void Read(bool& value);
    void Read(char& value) { value = static_cast<char>(*Take(1)); }
    void Read(std::uint16_t& value) { value = Load<std::uint16_t>(); }
    void Read(std::int32_t& value) { value = static_cast<std::int32_t>(Load<std::uint32_t>()); }
    void Read(std::uint32_t& value) { value = Load<std::uint32_t>(); }
    void Read(std::int64_t& value) { value = static_cast<std::int64_t>(Load<std::uint64_t>()); }
    void Read(std::uint64_t& value) { value = Load<std::uint64_t>(); }
    void Read(float& value) { value = std::bit_cast<float>(Load<std::uint32_t>()); }
    void Read(double& value) { value = std::bit_cast<double>(Load<std::uint64_t>()); }
    /// A length below 0 or beyond the bytes left is refused.
    void Read(cow_String& value);
    template <class T>
    void Read(T&) = delete;

    void ReadRaw(void* bytes, std::size_t count);
    void ReadArray(std::span<std::int32_t> values);
    void ReadArray(std::span<std::uint32_t> values);
    void ReadArray(std::span<float> values);
    void ReadArray(std::span<double> values);

    /// An int count of elements that take at least `bytesEach` bytes: below 0 or more than fit into the bytes
    /// left is refused, so that the caller may allocate for them.
    int ReadCount(std::size_t bytesEach);
    /// Throws unless `count` elements of `bytesEach` bytes are left.
    void Require(std::uint64_t count, std::size_t bytesEach) const
    {
        // By division: the product may be beyond 64 bits.
        if (bytesEach != 0 && count > Left() / bytesEach)
            RaiseEnd(count, bytesEach);
    }
    /// The next `count` bytes as a filter of their own, which reports positions as this one does; skips them.
    bio_Ifilter Sub(std::size_t count)
    {
        const std::size_t begin = Position();
        return bio_Ifilter(std::span<const unsigned char>(Take(count), count), begin);
    }
    void Skip(std::size_t count) { Take(count); }
    /// The next `count` bytes, in place; skips them.
    const unsigned char* Take(std::size_t count)
    {
        if (count > Left())
            RaiseEnd(count, 1);
        const unsigned char* at = bytes_.data() + next_;
        next_ += count;
        return at;
    }

    /// Of the next byte, from the start of the outermost data.
    std::size_t Position() const { return base_ + next_; }
    std::size_t Left() const { return bytes_.size() - next_; }
    /// The bytes left, as they are.
    std::span<const unsigned char> Rest() const { return bytes_.subspan(next_); }

private:
    template <class U>
    U Load()
    {
        return bio_Load<U>(Take(sizeof(U)));
    }
    [[noreturn]] void RaiseEnd(std::uint64_t count, std::size_t bytesEach) const;

    std::span<const unsigned char> bytes_;
    std::size_t base_ = 0;
    std::size_t next_ = 0;
};
