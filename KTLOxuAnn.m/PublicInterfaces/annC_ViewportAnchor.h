#pragma once

#include <annC_Anchor.h>

/// A point in viewport coordinates: per cent of the viewport's width and height, from its lower left corner.
class OXU_EXPORT annC_ViewportAnchor : public annC_Anchor
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 7); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_ViewportAnchor() = default;
    annC_ViewportAnchor(double x, double y) : positionX(x), positionY(y) {}
    explicit annC_ViewportAnchor(const cls_ReadVisitor& reader);

    annC_ViewportAnchor* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    double positionX = 0.0;
    double positionY = 0.0;

private:
    cls_Uid uid_;
};
