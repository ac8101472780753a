#pragma once

#include <annC_Anchor.h>
#include <annC_Annotation.h>
#include <annC_Enumerations.h>
#include <cow_String.h>

/// An arrow from one point to another. Each point is an offset from its anchor, in millimetres on the
/// viewport; a gap is the distance left free between an end of the arrow and its point.
///
/// A fresh arrow has a head at its end and none at its start. Colours are names; the annotation client
/// decides which there are.
class OXU_EXPORT annC_Arrow : public annC_Annotation
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 6); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_Arrow();
    explicit annC_Arrow(const cls_ReadVisitor& reader);

    void NewUid() override;
    annC_Arrow* Copy() const override;
    void Translate(double dx, double dy) override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    /// The identity of this part, beside that of its part as an annotation.
    const cls_Uid& Uid() const { return uid_; }

    double startPointX = 0.0;
    double startPointY = 0.0;
    double endPointX = 0.0;
    double endPointY = 0.0;
    annC_AnchorCow startAnchor;
    annC_AnchorCow endAnchor;
    annC_ArrowHeadStyleEnm startHeadStyle = annC_ArrowHeadStyleEnm::NONE;
    annC_ArrowHeadStyleEnm endHeadStyle = annC_ArrowHeadStyleEnm::FILLED_ARROW;
    double startGap = 0.0;
    double endGap = 0.0;
    cow_String color = "White";
    annC_LineStyleEnm lineStyle = annC_LineStyleEnm::SOLID;
    annC_LineThicknessEnm lineThickness = annC_LineThicknessEnm::VERY_THIN;

private:
    cls_Uid uid_;
};
