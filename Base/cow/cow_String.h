#pragma once

#include <bas_Export.h>
#include <cow_Count.h>

#include <compare>
#include <cstddef>
#include <iosfwd>
#include <string_view>

/// Text of bytes, zero bytes included; the one text type that crosses the library.
///
/// One pointer to a counted body that lies with its characters in one block; copies share it, Append
/// detaches. Reading never detaches and never allocates. The empty text allocates nothing. Equality,
/// order (by unsigned byte) and hash go by the whole text. Lengths and positions are ints, from 0.
/// Different handles of one text may be used on different threads.
class BAS_EXPORT cow_String
{
public:
    cow_String() noexcept : body_(EmptyBody()) {}
    /// A null pointer gives the empty text.
    cow_String(const char* text);
    /// The first `length` bytes at `text`, whatever they are; a length below 1 gives the empty text.
    cow_String(const char* text, std::size_t length);
    explicit cow_String(std::string_view text) : cow_String(text.data(), text.size()) {}

    cow_String(const cow_String& other) noexcept : body_(other.body_) { Share(); }
    cow_String(cow_String&& other) noexcept : body_(other.body_) { other.body_ = EmptyBody(); }
    cow_String& operator=(const cow_String& other) noexcept
    {
        cow_String(other).Swap(*this);
        return *this;
    }
    cow_String& operator=(cow_String&& other) noexcept
    {
        cow_String(static_cast<cow_String&&>(other)).Swap(*this);
        return *this;
    }
    ~cow_String() { Release(); }

    /// Adds `tail` behind the text; a text may be appended to itself. When memory runs out or the text
    /// would outgrow an int, it raises and the text is as it was.
    cow_String& Append(const cow_String& tail);
    cow_String& Append(std::string_view tail);
    cow_String& Append(const char* tail) { return tail ? Append(std::string_view(tail)) : *this; }
    cow_String& operator+=(const cow_String& tail) { return Append(tail); }
    cow_String& operator+=(const char* tail) { return Append(tail); }

    void Swap(cow_String& other) noexcept
    {
        Body* mine = body_;
        body_ = other.body_;
        other.body_ = mine;
    }

    int Length() const noexcept { return body_->length; }
    bool IsEmpty() const noexcept { return body_->length == 0; }

    /// The byte at `index`; raises nex_RangeException outside 0 .. Length() - 1.
    char operator[](int index) const
    {
        if (index < 0 || index >= body_->length)
            RaiseRange(index);
        return body_->Text()[index];
    }

    /// First position at or behind `from` where `part` begins, -1 when there is none. `from` is clamped to
    /// 0 .. Length(); the empty part is found at the clamped position.
    int Find(const cow_String& part, int from = 0) const noexcept;

    /// Last position at or before `from` where `part` begins, -1 when there is none. A negative `from`
    /// means from the end.
    int RFind(const cow_String& part, int from = -1) const noexcept;

    /// The bytes from .. from + count - 1, as far as the text has them. The whole text shares its body.
    cow_String SubString(int from, int count) const;

    /// Ends in a zero byte and is never null; valid until this handle is written, assigned or destroyed.
    const char* AsCharPtr() const noexcept { return body_->Text(); }
    std::string_view View() const noexcept
    {
        return {body_->Text(), static_cast<std::size_t>(body_->length)};
    }
    std::size_t Hash() const noexcept;
    /// Whether both handles stand on one body; all empty texts do.
    bool SharesWith(const cow_String& other) const noexcept { return body_ == other.body_; }

    friend bool operator==(const cow_String& a, const cow_String& b) noexcept
    {
        return a.body_ == b.body_ || a.View() == b.View();
    }
    /// A null pointer equals the empty text.
    friend bool operator==(const cow_String& a, const char* b) noexcept
    {
        return a.View() == (b ? std::string_view(b) : std::string_view());
    }
    friend std::strong_ordering operator<=>(const cow_String& a, const cow_String& b) noexcept
    {
        return a.View() <=> b.View();
    }
    friend cow_String operator+(cow_String a, const cow_String& b)
    {
        a.Append(b);
        return a;
    }
    friend BAS_EXPORT std::ostream& operator<<(std::ostream& out, const cow_String& text);

private:
    // The characters and their closing zero byte follow the body in the same block.
    struct Body
    {
        cow_Count count;
        int length = 0;
        int capacity = 0;

        char* Text() noexcept { return reinterpret_cast<char*>(this + 1); }
    };
    struct EmptyStorage
    {
        Body body;
        char zero[sizeof(int)] = {};
    };
    static EmptyStorage empty_;

    static Body* EmptyBody() noexcept { return &empty_.body; }
    static Body* NewBody(std::size_t length, std::size_t capacity);

    // The empty body is never counted, so that threads do not meet on its count.
    void Share() noexcept
    {
        if (body_ != EmptyBody())
            body_->count.Share();
    }
    void Release() noexcept
    {
        if (body_ != EmptyBody() && body_->count.Release())
            Free(body_);
    }
    static void Free(Body* body) noexcept;
    [[noreturn]] void RaiseRange(int index) const;

    Body* body_;
};

static_assert(sizeof(cow_String) == sizeof(void*));

template <>
struct std::hash<cow_String>
{
    std::size_t operator()(const cow_String& text) const noexcept { return text.Hash(); }
};
