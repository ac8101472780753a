#include <bat_TextCursor.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace
{
constexpr std::size_t LONGEST_QUOTE = 40;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

bool IsLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

// from_chars knows no leading plus.
std::string_view WithoutPlus(std::string_view word)
{
    const bool plus = word.size() > 1 && word[0] == '+' && word[1] != '-' && word[1] != '+';
    return plus ? word.substr(1) : word;
}

// Of a decimal number that is not zero and out of a double's range: whether it is too small rather
// than too large. Its first digit that counts stands at the power of ten that this computes.
bool IsTiny(std::string_view word)
{
    const std::size_t e = word.find_first_of("eE");
    std::int64_t power = 0;
    if (e != std::string_view::npos)
    {
        const std::string_view exponent = WithoutPlus(word.substr(e + 1));
        if (std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec != std::errc())
        {
            return exponent[0] == '-';
        }
    }
    const std::string_view digits = word.substr(0, e);
    const std::size_t first = digits.find_first_of("123456789");
    const std::size_t point = std::min(digits.find('.'), digits.size());
    return power < static_cast<std::int64_t>(first) - static_cast<std::int64_t>(point);
}
}

bat_TextCursor::bat_TextCursor(std::string_view text, const std::string& file, Comments comments,
                               Continuation continuation)
    : at_(text.data()),
      end_(text.data() + text.size()),
      file_(&file),
      comments_(comments),
      continuation_(continuation)
{}

// Behind a backslash and the end of its line, or null when that is not what stands here.
const char* bat_TextCursor::BehindContinuation(const char* at) const
{
    if (continuation_ == Continuation::NONE || *at != '\\')
    {
        return nullptr;
    }
    ++at;
    if (at != end_ && *at == '\r')
    {
        ++at;
        return at != end_ && *at == '\n' ? at + 1 : at;
    }
    return at != end_ && *at == '\n' ? at + 1 : nullptr;
}

bool bat_TextCursor::AtLineEnd() const
{
    return at_ == end_ || IsLineEnd(*at_);
}

void bat_TextCursor::EatLineEnd()
{
    if (at_ == end_)
    {
        return;
    }
    const bool pair = *at_ == '\r' && at_ + 1 != end_ && at_[1] == '\n';
    at_ += pair ? 2 : 1;
    ++line_;
}

void bat_TextCursor::SkipBlanks()
{
    while (at_ != end_)
    {
        if (IsBlank(*at_))
        {
            ++at_;
        }
        else if (*at_ == '#' && comments_ == Comments::HASH)
        {
            while (!AtLineEnd())
            {
                ++at_;
            }
        }
        else if (const char* behind = BehindContinuation(at_))
        {
            at_ = behind;
            ++line_;
        }
        else
        {
            return;
        }
    }
}

std::string_view bat_TextCursor::NextOnLine()
{
    if (task_)
    {
        task_->Step();
    }
    SkipBlanks();
    wordLine_ = line_;
    const char* first = at_;
    while (!AtLineEnd() && !IsBlank(*at_) && !BehindContinuation(at_))
    {
        ++at_;
    }
    return {first, static_cast<std::size_t>(at_ - first)};
}

std::string_view bat_TextCursor::Next()
{
    for (;;)
    {
        const std::string_view word = NextOnLine();
        if (!word.empty() || at_ == end_)
        {
            return word;
        }
        EatLineEnd();
    }
}

std::string_view bat_TextCursor::RestOfLine()
{
    SkipBlanks();
    const char* first = at_;
    while (!AtLineEnd())
    {
        ++at_;
    }
    const char* last = at_;
    while (last != first && IsBlank(last[-1]))
    {
        --last;
    }
    return {first, static_cast<std::size_t>(last - first)};
}

bool bat_TextCursor::SkipLine()
{
    while (!NextOnLine().empty())
    {}
    EatLineEnd();
    return at_ != end_;
}

std::optional<double> bat_TextCursor::Number(std::string_view word)
{
    const std::string_view text = WithoutPlus(word);
    double value = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const std::string_view tail(rest, static_cast<std::size_t>(text.data() + text.size() - rest));
    // How a widespread run-time library spells the numbers that are none: 1.#INF, -1.#IND, 1.#QNAN.
    if (error == std::errc() && (tail.starts_with("#INF") || tail.starts_with("#inf")))
    {
        return std::copysign(std::numeric_limits<double>::infinity(), value);
    }
    if (error == std::errc() &&
        (tail.starts_with("#IND") || tail.starts_with("#QNAN") || tail.starts_with("#SNAN") ||
         tail.starts_with("#ind") || tail.starts_with("#qnan") || tail.starts_with("#snan")))
    {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (error == std::errc::invalid_argument || !tail.empty())
    {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range)
    {
        const double size = IsTiny(text) ? 0.0 : std::numeric_limits<double>::infinity();
        return text[0] == '-' ? -size : size;
    }
    return value;
}

std::optional<std::int64_t> bat_TextCursor::Integer(std::string_view word)
{
    const std::string_view text = WithoutPlus(word);
    std::int64_t value = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || rest != text.data() + text.size())
    {
        return std::nullopt;
    }
    return value;
}

double bat_TextCursor::Finite(std::string_view word, const char* name) const
{
    if (word.empty())
    {
        Refuse(std::string("the ") + name + " is missing");
    }
    const std::optional<double> value = Number(word);
    if (!value)
    {
        Refuse(std::string("the ") + name + " " + Quoted(word) + " is no number");
    }
    if (std::isnan(*value))
    {
        Refuse(std::string("the ") + name + " is not a number (NaN)");
    }
    if (std::isinf(*value))
    {
        Refuse(std::string("the ") + name + " " + Quoted(word) + " is infinite or too large for a double");
    }
    return *value;
}

void bat_TextCursor::Refuse(const std::string& reason) const
{
    throw bat_MeshError::AtLine(*file_, wordLine_, reason);
}

std::string bat_TextCursor::Quoted(std::string_view word)
{
    static constexpr char HEX[] = "0123456789abcdef";
    std::string quoted = "'";
    for (const char c : word.substr(0, LONGEST_QUOTE))
    {
        if (c >= ' ' && c <= '~')
        {
            quoted += c;
        }
        else
        {
            const auto byte = static_cast<unsigned char>(c);
            quoted += {'\\', 'x', HEX[byte >> 4], HEX[byte & 15]};
        }
    }
    quoted += word.size() > LONGEST_QUOTE ? "...'" : "'";
    return quoted;
}
