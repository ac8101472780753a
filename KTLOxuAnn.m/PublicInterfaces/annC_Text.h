#pragma once

#include <annC_Anchor.h>
#include <annC_Annotation.h>
#include <annC_Enumerations.h>
#include <cow_String.h>

/// A block of text, one or more lines. `anchor` is the point on the viewport that it is tied to,
/// `referencePoint` the point of the block that is placed there, the offset displaces it from there, in
/// millimetres on the viewport.
///
/// The font is an X logical font description pattern, kept as it is given. How wide and high a text is
/// depends on who draws it: ask the annotation client. Colours are names; the client decides which there are.
class OXU_EXPORT annC_Text : public annC_Annotation
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 5); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_Text();
    explicit annC_Text(const cls_ReadVisitor& reader);

    void NewUid() override;
    annC_Text* Copy() const override;
    void Translate(double dx, double dy) override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    /// The identity of this part, beside that of its part as an annotation.
    const cls_Uid& Uid() const { return uid_; }

    cow_String text;
    double offsetX = 0.0;
    double offsetY = 0.0;
    annC_AnchorCow anchor;
    annC_AnchorCow referencePoint;
    /// Counter-clockwise, in degrees.
    double rotationAngle = 0.0;
    cow_String font = "-*-helvetica-medium-r-normal-*-*-120-";
    cow_String color = "White";
    annC_BackgroundStyleEnm backgroundStyle = annC_BackgroundStyleEnm::TRANSPARENT;
    cow_String backgroundColor = "Black";
    bool box = false;
    annC_JustificationEnm justification = annC_JustificationEnm::LEFT;

private:
    cls_Uid uid_;
};
