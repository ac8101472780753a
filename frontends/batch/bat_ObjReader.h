#pragma once

#include <bat_PolygonCutter.h>
#include <bat_TextCursor.h>
#include <bat_TriangleMesh.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// Reads the polygons of a Wavefront OBJ file: "v" and "f"; all groups and objects become one mesh.
///
/// A vertex may carry a weight or a colour behind its coordinates; neither moves it (weights belong to
/// rational curves). A corner is v, v/vt, v//vn or v/vt/vn; indices count from 1, negative ones back from
/// the last one before the face; positive ones may point ahead. Polygons are cut into triangles. Points,
/// lines, texture, normals, groups and materials are passed over. Statements that would bring a shape
/// that is not read (free-form curves and surfaces, calls of other files) are refused by name.
class bat_ObjReader
{
public:
    /// Every word is a step of the task.
    bat_ObjReader(std::string_view text, const std::string& file, bat_Task& task)
        : text_(text), file_(&file), task_(&task), cutter_(&task)
    {}

    bat_TriangleMesh Read();

    /// Whether the word begins a statement that is read or passed over.
    static bool IsStatement(std::string_view word);

private:
    /// How many of the things that a face's corner refers to a file or a part of it has.
    enum Kind { VERTEX, TEXTURE, NORMAL, KINDS };
    using Counts = std::array<std::size_t, KINDS>;

    bat_TextCursor Start() const;
    static void Count(std::string_view statement, Counts& counts);
    void CollectVertices();
    void ReadVertex(bat_TextCursor& cursor);
    void ReadFace(bat_TextCursor& cursor, const Counts& before);
    std::size_t ReadCorner(const bat_TextCursor& cursor, std::string_view corner, const Counts& before) const;
    std::size_t Resolve(const bat_TextCursor& cursor, std::string_view index, Kind kind,
                        const Counts& before) const;

    std::string_view text_;
    const std::string* file_;
    bat_Task* task_;
    Counts whole_ = {};
    std::vector<double> vertices_;
    std::vector<double> polygon_;
    bat_PolygonCutter cutter_;
    bat_TriangleMesh mesh_;
};
