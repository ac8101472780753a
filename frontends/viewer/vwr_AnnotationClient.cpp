#include <g3d_ColorMap.h>
#include <vwr_AnnotationClient.h>
#include <vwr_TextBlock.h>
#include <vwr_TextMeasure.h>
#include <vwr_Viewport.h>

void vwr_AnnotationClient::VerifyColorValue(const cow_String& color)
{
    static_cast<void>(g3d_ColorMap::Instance().ConstGet(color));
}

double vwr_AnnotationClient::GetWidth(const annC_Text& text)
{
    vwr_TextMeasure measure;
    return vwr_TextBlock(text, measure).Width() / vwr_Viewport::PIXELS_PER_MM;
}

double vwr_AnnotationClient::GetHeight(const annC_Text& text)
{
    vwr_TextMeasure measure;
    return vwr_TextBlock(text, measure).Height() / vwr_Viewport::PIXELS_PER_MM;
}
