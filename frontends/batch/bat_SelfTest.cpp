#include <annC_Arrow.h>
#include <array>
#include <bat_ContactTravel.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_SelfTest.h>
#include <bio_Crc32c.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <cls_TypeId.h>
#include <cmath>
#include <exception>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <omu_PrimTuple.h>
#include <stdexcept>
#include <typ_ArchCompTable.h>

#ifdef ORVEX_WITH_VIEWER
#include <vwr_Picture.h>
#include <vwr_Scene.h>
#endif

namespace
{
void Require(bool holds, const std::string& fault)
{
    if (!holds)
        throw std::runtime_error(fault);
}

/// Classes that the modules register when they start; who adds a class to a module counts it here.
constexpr std::size_t REGISTERED = 74;

void CheckRegistration()
{
    const cls_MetadataRegistrar& metadata = cls_MetadataRegistrar::Instance();
    for (const cls_MetadataLogEntry& entry : metadata.Log())
    {
        const cls_ClassMetadata* record = metadata.Registrar().Find(entry.name);
        Require(record != nullptr && record->TypeId() == entry.typeId &&
                    typ_ArchCompTable::Find(entry.typeId) != nullptr,
                "class " + std::string(entry.name.View()) + " is not found again");
    }
    const std::size_t registered = metadata.Log().size();
    Require(registered == REGISTERED, "the modules registered " + std::to_string(registered) +
                                          " classes, not " + std::to_string(REGISTERED));
}

using Point = std::array<double, 3>;

bat_Part Tetrahedron(const char* name, const std::array<Point, 4>& corners)
{
    constexpr int FACES[][3] = {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
    bat_TriangleMesh mesh;
    for (const auto& face : FACES)
    {
        std::array<double, bat_TriangleMesh::DOUBLES_PER_TRIANGLE> triangle{};
        for (std::size_t k = 0; k < triangle.size(); ++k)
            triangle[k] = corners[static_cast<std::size_t>(face[k / 3])][k % 3];
        mesh.Add(triangle);
    }
    return bat_Part(name, std::move(mesh));
}

// The peak of one, 4 below the base of the other, goes 5 along (0, 3, 4) / 5, and never meets it downwards.
void CheckTravel()
{
    bat_Part fixed =
        Tetrahedron("fixed", {Point{-8, -8, 5}, Point{8, -8, 5}, Point{0, 8, 5}, Point{0, 0, 9}});
    bat_Part movable =
        Tetrahedron("movable", {Point{0, 0, 0}, Point{1, 0, 0}, Point{0, 1, 0}, Point{0.25, 0.25, 1}});
    bat_ContactTravel travel(fixed, movable, bat_Watcher::Nobody(), bat_ContactTravel::SHARE);
    bat_TravelQuestion question;
    question.direction = gsl_Vector(0.0, 0.6, 0.8);
    const bat_TravelResult contact = travel.Find(question);
    Require(contact.state == bat_TravelResult::State::CONTACT &&
                std::abs(contact.travel - 5.0) <= contact.tolerance,
            std::string("two tetrahedra are ") + contact.StateName() + " after " +
                bat_NumberText(contact.travel) + ", not in contact after 5");
    Require(contact.fixed.triangle == 0 && std::abs(contact.fixed.point[1] - 3.25) <= contact.tolerance,
            "two tetrahedra touch at another place");
    question.direction = gsl_Vector(0.0, 0.0, -1.0);
    Require(travel.Find(question).IsClear(), "a tetrahedron that goes away from another meets it");
}

void CheckMemento()
{
    annC_Arrow arrow;
    arrow.endPointX = 0.1;
    arrow.color = "Sky blue";
    omu_PrimTuple values;
    values.Put(-7);
    values.Put(0.1);
    values.Put("text");
    idb_MementoWrite writer;
    writer.Add("arrow", arrow);
    writer.Add("values", values);
    writer.Finish();
    std::vector<unsigned char> bytes = writer.TakeBytes();

    annC_Arrow arrowBack;
    omu_PrimTuple valuesBack;
    idb_MementoRead reader(bytes);
    reader.Root("arrow", arrowBack);
    reader.Root("values", valuesBack);
    Require(arrowBack.endPointX == arrow.endPointX && arrowBack.color == arrow.color && valuesBack == values,
            "what comes out of a memento is not what went in");

    bytes[bytes.size() / 2] ^= 1;
    try
    {
        const idb_MementoRead damaged(bytes);
    }
    catch (const idb_MementoException&)
    {
        return;
    }
    throw std::runtime_error("a damaged memento is not noticed");
}

// The check value of the catalogues of checksums; both ways, over pieces long enough for any way of working.
void CheckChecksum()
{
    constexpr unsigned char DIGITS[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
    std::vector<unsigned char> many(10000);
    for (std::size_t i = 0; i < many.size(); ++i)
        many[i] = static_cast<unsigned char>(i * i >> 3);
    Require(bio_Crc32c(DIGITS) == 0xE3069283u && bio_Crc32cByTable(DIGITS) == 0xE3069283u &&
                bio_Crc32c(many) == bio_Crc32cByTable(many),
            "the checksum is wrong");
}

#ifdef ORVEX_WITH_VIEWER
void CheckPicture()
{
    vwr_Scene scene;
    scene.width = scene.height = 16;
    Require(vwr_Picture::Png(scene).starts_with("\x89PNG") &&
                vwr_Picture::Svg(scene).find("</svg>") != std::string::npos,
            "an empty picture is no picture");
}
#endif

constexpr bat_SelfTest::Check CHECKS[] = {
    {"registration of classes", &CheckRegistration},
    {"contact travel", &CheckTravel},
    {"memento", &CheckMemento},
    {"checksum", &CheckChecksum},
#ifdef ORVEX_WITH_VIEWER
    {"picture", &CheckPicture},
#endif
};
}

std::span<const bat_SelfTest::Check> bat_SelfTest::Checks()
{
    return CHECKS;
}

std::vector<bat_SelfTest::Finding> bat_SelfTest::Run(std::span<const Check> checks)
{
    std::vector<Finding> findings;
    for (const Check& check : checks)
    {
        findings.push_back({check.name, ""});
        try
        {
            check.run();
        }
        catch (const std::exception& error)
        {
            findings.back().fault = error.what();
        }
    }
    return findings;
}
