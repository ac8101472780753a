#include <atr_Format.h>
#include <atr_SubstituteFormat.h>
#include <nex_Raise.h>

#include <charconv>

namespace
{
constexpr int LAST_POSITION = 99;
}

void atr_SubstituteFormat(atr_String& message, int position, const cow_String& value)
{
    if (position < 1 || position > LAST_POSITION)
        nex_RaiseRange(position, LAST_POSITION);

    const cow_String present = message.text_;
    message.source_.Change<false>([&](atr_String::Source& source) {
        if (!message.source_)
            source.original = source.format = present;
        while (source.arguments.Length() < position)
            source.arguments.Append(cow_String());
        source.arguments[position - 1] = value;
        message.text_ = atr_Format(source.format, source.arguments);
    });
}

void atr_SubstituteFormat(atr_String& message, int position, const atr_String& value)
{
    atr_SubstituteFormat(message, position, cow_String(value.AsString()));
}

void atr_SubstituteFormat(atr_String& message, int position, const char* value)
{
    atr_SubstituteFormat(message, position, cow_String(value));
}

void atr_SubstituteFormat(atr_String& message, int position, int value)
{
    char digits[16];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
    atr_SubstituteFormat(message, position, cow_String(std::string_view(digits, end.ptr)));
}
