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
    explicit Pixels(const std::string& path)
    {
        cairo_surface_t* const surface = cairo_image_surface_create_from_png(path.c_str());
        EXPECT_EQ(cairo_surface_status(surface), CAIRO_STATUS_SUCCESS);
        width_ = cairo_image_surface_get_width(surface);
        height_ = cairo_image_surface_get_height(surface);
        pixels_.resize(static_cast<std::size_t>(width_ * height_));
        memcpy(pixels_.data(), cairo_image_surface_get_data(surface), 4 * pixels_.size());
        cairo_surface_destroy(surface);
    }
    std::string Size() const { return std::to_string(width_) + " x " + std::to_string(height_); }
    /// Red, green and blue.
    unsigned At(int x, int y) const
    {
        return pixels_.at(static_cast<std::size_t>(y * width_ + x)) & 0xFFFFFF;
    }

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
};

TEST(Picture, StructureOfASmallScene)
{
    PictureScene scene;
    scene.background = g3d_Color(0.2f, 0.4f, 0.6f, 0.5f);
    annC_Arrow arrow = ArrowOf(1, 1, 20, 20);
    arrow.startHeadStyle = annC_ArrowHeadStyleEnm::HOLLOW_CIRCLE;
    scene.Add("A", arrow);
    annC_Text text = TextOf(10, 10, "two\nlines");
    text.box = true;
    text.backgroundStyle = annC_BackgroundStyleEnm::MATCH;
    text.color = "#010203";
    scene.Add("T", text);
    arrow.lineStyle = annC_LineStyleEnm::NONE;
    arrow.color = "no such";
    scene.Add("B", arrow);
    EXPECT_EQ(scene.Svg().Outline(),
              "svg (rect background)(g arrow(polyline line)(circle head)(polygon head))"
              "(g text(polygon box)(text )(text ))(g arrow(desc )(circle head)(polygon head))");
    const SvgElement svg = scene.Svg();
    EXPECT_EQ(svg["viewBox"], "0 0 960 480");
    EXPECT_EQ(svg.children[0]["fill"] + svg.children[0]["fill-opacity"], "#3366990.5");
    const std::vector<SvgElement> parts = svg.Group("T").children;
    EXPECT_EQ(parts[0]["fill"] + parts[0]["stroke"] + parts[1]["fill"], "#336699#010203#010203");
    EXPECT_EQ(svg.Group("B").children[0].text, "no such is not a valid color name: drawn in black");
    EXPECT_EQ(svg.Group("B").children[1]["stroke"], "#000000");
}

TEST(Picture, TheFirstAnnotationLiesInFrontInBothFormats)
{
    const std::pair<const char*, unsigned> colors[] = {
        {"Red", 0xFF0000}, {"Green", 0x00FF00}, {"Blue", 0x0000FF}};
    const ScratchFolder folder;
    PictureScene scene;
    scene.background = g3d_Color(1.0f, 0.5f, 0.0f);
    scene.parts.resize(1);
    scene.parts[0].points = {{0, 0, 0}, {4, 0, 0}, {0, 2, 0}};
    scene.parts[0].triangles = {{0, 1, 2}};
    EXPECT_EQ(scene.Svg().Of("parts").at(0)["xlink:href"].substr(0, 26), "data:image/png;base64,iVBO");
    for (const auto& [color, rgb] : colors)
    {
        annC_Text plate = TextOf(1, 1, "          "); // nothing but its background
        plate.backgroundStyle = annC_BackgroundStyleEnm::OTHER;
        plate.backgroundColor = color;
        scene.Add(color, plate);
    }
    std::mt19937 random(8);
    const long long mark = omu_ChangeHistory::Instance().NextMark();
    for (int round = 0; round < 8; ++round)
    {
        const auto& [color, rgb] = colors[random() % 3];
        scene.held.BringToFront(color);
        vwr_Picture::Save(folder / "a.png", scene);
        const Pixels pixels(folder / "a.png");
        EXPECT_EQ(pixels.Size(), "960 x 480");
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
    EXPECT_NO_THROW(vwr_Picture::Png(scene));
    const char* const name = "a<b>&\"c'";
    scene.Add(name, TextOf(1, 1, name));
    EXPECT_EQ(scene.Svg().Group(name).children.back().text, name);
}

std::string BytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(PictureSave, WritesWholeFilesOrNone)
{
    const ScratchFolder folder;
    const std::string path = folder.Write("a.png", "old");
    chmod(path.c_str(), 0640);
    std::filesystem::create_symlink(path, folder / "link.png");
    PictureScene scene;
    // A disk that is full after a hundred bytes.
    signal(SIGXFSZ, SIG_IGN);
    rlimit whole = {};
    getrlimit(RLIMIT_FSIZE, &whole);
    const rlimit small = {100, whole.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_RAISE(vwr_Picture::Save(path, scene), vwr_PictureError,
                 "cannot write " + path + ": File too large");
    setrlimit(RLIMIT_FSIZE, &whole);
    scene.width = 16385;
    EXPECT_RAISE(vwr_Picture::Save(path, scene), vwr_PictureError,
                 "a picture of 16385 x 480 pixels is not possible: each must be from 1 to 16384");
    EXPECT_EQ(BytesOf(path), "old");
    using Files = std::filesystem::directory_iterator;
    EXPECT_EQ(std::distance(Files(folder.Path()), Files()), 2) << "nothing is left behind";

    scene.width = 16384;
    scene.height = 1;
    vwr_Picture::Save(folder / "link.png", scene);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.png"));
    EXPECT_EQ(Pixels(path).Size(), "16384 x 1");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
}
}
