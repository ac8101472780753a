#pragma once

#include <atr_String.h>
#include <bas_Export.h>

/// The message for a template: what the installed catalogue has for it, else the template itself. Null
/// stands for the empty template. The message's marks are empty until atr_SubstituteFormat.
BAS_EXPORT atr_String atr_translate(const char* messageTemplate);
