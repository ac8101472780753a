#pragma once

#include <annC_Anchor.h>
#include <annC_Enumerations.h>

/// One of the nine fixed positions on the viewport.
class OXU_EXPORT annC_NamedAnchor : public annC_Anchor
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 4); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_NamedAnchor() = default;
    explicit annC_NamedAnchor(annC_RelativePositionEnm where) : position(where) {}
    explicit annC_NamedAnchor(const cls_ReadVisitor& reader);

    annC_NamedAnchor* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

    annC_RelativePositionEnm position = annC_RelativePositionEnm::BOTTOM_LEFT;

private:
    cls_Uid uid_;
};
