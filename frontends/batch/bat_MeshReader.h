#pragma once

#include <bat_TriangleMesh.h>

#include <string>
#include <string_view>

enum class bat_MeshFormat { STL_BINARY, STL_ASCII, OBJ, OFF };

/// The format that the bytes are in; their name does not count. Raises bat_MeshError when they are empty
/// or in none of the formats.
///
/// Exactly the length that a binary STL of its number of facets has makes a binary STL, whatever the
/// header says. Otherwise the first word decides that is no comment: solid, OFF (with its prefixes), an
/// OBJ statement. What has zero bytes near the start is taken for a damaged binary STL.
bat_MeshFormat bat_TellMeshFormat(std::string_view bytes, const std::string& file);

/// Reads the bytes of a mesh file in any of the formats; file is its name in messages. Memory grows with
/// the bytes, never with what a count in them promises. Raises bat_MeshError, also when no triangle is
/// in it. Notes on what is odd come with the mesh. The watcher is asked all along, but told of no progress;
/// bat_Interrupted when it wants no more.
bat_TriangleMesh bat_ParseMesh(std::string_view bytes, const std::string& file,
                               bat_Watcher& watcher = bat_Watcher::Nobody());

/// The same from a file or pipe. Raises bat_MeshError also when it cannot be read or memory runs out.
bat_TriangleMesh bat_ReadMesh(const std::string& path, bat_Watcher& watcher = bat_Watcher::Nobody());
