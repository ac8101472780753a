#pragma once

#include <atr_String.h>
#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <cow_String.h>

/// The message of a template: looked up for translation first, then its placeholders filled by position, "%s"
/// with text, "%d" with an int.
template <class... Arguments>
atr_String oxu_FormatMessage(const char* messageTemplate, const Arguments&... arguments)
{
    atr_String message = atr_translate(messageTemplate);
    [[maybe_unused]] int position = 0;
    (atr_SubstituteFormat(message, ++position, arguments), ...);
    return message;
}
