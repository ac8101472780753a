#pragma once

#include <cow_List.h>
#include <cow_String.h>

/// The text of a format with its arguments filled in, by the rules of atr_SubstituteFormat.
cow_String atr_Format(const cow_String& format, const cow_List<cow_String>& arguments);
