#pragma once

#include <string>

class bat_Part;
class bat_Watcher;
struct bat_TravelResult;

/// A travel as a picture: the fixed part grey, the movable one coloured, where it starts; the travel as an
/// arrow from the corner that touches to the place where it does, which is marked, with the distance beside
/// it. Without a contact the parts and a text that says so. In a build without the viewer there is
/// none, and bat_PictureFile says it.
class bat_TravelPicture
{
public:
    /// All must outlive the object.
    bat_TravelPicture(const bat_Part& fixed, const bat_Part& movable, const bat_TravelResult& result,
                      bat_Watcher& watcher)
        : fixed_(fixed), movable_(movable), result_(result), watcher_(watcher)
    {}

    /// As SVG or PNG, by the suffix. Raises bat_InputError when the file cannot be written, bat_Interrupted.
    void Save(const std::string& path) const;

private:
    // Without the viewer nobody looks at them.
    [[maybe_unused]] const bat_Part& fixed_;
    [[maybe_unused]] const bat_Part& movable_;
    [[maybe_unused]] const bat_TravelResult& result_;
    [[maybe_unused]] bat_Watcher& watcher_;
};
