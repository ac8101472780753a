#pragma once

#include <bio_Ifilter.h>
#include <bio_Ofilter.h>
#include <cls_CollectionType.h>
#include <cow_String.h>

#include <bit>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <span>

/// What a collection of primitive values knows of its element type T: bool, int, unsigned, float, double or
/// cow_String; how many bytes one takes at least, the collection codes, and what a factory says on standard
/// error when it is asked for a reader that does not fit the code recorded.
template <class T>
struct idb_ElementTraits;

template <>
struct idb_ElementTraits<bool>
{
    static constexpr std::size_t BYTES = 1;
    static constexpr cls_CollectionType LIST = cls_CollectionType::LIST_BOOL;
    static constexpr cls_CollectionType ARRAY = cls_CollectionType::ARRAY_BOOL;
    static constexpr const char* NO_LIST = "error getting ReadListPrim for bool collection type: %d\n";
};

template <>
struct idb_ElementTraits<int>
{
    static constexpr std::size_t BYTES = 4;
    static constexpr cls_CollectionType LIST = cls_CollectionType::LIST_INT;
    static constexpr cls_CollectionType ARRAY = cls_CollectionType::ARRAY_INT;
    static constexpr cls_CollectionType MAP_INT = cls_CollectionType::MAP_INT_INT;
    static constexpr cls_CollectionType MAP_STRING = cls_CollectionType::MAP_STRING_INT;
    static constexpr const char* NO_LIST = "error getting ReadListPrim for int collection type: %d\n";
    static constexpr const char* NO_MAP_INT = "error getting ReadListMap int to int collection type: %d\n";
    static constexpr const char* NO_MAP_STRING =
        "error getting ReadListMap string to int collection type: %d\n";
};

template <>
struct idb_ElementTraits<unsigned>
{
    static constexpr std::size_t BYTES = 4;
    static constexpr cls_CollectionType LIST = cls_CollectionType::LIST_UINT;
    static constexpr cls_CollectionType ARRAY = cls_CollectionType::ARRAY_UINT;
    static constexpr cls_CollectionType MAP_INT = cls_CollectionType::MAP_INT_UINT;
    static constexpr cls_CollectionType MAP_STRING = cls_CollectionType::MAP_STRING_UINT;
    // "unsigned int" in lists and "uint" in maps on purpose.
    static constexpr const char* NO_LIST =
        "error getting ReadListPrim for unsigned int collection type: %d\n";
    static constexpr const char* NO_MAP_INT = "error getting ReadListMap int to uint collection type: %d\n";
    static constexpr const char* NO_MAP_STRING =
        "error getting ReadListMap string to uint collection type: %d\n";
};

template <>
struct idb_ElementTraits<float>
{
    static constexpr std::size_t BYTES = 4;
    static constexpr cls_CollectionType LIST = cls_CollectionType::LIST_FLOAT;
    static constexpr cls_CollectionType ARRAY = cls_CollectionType::ARRAY_FLOAT;
    static constexpr cls_CollectionType MAP_INT = cls_CollectionType::MAP_INT_FLOAT;
    static constexpr cls_CollectionType MAP_STRING = cls_CollectionType::MAP_STRING_FLOAT;
    static constexpr const char* NO_LIST = "error getting ReadListPrim for float collection type: %d\n";
    static constexpr const char* NO_MAP_INT = "error getting ReadListMap int to float collection type: %d\n";
    static constexpr const char* NO_MAP_STRING =
        "error getting ReadListMap string to float collection type: %d\n";
};

