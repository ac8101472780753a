#include <bat_PictureFile.h>
#include <bat_UsageError.h>

#ifdef ORVEX_WITH_VIEWER

#include <algorithm>
#include <bat_InputError.h>
#include <cctype>
#include <cerrno>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vwr_Picture.h>
#include <vwr_PictureError.h>

namespace
{
std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

[[noreturn]] void RefusePlace(const std::string& path, int number)
{
    throw bat_InputError("--picture " + path +
                         " cannot be written: " + std::generic_category().message(number));
}
}

void bat_PictureFile::RequirePlace(const std::string& path)
{
    const std::string lower = Lower(path);
    if (!lower.ends_with(".svg") && !lower.ends_with(".png"))
        throw bat_UsageError("--picture " + path + ": the name must end in .svg or .png");
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    struct stat status = {};
    if (::stat(folder.c_str(), &status) != 0)
        RefusePlace(path, errno);
    if (!S_ISDIR(status.st_mode))
        RefusePlace(path, ENOTDIR);
    if (::access(folder.c_str(), W_OK) != 0)
        RefusePlace(path, errno);
    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        RefusePlace(path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
}

void bat_PictureFile::Save(const std::string& path, const vwr_Scene& scene)
{
    try
    {
        vwr_Picture::Save(path, scene);
    }
    catch (const vwr_PictureError& error)
    {
        throw bat_InputError(error.what());
    }
}

#else

void bat_PictureFile::RequirePlace(const std::string& path)
{
    throw bat_UsageError("--picture " + path +
                         ": pictures are off, this program was built without the library cairo");
}

#endif
