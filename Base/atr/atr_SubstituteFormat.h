#pragma once

#include <atr_String.h>
#include <bas_Export.h>
#include <cow_String.h>

/// Gives the message its argument `position` (from 1 to 99; another raises nex_RangeException) and renders
/// the text anew; an argument may be given in any order, and again.
///
/// The template is read once from left to right and inserted text is never read again. "%s" and "%d" take
/// the next argument, "%2$s" and "%2$d" the second one (a translation may reorder), "%%" gives "%", and any
/// other "%" stays as it is. A mark whose argument was not given is the empty text. A message
/// without a template takes its present text as one.
BAS_EXPORT void atr_SubstituteFormat(atr_String& message, int position, const cow_String& value);
BAS_EXPORT void atr_SubstituteFormat(atr_String& message, int position, const atr_String& value);
BAS_EXPORT void atr_SubstituteFormat(atr_String& message, int position, const char* value);
BAS_EXPORT void atr_SubstituteFormat(atr_String& message, int position, int value);
