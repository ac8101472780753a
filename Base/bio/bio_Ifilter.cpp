#include <bio_DataException.h>
#include <bio_Ifilter.h>
#include <cstring>
#include <nex_RaiseWith.h>

namespace
{
constexpr const char* SOURCE = "Base/bio/bio_Ifilter";
constexpr bool NATIVE_ORDER = std::endian::native == std::endian::little;

template <class T>
void FillArray(bio_Ifilter& in, std::span<T> values)
{
    in.Require(values.size(), sizeof(T));
    if (NATIVE_ORDER)
        in.ReadRaw(values.data(), values.size_bytes());
    else
        for (T& value : values)
            in.Read(value);
}
}

void bio_Ifilter::RaiseEnd(std::uint64_t count, std::size_t bytesEach) const
{
    constexpr std::uint64_t WIDEST = ~std::uint64_t{0};
    const std::uint64_t needed = count > WIDEST / bytesEach ? WIDEST : count * bytesEach;
    nex_Raise(bio_DataException::EndOfData(base_ + bytes_.size(), static_cast<std::size_t>(needed - Left())),
              SOURCE, __LINE__);
}

void bio_Ifilter::Read(bool& value)
{
    Require(1, 1);
    const unsigned char byte = bytes_[next_];
    if (byte > 1)
        nex_Raise(bio_DataException::BadBool(Position(), byte), SOURCE, __LINE__);
    ++next_;
    value = byte == 1;
}

void bio_Ifilter::Read(cow_String& value)
{
    bio_Ifilter probe(*this);
    const int length = probe.ReadCount(1);
    const auto* text = reinterpret_cast<const char*>(probe.Take(static_cast<std::size_t>(length)));
    value = cow_String(text, static_cast<std::size_t>(length));
    *this = probe;
}

void bio_Ifilter::ReadRaw(void* bytes, std::size_t count)
{
    const unsigned char* from = Take(count);
    if (count != 0)
        std::memcpy(bytes, from, count);
}

void bio_Ifilter::ReadArray(std::span<std::int32_t> values)
{
    FillArray(*this, values);
}
void bio_Ifilter::ReadArray(std::span<std::uint32_t> values)
{
    FillArray(*this, values);
}
void bio_Ifilter::ReadArray(std::span<float> values)
{
    FillArray(*this, values);
}
void bio_Ifilter::ReadArray(std::span<double> values)
{
    FillArray(*this, values);
}

int bio_Ifilter::ReadCount(std::size_t bytesEach)
{
    bio_Ifilter probe(*this);
    std::int32_t count = 0;
    probe.Read(count);
    if (count < 0)
        nex_Raise(bio_DataException::BadLength(Position(), count), SOURCE, __LINE__);
    probe.Require(static_cast<std::uint64_t>(count), bytesEach);
    *this = probe;
    return count;
}
