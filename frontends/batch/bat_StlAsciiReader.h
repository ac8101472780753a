#pragma once

#include <bat_FacetNormals.h>
#include <bat_TextCursor.h>
#include <bat_TriangleMesh.h>

#include <string>
#include <string_view>

/// Reads ASCII STL: solids of facets of three corners, in words of any case and spacing, one solid or
/// several. All solids become one mesh. A solid without its "endsolid" is refused: it may be cut short.
class bat_StlAsciiReader
{
public:
    /// Every word is a step of the task.
    bat_StlAsciiReader(std::string_view text, const std::string& file, bat_Task& task);

    /// Raises bat_MeshError for what is not ASCII STL, for a facet that has not three corners, and for
    /// a coordinate that is not finite. A stored normal may be any three numbers: it does not count.
    bat_TriangleMesh Read();

    /// Whether the word is the lower-case keyword, in any case.
    static bool IsKeyword(std::string_view word, std::string_view keyword);

private:
    void ReadSolid();
    void ReadFacet();
    std::string_view ReadName();
    void Expect(std::string_view keyword);

    bat_TextCursor cursor_;
    bat_TriangleMesh mesh_;
    bat_FacetNormals normals_;
};
