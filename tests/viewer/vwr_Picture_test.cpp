// Whole pictures: their structure, the stacking order, pixels of PNG files, and saving.

#include <cairo.h>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <omu_ChangeHistory.h>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <testing/ExpectRaise.h>
#include <testing/ScratchFolder.h>
#include <viewer/PictureTesting.h>
#include <vwr_PictureError.h>

namespace
{
/// A PNG file, read by cairo.
class Pixels
{
public:
    explicit Pixels(const std::string& bytes)
    {
        std::string_view rest = bytes;
        cairo_surface_t* const surface = cairo_image_surface_create_from_png_stream(&Take, &rest);
        EXPECT_EQ(cairo_surface_status(surface), CAIRO_STATUS_SUCCESS);
        width = cairo_image_surface_get_width(surface);
        const int height = cairo_image_surface_get_height(surface);
        pixels_.resize(static_cast<std::size_t>(width * height));
        memcpy(pixels_.data(), cairo_image_surface_get_data(surface), 4 * pixels_.size());
        cairo_surface_destroy(surface);
        size = std::to_string(width) + " x " + std::to_string(height);
    }
    /// Red, green and blue.
    unsigned At(int x, int y) const { return pixels_.at(static_cast<std::size_t>(y * width + x)) & 0xFFFFFF; }

    int width;
    std::string size;

private:
    static cairo_status_t Take(void* from, unsigned char* to, unsigned length)
    {
        auto& rest = *static_cast<std::string_view*>(from);
        if (rest.size() < length)
            return CAIRO_STATUS_READ_ERROR;
        memcpy(to, rest.data(), length);
        rest.remove_prefix(length);
        return CAIRO_STATUS_SUCCESS;
    }

