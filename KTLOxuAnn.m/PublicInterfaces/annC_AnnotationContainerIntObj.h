#pragma once

#include <annC_AnnotationContainer.h>
#include <memory>
#include <omu_DictIntObjABC.h>

class annC_AnnotationIntObj;

/// A script's handle on a model's annotations: a dictionary by name, in stacking order, the first in front.
/// Its shortcut is an annC_ContainerShortcutImpl. Entries come from the constructor commands; assigning to
/// one does nothing.
class OXU_EXPORT annC_AnnotationContainerIntObj : public omu_DictIntObjABC<cow_String>
{
public:
    explicit annC_AnnotationContainerIntObj(const omu_Shortcut& shortcut);

    annC_AnnotationContainerIntObj* Copy() const override;
    bool IsStale() const override;
    int Length() const override;
    cow_List<cow_String> Keys() const override;
    omu_Primitive* Subscript(const cow_String& key) const override;
    bool HasKey(const cow_String& key) const override;
    void Assign(const cow_String& key, const omu_Primitive& value) const override;
    /// Tells the annotation client when something was removed.
    void Remove(const cow_String& key) const override;
    /// Replaces an annotation that is called `to`, which the client is told first; omu_KeyErrorException when
    /// there is no `from`.
    void ChangeKey(const cow_String& from, const cow_String& to) const override;
    /// A line for each annotation, its name and its type word, from front to back; "Empty Summary" when there
    /// is none.
    omu_Primitive* Summary() const override;

    /// A handle on an annotation, by its class; the caller owns it. Null when there is none.
    annC_AnnotationIntObj* GetIntObj(const cow_String& key) const;

    // The constructor commands: the argument "name", then those of setValues. The new annotation lies in
    // front; one of that name goes, and the client is told. They return a handle, which the caller owns.

    annC_AnnotationIntObj* Arrow(omu_Arguments& arguments) const;
    annC_AnnotationIntObj* Text(omu_Arguments& arguments) const;

    /// What scripts call the class of an annotation: "Text" and "Arrow", translated, or "UNKNOWN TYPE".
    static cow_String annTypeName(const annC_Annotation& annotation);

private:
    /// omu_AccessErrorException when it is gone.
    std::shared_ptr<annC_AnnotationContainer> Container() const;
    void TellDeleted(int id) const;
    template <class Handle>
    annC_AnnotationIntObj* Construct(omu_Arguments& arguments) const;
};
