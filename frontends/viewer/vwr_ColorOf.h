#pragma once

#include <g3d_Color.h>

class cow_String;
class vwr_Canvas;

/// The colour of that name; black, with a note, for a name that g3d_ColorMap does not know, as annotations
/// that another session stored may have.
g3d_Color vwr_ColorOf(vwr_Canvas& canvas, const cow_String& name);