    std::vector<std::uint32_t> pixels_;
};

// A text that is nothing but its background.
annC_Text Plate(double x, double y, const char* color)
{
    annC_Text plate = TextOf(x, y, "          ");
    plate.backgroundStyle = annC_BackgroundStyleEnm::OTHER;
    plate.backgroundColor = color;
    return plate;
}

TEST(Picture, StructureOfASmallScene)
{
    PictureScene scene;
    scene.background = g3d_Color(0.2f, 0.4f, 0.6f, 0.5f);
    annC_Arrow arrow = ArrowOf(1, 1, 20, 20);
    arrow.startHeadStyle = annC_ArrowHeadStyleEnm::HOLLOW_CIRCLE;
    scene.Add("A", arrow);
    annC_Text text = TextOf(10, 10, "two\nlines");
    text.box = true;
    scene.Add("T", text);
    arrow.lineStyle = annC_LineStyleEnm::NONE;
    arrow.color = "no such";
    scene.Add("B", arrow);
    EXPECT_EQ(scene.Svg().Outline(),
              "arrow A(polyline.line circle.head polygon.head) "
              "text T(polygon.box text. text.) arrow B(desc. circle.head polygon.head)");
    const SvgElement svg = scene.Svg();
    EXPECT_EQ(svg["viewBox"], "0 0 960 480");
    EXPECT_EQ(svg.children[0]["fill"] + svg.children[0]["fill-opacity"], "#3366990.5");
    EXPECT_EQ(svg.Group("B").children[0].text, "no such is not a valid color name: drawn in black");
    EXPECT_EQ(svg.Group("B").children[1]["stroke"], "#000000");
    EXPECT_TRUE(svg.Of("parts").empty());

    scene.parts.resize(1);
    scene.parts[0].points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    scene.parts[0].triangles = {{0, 1, 2}};
    EXPECT_EQ(scene.Svg().Of("parts").at(0)["xlink:href"].substr(0, 38),
              "data:image/png;base64,iVBORw0KGgoAAAAN");
    EXPECT_EQ(scene.Svg().children[1].tag, "image") << "between the background and the annotations";
}

TEST(Picture, TheFirstAnnotationLiesInFrontInBothFormats)
{
    const std::pair<const char*, unsigned> colors[] = {
        {"Red", 0xFF0000}, {"Green", 0x00FF00}, {"Blue", 0x0000FF}};
    PictureScene scene;
    scene.background = g3d_Color(1.0f, 0.5f, 0.0f);
    scene.parts.resize(1);
    scene.parts[0].points = {{0, 0, 0}, {4, 0, 0}, {0, 2, 0}};
    scene.parts[0].triangles = {{0, 1, 2}};
    for (const auto& [color, rgb] : colors)
        scene.Add(color, Plate(1, 1, color));
    std::mt19937 random(8);
    const long long mark = omu_ChangeHistory::Instance().NextMark();
    for (int round = 0; round < 8; ++round)
    {
        const auto& [color, rgb] = colors[random() % 3];
        scene.held.BringToFront(color);
        const Pixels pixels(vwr_Picture::Png(scene));
        EXPECT_EQ(pixels.size, "960 x 480");
        EXPECT_EQ(pixels.At(20, 464), rgb);
        EXPECT_EQ(pixels.At(5, 5), 0xFF8000u) << "the background";
        EXPECT_EQ(pixels.At(300, 300) & 255, pixels.At(300, 300) >> 16) << "the part is grey";
        const std::vector<SvgElement> groups = scene.Svg().With("class", "text");
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(groups.rbegin()[i]["data-name"], scene.held.Keys()[i].View());
    }
    EXPECT_EQ(omu_ChangeHistory::Instance().NextMark(), mark + 16) << "drawing posts no change";
}

TEST(Picture, NamesAndTextsOfAnyBytesGiveWellFormedDocuments)
{
    std::mt19937 random(21);
    constexpr char LETTERS[] = "<>&\"'\n\r\t\0\x01\x1f\x7f\x80\xc3\xa9\xe2\x82\xac\xed\xa0 ab]]>-%;";
    std::uniform_int_distribution<std::size_t> letter(0, sizeof LETTERS - 2);
    std::uniform_real_distribution<double> place(0.0, 90.0);
    PictureScene scene;
    for (int i = 0; i < 300; ++i)
    {
        std::string bytes;
        for (auto length = random() % 12; length > 0; --length)
            bytes += LETTERS[letter(random)];
        const cow_String any{std::string_view(bytes)};
        annC_Text text = TextOf(place(random), place(random), any);
        text.color = text.backgroundColor = any;
        text.font = cow_String("-*-") + any;
        text.backgroundStyle = annC_BackgroundStyleEnm::OTHER;
        scene.held.Insert(any, text);
    }
    EXPECT_EQ(scene.Svg().children.size(), scene.held.Size() + 1) << "the background and one each";
    EXPECT_EQ(Pixels(vwr_Picture::Png(scene)).width, 960);

    const char* const name = "a<b>&\"c'";
    scene.Add(name, TextOf(1, 1, name));
    EXPECT_EQ(scene.Svg().Group(name).children.back().text, name);
    // Longer and larger than any picture.
    annC_Text text = TextOf(0, 0, cow_String(std::string_view(std::string(200000, 'm'))));
    scene.Add("long", text);
    text.text = "huge";
    text.font = "-*-helvetica-medium-r-normal-*-*-999999999-";
    scene.Add("huge", text);
    EXPECT_EQ(scene.Svg().Group("long").children[0].tag, "desc");
    EXPECT_EQ(scene.Svg().Group("huge").children[0]["font-size"], "2000");
    EXPECT_EQ(Pixels(vwr_Picture::Png(scene)).width, 960);
}

std::string BytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(PictureSave, ChoosesTheFormatByTheSuffix)
{
    const ScratchFolder folder;
    const PictureScene scene;
    for (const char* const name : {"a.svg", "b.x.SvG", "c.pNG"})
    {
        vwr_Picture::Save(folder / name, scene);
        EXPECT_EQ(BytesOf(folder / name), name[0] == 'c' ? vwr_Picture::Png(scene) : vwr_Picture::Svg(scene));
    }
    for (const std::string path : {"drop.jpg", "some.svg/drop", "svg"})
        EXPECT_RAISE(vwr_Picture::Save(path, scene), vwr_PictureError,
                     "cannot tell the format of " + path + ": its name must end in .svg or .png");
}

TEST(PictureSave, WritesWholeFilesOrNone)
{
    const ScratchFolder folder;
    const std::string path = folder.Write("a.png", "old");
    chmod(path.c_str(), 0640);
    std::filesystem::create_symlink(path, folder / "link.png");
    std::filesystem::create_directory(folder / "folder.svg");
    PictureScene scene;
    const auto expect = [&](const std::string& file, const std::string& reason) {
        EXPECT_RAISE(vwr_Picture::Save(file, scene), vwr_PictureError,
                     "cannot write " + file + ": " + reason);
    };
    expect(path + "/a.svg", "Not a directory");
    expect(folder / "no/a.svg", "No such file or directory");
    expect(folder / "folder.svg", "Is a directory");
    // A disk that is full after a hundred bytes.
    signal(SIGXFSZ, SIG_IGN);
    rlimit whole = {};
    getrlimit(RLIMIT_FSIZE, &whole);
    const rlimit small = {100, whole.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    expect(path, "File too large");
    setrlimit(RLIMIT_FSIZE, &whole);
    for (const int width : {0, -5, 16385})
    {
        scene.width = width;
        EXPECT_RAISE(vwr_Picture::Save(path, scene), vwr_PictureError,
                     "a picture of " + std::to_string(width) +
                         " x 480 pixels is not possible: each must be from 1 to 16384");
    }
    EXPECT_EQ(BytesOf(path), "old");
    using Files = std::filesystem::directory_iterator;
    EXPECT_EQ(std::distance(Files(folder.Path()), Files()), 3) << "nothing is left behind";

    scene.width = 16384;
    scene.height = 1;
    vwr_Picture::Save(folder / "link.png", scene);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.png"));
    EXPECT_EQ(Pixels(BytesOf(path)).size, "16384 x 1");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
}
}
