#include <annC_Enumerations.h>

template <>
const omu_EnumEntry omu_PrimEnum<annC_RelativePositionEnm, 1>::table[] = {
    {"BOTTOM_LEFT", int(annC_RelativePositionEnm::BOTTOM_LEFT)},
    {"BOTTOM_CENTER", int(annC_RelativePositionEnm::BOTTOM_CENTER)},
    {"BOTTOM_RIGHT", int(annC_RelativePositionEnm::BOTTOM_RIGHT)},
    {"CENTER_LEFT", int(annC_RelativePositionEnm::CENTER_LEFT)},
    {"CENTER", int(annC_RelativePositionEnm::CENTER)},
    {"CENTER_RIGHT", int(annC_RelativePositionEnm::CENTER_RIGHT)},
    {"TOP_LEFT", int(annC_RelativePositionEnm::TOP_LEFT)},
    {"TOP_CENTER", int(annC_RelativePositionEnm::TOP_CENTER)},
    {"TOP_RIGHT", int(annC_RelativePositionEnm::TOP_RIGHT)},
    {nullptr, 0},
};

template <>
const omu_EnumEntry omu_PrimEnum<annC_ArrowHeadStyleEnm, 1>::table[] = {
    {"ARROW", int(annC_ArrowHeadStyleEnm::ARROW)},
    {"FILLED_ARROW", int(annC_ArrowHeadStyleEnm::FILLED_ARROW)},
    {"HOLLOW_CIRCLE", int(annC_ArrowHeadStyleEnm::HOLLOW_CIRCLE)},
    {"FILLED_CIRCLE", int(annC_ArrowHeadStyleEnm::FILLED_CIRCLE)},
    {"HOLLOW_DIAMOND", int(annC_ArrowHeadStyleEnm::HOLLOW_DIAMOND)},
    {"FILLED_DIAMOND", int(annC_ArrowHeadStyleEnm::FILLED_DIAMOND)},
    {"HOLLOW_SQUARE", int(annC_ArrowHeadStyleEnm::HOLLOW_SQUARE)},
    {"FILLED_SQUARE", int(annC_ArrowHeadStyleEnm::FILLED_SQUARE)},
    {"NONE", int(annC_ArrowHeadStyleEnm::NONE)},
    {nullptr, 0},
};

template <>
const omu_EnumEntry omu_PrimEnum<annC_LineThicknessEnm, 1>::table[] = {
    {"VERY_THIN", int(annC_LineThicknessEnm::VERY_THIN)},
    {"THIN", int(annC_LineThicknessEnm::THIN)},
    {"MEDIUM", int(annC_LineThicknessEnm::MEDIUM)},
    {"THICK", int(annC_LineThicknessEnm::THICK)},
    {nullptr, 0},
};

template <>
const omu_EnumEntry omu_PrimEnum<annC_LineStyleEnm, 1>::table[] = {
    {"SOLID", int(annC_LineStyleEnm::SOLID)},   {"DASHED", int(annC_LineStyleEnm::DASHED)},
    {"DOTTED", int(annC_LineStyleEnm::DOTTED)}, {"DOT_DASH", int(annC_LineStyleEnm::DOT_DASH)},
    {"NONE", int(annC_LineStyleEnm::NONE)},     {nullptr, 0},
};

template <>
const omu_EnumEntry omu_PrimEnum<annC_BackgroundStyleEnm, 1>::table[] = {
    {"TRANSPARENT", int(annC_BackgroundStyleEnm::TRANSPARENT)},
    {"MATCH", int(annC_BackgroundStyleEnm::MATCH)},
    {"OTHER", int(annC_BackgroundStyleEnm::OTHER)},
    {nullptr, 0},
};

template <>
const omu_EnumEntry omu_PrimEnum<annC_JustificationEnm, 1>::table[] = {
    {"LEFT", int(annC_JustificationEnm::LEFT)},
    {"CENTER", int(annC_JustificationEnm::CENTER)},
    {"RIGHT", int(annC_JustificationEnm::RIGHT)},
    {nullptr, 0},
};
