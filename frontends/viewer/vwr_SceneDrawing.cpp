#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_Text.h>
#include <vwr_ArrowDrawing.h>
#include <vwr_Canvas.h>
#include <vwr_Image.h>
#include <vwr_MeshRaster.h>
#include <vwr_Notes.h>
#include <vwr_Scene.h>
#include <vwr_SceneDrawing.h>
#include <vwr_TextDrawing.h>
#include <vwr_Viewport.h>

void vwr_DrawScene(vwr_Canvas& canvas, const vwr_Scene& scene, vwr_TextMeasure& measure)
{
    const vwr_Viewport viewport(scene);
    canvas.Background(scene.background);
    if (!scene.parts.empty())
        canvas.Image(vwr_MeshRaster(scene, viewport).Draw());
    if (scene.annotations == nullptr)
        return;
    const cow_List<cow_String> names = scene.annotations->Keys();
    for (int i = names.Length(); i-- > 0;)
    {
        const annC_Annotation* const annotation = scene.annotations->ConstGet(names[i]);
        if (const auto* arrow = dynamic_cast<const annC_Arrow*>(annotation))
        {
            canvas.Begin("arrow", names[i].View());
            vwr_DrawArrow(canvas, viewport, *arrow);
        }
        else if (const auto* text = dynamic_cast<const annC_Text*>(annotation))
        {
            canvas.Begin("text", names[i].View());
            vwr_DrawText(canvas, viewport, *text, measure, scene.background);
        }
        else
        {
            canvas.Begin("annotation", names[i].View());
            canvas.Note(vwr_Notes::OTHER_KIND);
        }
        canvas.End();
    }
}
