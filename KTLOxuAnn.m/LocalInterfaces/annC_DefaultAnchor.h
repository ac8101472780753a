#pragma once

#include <annC_NamedAnchor.h>

/// A new anchor at BOTTOM_LEFT, as annotations start with.
inline annC_AnchorCow annC_DefaultAnchor()
{
    return annC_AnchorCow(new annC_NamedAnchor);
}
/// An anchor that a memento left null, against its writer's rules, becomes the default one.
inline void annC_RequireAnchor(annC_AnchorCow& anchor)
{
    if (anchor.IsNull())
        anchor = annC_DefaultAnchor();
}
