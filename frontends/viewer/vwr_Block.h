#pragma once

#include <annC_Enumerations.h>

class annC_Anchor;

/// Places in a rectangle, the viewport's or a text block's.
namespace vwr_Block
{
/// Parts of the width and height, from the lower left corner.
struct Fraction
{
    double right = 0.0;
    double up = 0.0;
};

/// One of the nine named positions.
Fraction Of(annC_RelativePositionEnm position);
/// The place of a text block that its reference point names: a named position, or per cent of the block's
/// width and height, which may lie outside, for a viewport point. A 3D point says nothing about a block: it
/// is the lower left corner, as is no anchor.
Fraction Of(const annC_Anchor* referencePoint);
}
