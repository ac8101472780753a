#include <vwr_LineLook.h>

#include <algorithm>

double vwr_LineLook::Width(annC_LineThicknessEnm thickness)
{
    switch (thickness)
    {
    case annC_LineThicknessEnm::VERY_THIN:
        return 1.0;
    case annC_LineThicknessEnm::THIN:
        return 2.0;
    case annC_LineThicknessEnm::MEDIUM:
        return 3.0;
    case annC_LineThicknessEnm::THICK:
        return 5.0;
    }
    return 1.0;
}

std::vector<double> vwr_LineLook::Dashes(annC_LineStyleEnm style, double width)
{
    const double dash = 4.0 + 4.0 * width;
    // A dot of one pixel may lie across four of them and all but vanish.
    const double dot = std::max(2.0, width);
    const double space = 2.0 + 2.0 * width;
    switch (style)
    {
    case annC_LineStyleEnm::DASHED:
        return {dash, space};
    case annC_LineStyleEnm::DOTTED:
        return {dot, space};
    case annC_LineStyleEnm::DOT_DASH:
        return {dash, space, dot, space};
    case annC_LineStyleEnm::SOLID:
    case annC_LineStyleEnm::NONE:
        break;
    }
    return {};
}
