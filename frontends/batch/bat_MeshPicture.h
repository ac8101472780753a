#pragma once

#include <string>

class bat_Part;
class bat_Watcher;
struct bat_MeshHealth;

/// A mesh as a picture: every triangle in the colour of its class of shape factors, sharp edges dark, edges
/// that are flaws in colours of their own; beside it the verdict, and the classes as a legend. In a build
/// without the viewer there is none, and bat_PictureFile says it.
class bat_MeshPicture
{
public:
    /// All must outlive the object.
    bat_MeshPicture(const bat_Part& part, const bat_MeshHealth& health, bat_Watcher& watcher)
        : part_(part), health_(health), watcher_(watcher)
    {}

    /// As SVG or PNG, by the suffix. Raises bat_InputError when the file cannot be written, bat_Interrupted.
    void Save(const std::string& path) const;

private:
    // Without the viewer nobody looks at them.
    [[maybe_unused]] const bat_Part& part_;
    [[maybe_unused]] const bat_MeshHealth& health_;
    [[maybe_unused]] bat_Watcher& watcher_;
};
