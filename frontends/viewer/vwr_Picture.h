#pragma once

#include <string>

struct vwr_Scene;

/// Pictures of scenes, drawn in memory without a display. Only reads what it draws: nothing is posted to the
/// change history. A viewport whose width or height is not from 1 to LARGEST pixels raises vwr_PictureError.
class vwr_Picture
{
public:
    static constexpr int LARGEST = 16384;

    /// The scene as an SVG 1.1 document: the parts as one embedded image, each annotation as a group <g> of
    /// class "arrow" or "text" with its name in data-name, from the rearmost to the front; text stays text.
    static std::string Svg(const vwr_Scene& scene);
    /// The scene as the bytes of a PNG file.
    static std::string Png(const vwr_Scene& scene);
    /// Writes the picture in the format that the suffix names, ".svg" or ".png" in upper or lower case. The
    /// file is written whole or not at all: what stood there stays when anything fails. Raises
    /// vwr_PictureError for another suffix and when the file cannot be written.
    static void Save(const std::string& path, const vwr_Scene& scene);
};
