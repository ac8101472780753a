#pragma once

#include <bas_Export.h>

#include <span>
#include <string>

/// Puts a file with these bytes, piece after piece, in the place of the one there, or makes it. The bytes go
/// to a temporary file beside it, are flushed to the disk, and then take its name; the folder is flushed too.
/// Whenever the process dies, the old file or the new one is there, whole. A symbolic link is followed, also
/// to a file that is not there yet; the permissions of the old file are kept. Devices and pipes stay what
/// they are: refused.
///
/// What goes wrong raises std::system_error with the step that failed and the system's error: the temporary
/// file is gone, and the old file stays unless the new one stands in its place already.
BAS_EXPORT void bio_WriteWholeFile(const std::string& path,
                                   std::span<const std::span<const unsigned char>> pieces);
