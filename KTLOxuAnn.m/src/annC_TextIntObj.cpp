#include <annC_AnnotationClient.h>
#include <annC_ArgumentReader.h>
#include <annC_MemberReaders.h>
#include <annC_TextIntObj.h>

namespace
{
const annC_Text& TextOf(const omu_InterfaceObj& self)
{
    return static_cast<const annC_TextIntObj&>(self).ConstGetTextObj();
}

template <auto MEMBER>
constexpr auto Value = &annC_ReadMember<&TextOf, MEMBER>;

template <double (annC_AnnotationClient::*MEASURE)(const annC_Text&)>
omu_Primitive* Extent(const omu_InterfaceObj& self)
{
    return new omu_PrimNumber((annC_AnnotationClient::Instance().*MEASURE)(TextOf(self)));
}
}

const omu_InterfaceObj::TypeDesc& annC_TextIntObj::Type()
{
    using Text = annC_Text;
    static const methodTable METHODS[] = {{"setValues", Method<&annC_TextIntObj::SetParameters>}, {}};
    static const memberTable MEMBERS[] = {
        {"text", Value<&Text::text>},
        {"offset", &annC_ReadPoint<&TextOf, &Text::offsetX, &Text::offsetY>},
        {"anchor", Value<&Text::anchor>},
        {"referencePoint", Value<&Text::referencePoint>},
        {"rotationAngle", Value<&Text::rotationAngle>},
        {"font", Value<&Text::font>},
        {"color", Value<&Text::color>},
        {"backgroundColor", Value<&Text::backgroundColor>},
        {"backgroundStyle", Value<&Text::backgroundStyle>},
        {"justification", Value<&Text::justification>},
        {"box", Value<&Text::box>},
        {"width", &Extent<&annC_AnnotationClient::GetWidth>},
        {"height", &Extent<&annC_AnnotationClient::GetHeight>},
        {}};
    static const TypeDesc type =
        DescribeType("Text", METHODS, MEMBERS, nullptr, nullptr, annC_AnnotationIntObj::Type());
    return type;
}

annC_TextIntObj::annC_TextIntObj(const omu_Shortcut& shortcut) : annC_AnnotationIntObj(shortcut)
{
    SetTypeDesc(Type());
}

annC_TextIntObj* annC_TextIntObj::Copy() const
{
    return new annC_TextIntObj(*this);
}

void annC_TextIntObj::ReadAttributeArguments(omu_Arguments& arguments, annC_Text& text)
{
    annC_ArgumentReader reader(arguments);
    reader.Read("text", text.text);
    reader.ReadPoint("offset", text.offsetX, text.offsetY);
    reader.ReadAnchor("anchor", text.anchor);
    reader.ReadAnchor("referencePoint", text.referencePoint);
    reader.Read("rotationAngle", text.rotationAngle);
    reader.Read("font", text.font);
    reader.ReadColor("color", text.color);
    reader.ReadColor("backgroundColor", text.backgroundColor);
    reader.Read("backgroundStyle", text.backgroundStyle);
    reader.Read("justification", text.justification);
    reader.Read("box", text.box);
}

omu_Primitive* annC_TextIntObj::SetParameters(omu_Arguments& arguments) const
{
    annC_Text changed = ConstGetTextObj();
    arguments.Begin();
    arguments.Optional();
    ReadAttributeArguments(arguments, changed);
    arguments.End();
    Change<annC_Text>([&changed](annC_Text& text) { text = changed; });
    return nullptr;
}
