#include <annC_NamedAnchor.h>
#include <annC_ViewportAnchor.h>
#include <vwr_Block.h>

vwr_Block::Fraction vwr_Block::Of(annC_RelativePositionEnm position)
{
    // The values run from left to right, row by row from the bottom.
    const int value = static_cast<int>(position);
    if (value < 0 || value > static_cast<int>(annC_RelativePositionEnm::TOP_RIGHT))
        return {};
    const int row = value / 3;
    const int column = value % 3;
    return {0.5 * column, 0.5 * row};
}

vwr_Block::Fraction vwr_Block::Of(const annC_Anchor* referencePoint)
{
    if (const auto* named = dynamic_cast<const annC_NamedAnchor*>(referencePoint))
        return Of(named->position);
    if (const auto* given = dynamic_cast<const annC_ViewportAnchor*>(referencePoint))
        return {given->positionX / 100.0, given->positionY / 100.0};
    return {};
}
