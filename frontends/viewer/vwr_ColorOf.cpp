#include <cow_String.h>
#include <g3d_ColorErrorException.h>
#include <g3d_ColorMap.h>
#include <vwr_Canvas.h>
#include <vwr_ColorOf.h>
#include <vwr_Notes.h>

g3d_Color vwr_ColorOf(vwr_Canvas& canvas, const cow_String& name)
{
    try
    {
        return g3d_ColorMap::Instance().ConstGet(name);
    }
    catch (const g3d_ColorErrorException&)
    {
        canvas.Note(std::string(name.View()) + vwr_Notes::NO_COLOR);
        return g3d_Black;
    }
}
