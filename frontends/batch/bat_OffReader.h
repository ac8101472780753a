#pragma once

#include <bat_PolygonCutter.h>
#include <bat_TextCursor.h>
#include <bat_TriangleMesh.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads the polygons of an OFF file in text: OFF, and with colours, normals or texture coordinates at
/// the vertices (COFF, NOFF, STOFF and their combinations in the order ST, C, N), which are passed over.
///
/// One vertex and one face a line; "#" begins a comment. The number of edges is not used and may be
/// absent. Faces of one or two corners are points and lines and are passed over; the colour behind a
/// face's corners, too. Binary OFF and points of other than three dimensions (4OFF, nOFF) are refused by
/// name, and so is what stands behind the last face.
class bat_OffReader
{
public:
    /// Every word is a step of the task.
    bat_OffReader(std::string_view text, const std::string& file, bat_Task& task);

    bat_TriangleMesh Read();

    /// Whether the word is OFF, alone or with prefixes, read or not, or with the first number joined to it.
    static bool IsKeyword(std::string_view word);

private:
    /// What a keyword asks for, and the digits that some writers join to it: "OFF8 6 12".
    struct Header
    {
        bool texture = false;
        bool colour = false;
        bool normal = false;
        bool fourth = false;
        bool dimension = false;
        std::string_view digits;
    };

    static std::optional<Header> Parse(std::string_view word);
    std::size_t ReadCount(std::string_view word, const char* name) const;
    void ReadHeader();
    void ReadVertex();
    void ReadFace();
    void ReadEnd();

    bat_TextCursor cursor_;
    Header header_;
    std::size_t vertexCount_ = 0;
    std::size_t faceCount_ = 0;
    std::vector<double> vertices_;
    std::vector<double> polygon_;
    bat_PolygonCutter cutter_;
    bat_TriangleMesh mesh_;
};
