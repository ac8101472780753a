#pragma once

#include <string>
#include <string_view>

/// Puts a file with these bytes in the place of the one there, or makes it: written beside it under another
/// name, flushed to the disk, then renamed, so that the old file or the new one is there, whole. A symbolic
/// link is followed, the permissions of the old file are kept. Raises vwr_PictureError "cannot write PATH:
/// REASON"; no other file is left behind.
void vwr_WriteWholeFile(const std::string& path, std::string_view bytes);
