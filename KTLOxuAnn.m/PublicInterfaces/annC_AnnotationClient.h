#pragma once

#include <cow_String.h>
#include <omi_Singleton.h>
#include <oxu_Export.h>

class annC_Text;

/// The hook of a front end that shows annotations: it says which colours there are, measures texts, and hears
/// of edits that scripts make. A front end derives from it and constructs an object, which then is the
/// instance until it is destroyed or another one is constructed; the front end owns it. Without one,
/// Instance() makes a default client, which accepts every colour and measures nothing, and lives until the
/// module stops.
class OXU_EXPORT annC_AnnotationClient : public omi_Singleton<annC_AnnotationClient>
{
public:
    annC_AnnotationClient();
    virtual ~annC_AnnotationClient();

    /// An annotation is gone; `path` is its container's, `id` the identifier that the entry had.
    virtual void AnnotationDeleted(const cow_String& path, unsigned id);
    /// An annotation has other contents; `path` is its own.
    virtual void AnnotationModified(const cow_String& path, unsigned id);
    /// Raises an error of the front end's choice for a name that is no colour.
    virtual void VerifyColorValue(const cow_String& color);
    /// Extent of the text as it is drawn, in millimetres on the viewport, without its rotation.
    virtual double GetWidth(const annC_Text& text);
    virtual double GetHeight(const annC_Text& text);
};
