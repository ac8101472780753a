#pragma once

#include <annC_Anchor.h>

/// A point in model space; the view carries it to the viewport.
class OXU_EXPORT annC_Point3DAnchor : public annC_Anchor
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 8); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_Point3DAnchor() = default;
    annC_Point3DAnchor(double x, double y, double z) : positionX(x), positionY(y), positionZ(z) {}
    explicit annC_Point3DAnchor(const cls_ReadVisitor& reader);

    annC_Point3DAnchor* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    double positionX = 0.0;
    double positionY = 0.0;
    double positionZ = 0.0;

private:
    cls_Uid uid_;
};
