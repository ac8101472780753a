#pragma once

#include <annC_Anchor.h>
#include <annC_AnnotationContainer.h>
#include <memory>
#include <omu_MemberIntObj.h>
#include <omu_PrimWrapper.h>

/// A script's handle on an annotation, type "Annotation": what arrows and texts have in common. Its shortcut
/// is an entry of an annC_ContainerShortcutImpl; container and annotation are looked up at every call.
///
/// Reading posts no change. Methods: moveAfter, moveBefore, bringForward, sendBackward, bringToFront,
/// sendToBack, translate. On an annotation that is gone the moves raise omu_KeyErrorException with its name,
/// as they do with that of a partner that is not there; everything else raises omu_AccessErrorException.
class OXU_EXPORT annC_AnnotationIntObj : public omu_MemberIntObj
{
public:
    static const TypeDesc& Type();

    explicit annC_AnnotationIntObj(const omu_Shortcut& shortcut);

    annC_AnnotationIntObj* Copy() const override;
    bool IsStale() const override;
    omu_Primitive* CallMethod(const char* name, const char* path, omu_Arguments& arguments,
                              bool& found) const override;
    /// Type id of the annotation's class and, as member, its name; null when the annotation is gone.
    const omu_PrimWrapper* ConstGetWrapper() const override;
    /// The entry's identifier in its container; -1 when it is gone.
    int Id() const override;

    /// The key in the container; empty when the shortcut leads to no annotation.
    cow_String Name() const;

    /// An anchor for scripts: the symbolic constant of its position, or a tuple of its two or three
    /// coordinates. The caller owns it; null for an anchor of any other class.
    static omu_Primitive* AnchorToPrim(const annC_Anchor& anchor);

protected:
    /// Null when it is gone.
    std::shared_ptr<annC_AnnotationContainer> Container() const;
    /// The annotation for reading; omu_AccessErrorException when it is gone or of another class.
    template <class T>
    const T& ConstGetObj() const
    {
        const auto* annotation = dynamic_cast<const T*>(Find());
        if (annotation == nullptr)
            RaiseGone();
        return *annotation;
    }
    /// Applies `edit` to the annotation taken for writing, and tells the client.
    template <class T, class F>
    void Change(F edit) const
    {
        static_cast<void>(ConstGetObj<T>());
        edit(dynamic_cast<T&>(Take()));
        TellModified();
    }
    /// The arguments x and y of a translation: floats, each 0 where it is not given.
    static void GetShift(omu_Arguments& arguments, double& x, double& y);

private:
    const annC_Annotation* Find() const;
    annC_Annotation& Take() const;
    void TellModified() const;
    [[noreturn]] void RaiseGone() const;
    /// Raises unless the annotation is there.
    annC_AnnotationContainer& RequireEntry() const;
    void MoveBy(omu_Arguments& arguments,
                bool (annC_AnnotationContainer::*move)(const cow_String& name)) const;
    void MoveTo(omu_Arguments& arguments,
                bool (annC_AnnotationContainer::*move)(const cow_String& name,
                                                       const cow_String& other)) const;

    omu_Primitive* MoveAfter(omu_Arguments& arguments) const;
    omu_Primitive* MoveBefore(omu_Arguments& arguments) const;
    omu_Primitive* BringForward(omu_Arguments& arguments) const;
    omu_Primitive* SendBackward(omu_Arguments& arguments) const;
    omu_Primitive* BringToFront(omu_Arguments& arguments) const;
    omu_Primitive* SendToBack(omu_Arguments& arguments) const;
    omu_Primitive* Translate(omu_Arguments& arguments) const;

    mutable omu_PrimWrapper wrapper_;
};
