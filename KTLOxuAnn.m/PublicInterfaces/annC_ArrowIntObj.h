#pragma once

#include <annC_AnnotationIntObj.h>
#include <annC_Arrow.h>

/// A script's handle on an arrow, type "Arrow". Members, read-only: startPoint, endPoint, startAnchor,
/// endAnchor, startHeadStyle, endHeadStyle, lineStyle, lineThickness, startGap, endGap, color. Methods: those
/// of annotations, setValues, translateStartPoint, translateEndPoint.
class OXU_EXPORT annC_ArrowIntObj : public annC_AnnotationIntObj
{
public:
    using Object = annC_Arrow;

    static const TypeDesc& Type();

    explicit annC_ArrowIntObj(const omu_Shortcut& shortcut);

    annC_ArrowIntObj* Copy() const override;

    /// The arrow for reading; omu_AccessErrorException when it is gone.
    const annC_Arrow& ConstGetArrowObj() const { return ConstGetObj<annC_Arrow>(); }

    /// Reads what members there are as arguments, by keyword or in their order; call it after Optional. What
    /// is not given stays as it is. The annotation client may refuse a colour by an exception of its own.
    static void ReadAttributeArguments(omu_Arguments& arguments, annC_Arrow& arrow);

private:
    omu_Primitive* SetParameters(omu_Arguments& arguments) const;
    omu_Primitive* TranslateStartPoint(omu_Arguments& arguments) const;
    omu_Primitive* TranslateEndPoint(omu_Arguments& arguments) const;
    omu_Primitive* TranslatePoint(omu_Arguments& arguments, double annC_Arrow::*pointX,
                                  double annC_Arrow::*pointY) const;
};