template <>
struct idb_ElementTraits<double>
{
    static constexpr std::size_t BYTES = 8;
    static constexpr cls_CollectionType LIST = cls_CollectionType::LIST_DOUBLE;
    static constexpr cls_CollectionType ARRAY = cls_CollectionType::ARRAY_DOUBLE;
    static constexpr cls_CollectionType MAP_INT = cls_CollectionType::MAP_INT_DOUBLE;
    static constexpr cls_CollectionType MAP_STRING = cls_CollectionType::MAP_STRING_DOUBLE;
    static constexpr const char* NO_LIST = "error getting ReadListPrim for double collection type: %d\n";
    static constexpr const char* NO_MAP_INT = "error getting ReadListMap int to double collection type: %d\n";
    static constexpr const char* NO_MAP_STRING =
        "error getting ReadListMap string to double collection type: %d\n";
};

template <>
struct idb_ElementTraits<cow_String>
{
    static constexpr std::size_t BYTES = 4;
    static constexpr cls_CollectionType LIST = cls_CollectionType::LIST_STRING;
    static constexpr cls_CollectionType ARRAY = cls_CollectionType::ARRAY_STRING;
    static constexpr cls_CollectionType MAP_INT = cls_CollectionType::MAP_INT_STRING;
    static constexpr cls_CollectionType MAP_STRING = cls_CollectionType::MAP_STRING_STRING;
    static constexpr const char* NO_LIST = "error getting ReadListPrim for string collection type: %d\n";
    static constexpr const char* NO_MAP_INT = "error getting ReadListMap int to string collection type: %d\n";
    static constexpr const char* NO_MAP_STRING =
        "error getting ReadListMap string to string collection type: %d\n";
};

/// The element types of lists and of maps: all, and all but bool.
template <class T>
concept idb_ListElement = requires
{
    idb_ElementTraits<T>::LIST;
};
template <class T>
concept idb_MapElement = requires
{
    idb_ElementTraits<T>::MAP_INT;
};

/// Walks over numbers that lie packed in bytes, in the machine's order, wherever they begin.
template <class T>
class idb_PackedIterator
{
public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = const T*;
    using reference = T;

    explicit idb_PackedIterator(const unsigned char* at) : at_(at) {}
    T operator*() const
    {
        T value;
        std::memcpy(&value, at_, sizeof value);
        return value;
    }
    idb_PackedIterator& operator++()
    {
        at_ += sizeof(T);
        return *this;
    }
    friend std::ptrdiff_t operator-(const idb_PackedIterator& a, const idb_PackedIterator& b)
    {
        return (a.at_ - b.at_) / static_cast<std::ptrdiff_t>(sizeof(T));
    }
    friend bool operator==(const idb_PackedIterator& a, const idb_PackedIterator& b) = default;

private:
    const unsigned char* at_;
};

/// Consecutive elements, each in the stream's encoding.
template <class T>
void idb_WriteElements(bio_Ofilter& out, std::span<const T> values)
{
    if constexpr (requires { out.WriteArray(values); })
        out.WriteArray(values);
    else
        for (const T& value : values)
            out.Write(value);
}
template <class T, class L>
L idb_ReadElements(bio_Ifilter& in, int count)
{
    if constexpr (requires(std::span<T> values) { in.ReadArray(values); } &&
                  std::endian::native == std::endian::little)
    {
        // Out of the stream's bytes right into the list, which need not be filled with something first.
        const unsigned char* const bytes = in.Rest().data();
        const std::size_t length = static_cast<std::size_t>(count) * sizeof(T);
        in.Skip(length);
        return L::FromRange(idb_PackedIterator<T>(bytes), idb_PackedIterator<T>(bytes + length));
    }
    else
    {
        L list = L::Filled(count, T());
        T* const values = list.WriteData();
        for (int i = 0; i < count; ++i)
            in.Read(values[i]);
        return list;
    }
}

/// The count that begins a collection; one below 0 is 0. Elements of `bytesEach` bytes that the stream does
/// not hold are refused (bio_DataException), so that the caller may allocate for them; call it once
/// everything before the elements is read.
inline int idb_CheckedCount(const bio_Ifilter& in, int count, std::size_t bytesEach)
{
    if (count < 1)
        return 0;
    in.Require(static_cast<std::uint64_t>(count), bytesEach);
    return count;
}
