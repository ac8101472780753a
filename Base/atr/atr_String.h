#pragma once

#include <bas_Export.h>
#include <cow_List.h>
#include <cow_Shared.h>
#include <cow_String.h>

#include <compare>
#include <iosfwd>

/// A message for people: its final text, with the template and the arguments that it came from.
///
/// Made by atr_translate and filled by atr_SubstituteFormat, or from a text that is final as it stands.
/// Equality, order and persistence go by the final text alone. Converts to cow_String, never implicitly
/// from it, so that no untranslated text slips into a message. Copying shares.
class BAS_EXPORT atr_String
{
public:
    atr_String() noexcept = default;
    /// The final text itself; nothing is looked up or filled in.
    atr_String(const char* text) : text_(text) {}
    explicit atr_String(const cow_String& text) noexcept : text_(text) {}

    operator cow_String() const noexcept { return text_; }
    const cow_String& AsString() const noexcept { return text_; }
    const char* AsCharPtr() const noexcept { return text_.AsCharPtr(); }
    bool IsEmpty() const noexcept { return text_.IsEmpty(); }

    /// The template as it was given to atr_translate, before the look-up; empty for a text without one.
    cow_String Template() const noexcept;
    /// The arguments by position; one never given is empty.
    cow_List<cow_String> Arguments() const noexcept;

    friend bool operator==(const atr_String& a, const atr_String& b) noexcept { return a.text_ == b.text_; }
    friend std::strong_ordering operator<=>(const atr_String& a, const atr_String& b) noexcept
    {
        return a.text_ <=> b.text_;
    }
    friend BAS_EXPORT std::ostream& operator<<(std::ostream& out, const atr_String& message);

private:
    friend BAS_EXPORT atr_String atr_translate(const char* messageTemplate);
    friend BAS_EXPORT void atr_SubstituteFormat(atr_String& message, int position, const cow_String& value);

    struct Source
    {
        cow_String original; // as the code has it
        cow_String format;   // as the catalogue has it
        cow_List<cow_String> arguments;
    };

    cow_String text_;
    cow_Shared<Source> source_; // null for a text without a template
};
