#pragma once

#include <annC_AnnotationClient.h>

/// The annotation client of whoever draws with vwr_Picture: construct one and keep it.
class vwr_AnnotationClient : public annC_AnnotationClient
{
public:
    /// Raises g3d_ColorErrorException for a name that g3d_ColorMap does not know.
    void VerifyColorValue(const cow_String& color) override;
    /// Extent of the text's block, unturned, in millimetres as drawn: with the margin of a box or background.
    double GetWidth(const annC_Text& text) override;
    double GetHeight(const annC_Text& text) override;
};
