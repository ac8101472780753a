#pragma once

#include <string>

struct vwr_Scene;

/// The file that --picture names.
class bat_PictureFile
{
public:
    /// Whether a picture could stand there, as far as that can be told in advance. Raises bat_UsageError for
    /// a suffix that names no format and in a build without the viewer, bat_InputError for a folder that
    /// takes no file.
    static void RequirePlace(const std::string& path);

    /// Draws the scene into it, as SVG or PNG, by the suffix. Raises bat_InputError when the file cannot be
    /// written. Only in a build with the viewer.
    static void Save(const std::string& path, const vwr_Scene& scene);
};
