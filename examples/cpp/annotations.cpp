// Annotations of a viewport: a container in stacking order that posts every change.
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
#include <iostream>
#include <omu_ChangeHistory.h>

int main()
{
    annC_Text label;
    label.text = "contact here";
    label.anchor = annC_AnchorCow(annC_ViewportAnchor(30, 20)); // per cent of the viewport
    annC_Arrow arrow;
    arrow.endPointX = 60; // millimetres from the anchor
    arrow.endPointY = 40;
    arrow.color = "Red";

    omu_ChangeHistory& history = thr_ThreadSingleton<omu_ChangeHistory>::Instance();
    const long long seen = history.NextMark();
    annC_AnnotationContainer annotations;
    annotations.Insert("label", label);
    annotations.Insert("arrow", arrow); // in front of all
    annotations.BringToFront("label");
    annotations.Get("arrow")->Translate(5, 0); // for writing; ConstGet reads
    annotations.ChangeKey("arrow", "pointer");

    for (const cow_String& name : annotations.Keys())
        std::cout << annotations.IndexOf(name) << ' ' << name.View() << '\n';
    for (const omu_PrimTuple& change : history.Since(seen))
        std::cout << change.AsRepr().View() << '\n';
}
