#pragma once

#include <cow_String.h>
#include <oxu_Export.h>

// Path texts, piece by piece. A quoted key is one in single or double quotes: "['Model-1']".

/// For '[' the position of the first bracket at or behind `from` that opens a quoted key; for ']' that of the
/// first one that closes one. -1 when there is none, and for any other character.
OXU_EXPORT int omu_GetBracketKeyPos(const cow_String& path, char bracket, int from);

/// The first quoted key at or behind `from`, with its quotes; empty when there is none.
OXU_EXPORT cow_String omu_GetFirstKeyInPath(const cow_String& path, int from);

/// The last quoted key, with its quotes, that begins at least `fromEnd` characters before the end; a distance
/// outside the text counts as 0. Empty when there is none.
OXU_EXPORT cow_String omu_GetLastKeyInPath(const cow_String& path, int fromEnd);

/// The text without its quotes; in a text in single quotes \' becomes '. A text in no quotes is told on the
/// standard error stream and comes back as it is.
OXU_EXPORT cow_String omu_StringFromQString(const cow_String& text);

/// The name as a quoted string, as omu_PrimString writes it.
OXU_EXPORT cow_String omu_NameString(const cow_String& name);

/// "session.openOdb('a.odb').steps" as "session.odbs['a.odb'].steps": the first argument becomes the key, by
/// whatever keyword it is given. Any other path comes back as it is.
OXU_EXPORT cow_String omu_fixOpenOdb(const cow_String& path);
