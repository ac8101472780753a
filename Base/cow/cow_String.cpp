#include <cow_String.h>
#include <nex_Raise.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <ostream>
#include <type_traits>

namespace
{
constexpr char SOURCE[] = "Base/cow/cow_String";
constexpr std::size_t LONGEST = static_cast<std::size_t>(std::numeric_limits<int>::max()) - 1;

int Position(std::size_t found)
{
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}
}

// Made before any dynamic initialisation, and never destroyed in effect: texts of static objects count on it.
constinit cow_String::EmptyStorage cow_String::empty_;

cow_String::Body* cow_String::NewBody(std::size_t length, std::size_t capacity)
{
    if (length > LONGEST)
        nex_RaiseInternal("text too long", SOURCE, __LINE__);
    capacity = std::clamp(capacity, length, LONGEST);
    Body* body = new (::operator new(sizeof(Body) + capacity + 1)) Body;
    body->length = static_cast<int>(length);
    body->capacity = static_cast<int>(capacity);
    body->Text()[length] = '\0';
    return body;
}

void cow_String::Free(Body* body) noexcept
{
    body->~Body();
    ::operator delete(body);
}

cow_String::cow_String(const char* text) : cow_String(text, text ? std::strlen(text) : 0) {}

cow_String::cow_String(const char* text, std::size_t length) : body_(EmptyBody())
{
    if (length == 0)
        return;
    body_ = NewBody(length, length);
    std::memcpy(body_->Text(), text, length);
}

cow_String& cow_String::Append(const cow_String& tail)
{
    if (IsEmpty())
        return *this = tail;
    return Append(tail.View());
}

cow_String& cow_String::Append(std::string_view tail)
{
    if (tail.empty())
        return *this;
    // The tail may lie in this very text: what it refers to stays put until it is copied.
    const std::size_t mine = static_cast<std::size_t>(body_->length);
    const std::size_t room = static_cast<std::size_t>(body_->capacity) - mine;
    if (body_ != EmptyBody() && !body_->count.IsShared() && tail.size() <= room)
    {
        std::memcpy(body_->Text() + mine, tail.data(), tail.size());
        body_->length = static_cast<int>(mine + tail.size());
        body_->Text()[body_->length] = '\0';
        return *this;
    }
    if (tail.size() > LONGEST - mine)
        nex_RaiseInternal("text too long", SOURCE, __LINE__);
    Body* longer = NewBody(mine + tail.size(), mine == 0 ? tail.size() : 2 * mine + tail.size());
    std::memcpy(longer->Text(), body_->Text(), mine);
    std::memcpy(longer->Text() + mine, tail.data(), tail.size());
    Release();
    body_ = longer;
    return *this;
}

int cow_String::Find(const cow_String& part, int from) const noexcept
{
    return Position(View().find(part.View(), static_cast<std::size_t>(std::clamp(from, 0, Length()))));
}

int cow_String::RFind(const cow_String& part, int from) const noexcept
{
    return Position(
        View().rfind(part.View(), from < 0 ? std::string_view::npos : static_cast<std::size_t>(from)));
}

cow_String cow_String::SubString(int from, int count) const
{
    const long long length = Length();
    const long long first = std::clamp<long long>(from, 0, length);
    const long long last = std::clamp<long long>(static_cast<long long>(from) + count, first, length);
    if (first == 0 && last == length)
        return *this;
    return cow_String(AsCharPtr() + first, static_cast<std::size_t>(last - first));
}

std::size_t cow_String::Hash() const noexcept
{
    return std::hash<std::string_view>()(View());
}

void cow_String::RaiseRange(int index) const
{
    nex_RaiseRange(index, Length());
}

std::ostream& operator<<(std::ostream& out, const cow_String& text)
{
    return out << text.View();
}
