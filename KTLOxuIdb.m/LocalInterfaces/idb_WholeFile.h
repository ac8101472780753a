#pragma once

#include <cow_String.h>

#include <cstdint>
#include <span>
#include <vector>

/// Files that are read and written as wholes.
namespace idb_WholeFile
{
/// The bytes of a regular file. What goes wrong raises idb_MementoException "... cannot read ..."; more bytes
/// than `limit` raise its limit error.
std::vector<unsigned char> Read(const cow_String& path, std::uint64_t limit);

/// Puts a file with these bytes in the place of the one there, or makes it. The bytes go to a temporary file
/// beside it, are flushed to the disk, and then take its name; the folder is flushed too. Whenever the
/// process dies, the old file or the new one is there, whole. What goes wrong raises idb_MementoException
/// "... cannot write <path>: <step>: <reason>": the temporary file is gone, and the old file stays unless the
/// new one stands in its place already. A symbolic link is followed; the permissions of the old file are
/// kept.
void Write(const cow_String& path, std::span<const std::span<const unsigned char>> pieces);
}
