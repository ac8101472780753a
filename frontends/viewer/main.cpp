#include <KTLOxuGeom.h>
#include <vwr_ContactSheet.h>
#include <vwr_Picture.h>
#include <vwr_PictureError.h>

#include <cstdio>
#include <filesystem>

namespace
{
int Write(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const std::string& name : vwr_ContactSheet::Names())
    {
        const vwr_ContactSheet sheet(name);
        for (const char* const suffix : {".svg", ".png"})
        {
            const std::string path = (folder / (name + suffix)).string();
            vwr_Picture::Save(path, sheet.Scene());
            std::puts(path.c_str());
        }
    }
    return 0;
}
}

// vwr_pictures FOLDER: draws every contact sheet into the folder.
int main(int count, char** arguments)
{
    if (count != 2)
    {
        std::fputs("usage: vwr_pictures FOLDER\n", stderr);
        return 2;
    }
    int running = 0;
    KTLOxuGeom_initialize(running);
    int result = 1;
    try
    {
        result = Write(arguments[1]);
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "vwr_pictures: %s\n", error.what());
    }
    KTLOxuGeom_finalize(running);
    return result;
}
