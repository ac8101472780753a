#include <annC_ArgumentReader.h>
#include <annC_ArrowIntObj.h>
#include <annC_MemberReaders.h>

namespace
{
const annC_Arrow& ArrowOf(const omu_InterfaceObj& self)
{
    return static_cast<const annC_ArrowIntObj&>(self).ConstGetArrowObj();
}

template <auto MEMBER>
constexpr auto Value = &annC_ReadMember<&ArrowOf, MEMBER>;
template <auto X, auto Y>
constexpr auto Point = &annC_ReadPoint<&ArrowOf, X, Y>;
}

const omu_InterfaceObj::TypeDesc& annC_ArrowIntObj::Type()
{
    using This = annC_ArrowIntObj;
    using Arrow = annC_Arrow;
    static const methodTable METHODS[] = {{"setValues", Method<&This::SetParameters>},
                                          {"translateStartPoint", Method<&This::TranslateStartPoint>},
                                          {"translateEndPoint", Method<&This::TranslateEndPoint>},
                                          {}};
    static const memberTable MEMBERS[] = {{"startPoint", Point<&Arrow::startPointX, &Arrow::startPointY>},
                                          {"endPoint", Point<&Arrow::endPointX, &Arrow::endPointY>},
                                          {"startAnchor", Value<&Arrow::startAnchor>},
                                          {"endAnchor", Value<&Arrow::endAnchor>},
                                          {"startHeadStyle", Value<&Arrow::startHeadStyle>},
                                          {"endHeadStyle", Value<&Arrow::endHeadStyle>},
                                          {"lineStyle", Value<&Arrow::lineStyle>},
                                          {"lineThickness", Value<&Arrow::lineThickness>},
                                          {"startGap", Value<&Arrow::startGap>},
                                          {"endGap", Value<&Arrow::endGap>},
                                          {"color", Value<&Arrow::color>},
                                          {}};
    static const TypeDesc type =
        DescribeType("Arrow", METHODS, MEMBERS, nullptr, nullptr, annC_AnnotationIntObj::Type());
    return type;
}

annC_ArrowIntObj::annC_ArrowIntObj(const omu_Shortcut& shortcut) : annC_AnnotationIntObj(shortcut)
{
    SetTypeDesc(Type());
}

annC_ArrowIntObj* annC_ArrowIntObj::Copy() const
{
    return new annC_ArrowIntObj(*this);
}

void annC_ArrowIntObj::ReadAttributeArguments(omu_Arguments& arguments, annC_Arrow& arrow)
{
    annC_ArgumentReader reader(arguments);
    reader.ReadPoint("startPoint", arrow.startPointX, arrow.startPointY);
    reader.ReadPoint("endPoint", arrow.endPointX, arrow.endPointY);
    reader.ReadAnchor("startAnchor", arrow.startAnchor);
    reader.ReadAnchor("endAnchor", arrow.endAnchor);
    reader.Read("startHeadStyle", arrow.startHeadStyle);
    reader.Read("endHeadStyle", arrow.endHeadStyle);
    reader.Read("lineStyle", arrow.lineStyle);
    reader.Read("lineThickness", arrow.lineThickness);
    reader.Read("startGap", arrow.startGap);
    reader.Read("endGap", arrow.endGap);
    reader.ReadColor("color", arrow.color);
}

omu_Primitive* annC_ArrowIntObj::SetParameters(omu_Arguments& arguments) const
{
    annC_Arrow changed = ConstGetArrowObj();
    arguments.Begin();
    arguments.Optional();
    ReadAttributeArguments(arguments, changed);
    arguments.End();
    Change<annC_Arrow>([&changed](annC_Arrow& arrow) { arrow = changed; });
    return nullptr;
}

omu_Primitive* annC_ArrowIntObj::TranslateStartPoint(omu_Arguments& arguments) const
{
    return TranslatePoint(arguments, &annC_Arrow::startPointX, &annC_Arrow::startPointY);
}

omu_Primitive* annC_ArrowIntObj::TranslateEndPoint(omu_Arguments& arguments) const
{
    return TranslatePoint(arguments, &annC_Arrow::endPointX, &annC_Arrow::endPointY);
}

omu_Primitive* annC_ArrowIntObj::TranslatePoint(omu_Arguments& arguments, double annC_Arrow::*pointX,
                                                double annC_Arrow::*pointY) const
{
    double x = 0.0;
    double y = 0.0;
    GetShift(arguments, x, y);
    Change<annC_Arrow>([&](annC_Arrow& arrow) {
        arrow.*pointX += x;
        arrow.*pointY += y;
    });
    return nullptr;
}
