#include <algorithm>
#include <bio_LittleEndian.h>
#include <bio_Ofilter.h>
#include <bit>
#include <cstring>
#include <nex_Raise.h>
#include <utility>

static_assert(sizeof(float) == 4 && sizeof(double) == 8, "IEEE single and double");

namespace
{
constexpr bool NATIVE_ORDER = std::endian::native == std::endian::little;
constexpr std::size_t LONG_RUN = 65536;

template <class U>
void Add(std::vector<unsigned char>& bytes, U bits)
{
    unsigned char encoded[sizeof bits];
    bio_Store(encoded, bits);
    bytes.insert(bytes.end(), encoded, encoded + sizeof encoded);
}

template <class T>
void AddArray(bio_Ofilter& out, std::span<const T> values)
{
    if (NATIVE_ORDER)
        out.WriteRaw(values.data(), values.size_bytes());
    else
        for (const T value : values)
            out.Write(value);
}

template <class U>
void Overwrite(std::vector<unsigned char>& bytes, std::size_t position, U bits)
{
    if (position > bytes.size() || bytes.size() - position < sizeof bits)
        nex_RaiseRange(static_cast<long long>(position), static_cast<long long>(bytes.size()),
                       "Base/bio/bio_Ofilter", __LINE__);
    bio_Store(bytes.data() + position, bits);
}
}

void bio_Ofilter::Write(bool value)
{
    bytes_.push_back(value ? 1 : 0);
}
void bio_Ofilter::Write(char value)
{
    bytes_.push_back(static_cast<unsigned char>(value));
}
void bio_Ofilter::Write(std::uint16_t value)
{
    Add(bytes_, value);
}
void bio_Ofilter::Write(std::int32_t value)
{
    Add(bytes_, static_cast<std::uint32_t>(value));
}
void bio_Ofilter::Write(std::uint32_t value)
{
    Add(bytes_, value);
}
void bio_Ofilter::Write(std::int64_t value)
{
    Add(bytes_, static_cast<std::uint64_t>(value));
}
void bio_Ofilter::Write(std::uint64_t value)
{
    Add(bytes_, value);
}
void bio_Ofilter::Write(float value)
{
    Add(bytes_, std::bit_cast<std::uint32_t>(value));
}
void bio_Ofilter::Write(double value)
{
    Add(bytes_, std::bit_cast<std::uint64_t>(value));
}
void bio_Ofilter::Write(const cow_String& value)
{
    Write(static_cast<std::int32_t>(value.Length()));
    WriteRaw(value.AsCharPtr(), static_cast<std::size_t>(value.Length()));
}

void bio_Ofilter::WriteRaw(const void* bytes, std::size_t count)
{
    if (count == 0)
        return;
    // A long run comes with room for what follows it, which would else move all of it.
    if (count > LONG_RUN && count > bytes_.capacity() - bytes_.size())
        bytes_.reserve(std::max(bytes_.size() + count + count / 8, 2 * bytes_.capacity()));
    const auto* first = static_cast<const unsigned char*>(bytes);
    bytes_.insert(bytes_.end(), first, first + count);
}

void bio_Ofilter::WriteArray(std::span<const std::int32_t> values)
{
    AddArray(*this, values);
}
void bio_Ofilter::WriteArray(std::span<const std::uint32_t> values)
{
    AddArray(*this, values);
}
void bio_Ofilter::WriteArray(std::span<const float> values)
{
    AddArray(*this, values);
}
void bio_Ofilter::WriteArray(std::span<const double> values)
{
    AddArray(*this, values);
}

void bio_Ofilter::Patch(std::size_t position, std::uint32_t value)
{
    Overwrite(bytes_, position, value);
}
void bio_Ofilter::Patch(std::size_t position, std::uint64_t value)
{
    Overwrite(bytes_, position, value);
}

std::vector<unsigned char> bio_Ofilter::Take()
{
    return std::exchange(bytes_, {});
}
