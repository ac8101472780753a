#pragma once

#include <string>

class annC_AnnotationContainer;

/// What the module takes from the viewer. In a build without it pictures are refused in a sentence, and
/// annotations take any text for a colour.
class scr_Pictures
{
public:
    /// The greatest width and height, in pixels.
    static constexpr int LARGEST = 16384;

    scr_Pictures() = delete;

    /// Installs the viewer's annotation client, where the application has none of its own.
    static void Start();
    static void Stop();

    /// Draws the annotations, as they are now, into a file of that size; other threads run meanwhile. Raises
    /// OSError when it cannot be written, orvex.ValueError for a suffix that names no format, and
    /// orvex.OrvexError in a build without pictures.
    static void Save(const std::string& path, int width, int height,
                     const annC_AnnotationContainer& annotations);
};
