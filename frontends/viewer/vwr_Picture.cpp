#include <vwr_CairoCanvas.h>
#include <vwr_Picture.h>
#include <vwr_PictureError.h>
#include <vwr_Scene.h>
#include <vwr_SceneDrawing.h>
#include <vwr_SvgCanvas.h>

#include <bio_WholeFile.h>
#include <nex_RaiseWith.h>
#include <system_error>

namespace
{
constexpr const char* SOURCE = "frontends/viewer/vwr_Picture";

void Write(const std::string& path, const std::string& bytes)
try
{
    const std::span<const unsigned char> whole(reinterpret_cast<const unsigned char*>(bytes.data()),
                                               bytes.size());
    bio_WriteWholeFile(path, {&whole, 1});
}
catch (const std::system_error& fault)
{
    vwr_PictureError failure("cannot write " + path + ": " + fault.code().message());
    failure.SetCode(fault.code().value());
    nex_Raise(failure, SOURCE, __LINE__);
}

void RequireSize(const vwr_Scene& scene)
{
    const auto possible = [](int pixels) { return pixels >= 1 && pixels <= vwr_Picture::LARGEST; };
    if (!possible(scene.width) || !possible(scene.height))
        nex_Raise(vwr_PictureError("a picture of " + std::to_string(scene.width) + " x " +
                                   std::to_string(scene.height) +
                                   " pixels is not possible: each must be from 1 to " +
                                   std::to_string(vwr_Picture::LARGEST)),
                  SOURCE, __LINE__);
}

// The suffix in lower case, with its point; empty where the file's name has none.
std::string SuffixOf(const std::string& path)
{
    const std::size_t point = path.find_last_of("./");
    if (point == std::string::npos || path[point] == '/')
        return {};
    std::string suffix = path.substr(point);
    for (char& c : suffix)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return suffix;
}
}

std::string vwr_Picture::Svg(const vwr_Scene& scene)
{
    RequireSize(scene);
    vwr_TextMeasure measure;
    vwr_SvgCanvas canvas(scene.width, scene.height);
    vwr_DrawScene(canvas, scene, measure);
    return canvas.Finish();
}

std::string vwr_Picture::Png(const vwr_Scene& scene)
{
    RequireSize(scene);
    vwr_TextMeasure measure;
    vwr_CairoCanvas canvas(scene.width, scene.height, measure);
    vwr_DrawScene(canvas, scene, measure);
    return canvas.Png();
}

void vwr_Picture::Save(const std::string& path, const vwr_Scene& scene)
{
    const std::string suffix = SuffixOf(path);
    if (suffix == ".svg")
        Write(path, Svg(scene));
    else if (suffix == ".png")
        Write(path, Png(scene));
    else
        nex_Raise(
            vwr_PictureError("cannot tell the format of " + path + ": its name must end in .svg or .png"),
            SOURCE, __LINE__);
}
