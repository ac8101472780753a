#pragma once

#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Text.h>
#include <testing/SvgDocument.h>
#include <vwr_Picture.h>
#include <vwr_Scene.h>

#include <string>

/// A viewport of 40 by 20 centimetres less a little, so that positions in tenths of an inch are whole pixels.
struct PictureScene : vwr_Scene
{
    /// A tenth of an inch.
    static constexpr double TENTH = 2.54;
    static constexpr double PIXELS = 9.6;

    PictureScene()
    {
        width = 960;
        height = 480;
        annotations = &held;
    }
    PictureScene(const PictureScene&) = delete;

    void Add(const char* name, const annC_Annotation& annotation) { held.Insert(name, annotation); }
    SvgElement Svg() const { return SvgReader::Read(vwr_Picture::Svg(*this)); }

    annC_AnnotationContainer held;
};

/// From and to in tenths of an inch from the lower left corner.
inline annC_Arrow ArrowOf(double x0, double y0, double x1, double y1)
{
    annC_Arrow arrow;
    arrow.Translate(PictureScene::TENTH * x0, PictureScene::TENTH * y0);
    arrow.endPointX = PictureScene::TENTH * x1;
    arrow.endPointY = PictureScene::TENTH * y1;
    return arrow;
}

inline annC_Text TextOf(double x, double y, const cow_String& words)
{
    annC_Text text;
    text.text = words;
    text.Translate(PictureScene::TENTH * x, PictureScene::TENTH * y);
    return text;
}
