#pragma once

#include <vwr_Paint.h>
#include <vwr_Spot.h>

#include <span>
#include <string_view>

struct vwr_Image;
struct vwr_TextRun;

/// What pictures are drawn on; one class a format. Shapes come from the rearmost to the front, those of an
/// annotation between its Begin and its End. `part` says what of the annotation a shape is ("line", "head",
/// "box"), for formats that keep it.
class vwr_Canvas
{
public:
    virtual ~vwr_Canvas();

    virtual void Background(const g3d_Color& color) = 0;
    /// An image of the whole picture.
    virtual void Image(const vwr_Image& image) = 0;
    virtual void Begin(const char* kind, std::string_view name) = 0;
    /// Something to know about the annotation that was begun, before its shapes; for formats that keep it.
    virtual void Note(std::string_view sentence) = 0;
    /// At least two spots, joined; closed ones back to the first.
    virtual void Lines(const char* part, std::span<const vwr_Spot> spots, bool closed,
                       const vwr_Paint& paint) = 0;
    virtual void Circle(const char* part, vwr_Spot centre, double radius, const vwr_Paint& paint) = 0;
    virtual void Text(const vwr_TextRun& run) = 0;
    virtual void End() = 0;
};
