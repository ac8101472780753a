#pragma once

#include <annC_AnnotationIntObj.h>
#include <annC_Text.h>

/// A script's handle on a text, type "Text". Members, read-only: text, offset, anchor, referencePoint,
/// rotationAngle, font, color, backgroundColor, backgroundStyle, justification, box, and width and height,
/// which the annotation client measures. Methods: those of annotations, setValues.
class OXU_EXPORT annC_TextIntObj : public annC_AnnotationIntObj
{
public:
    using Object = annC_Text;

    static const TypeDesc& Type();

    explicit annC_TextIntObj(const omu_Shortcut& shortcut);

    annC_TextIntObj* Copy() const override;

    /// The text for reading; omu_AccessErrorException when it is gone.
    const annC_Text& ConstGetTextObj() const { return ConstGetObj<annC_Text>(); }

    /// Reads what members are stored as arguments, by keyword or in their order; call it after Optional. What
    /// is not given stays as it is. The annotation client may refuse a colour by an exception of its own.
    static void ReadAttributeArguments(omu_Arguments& arguments, annC_Text& text);

private:
    omu_Primitive* SetParameters(omu_Arguments& arguments) const;
};
