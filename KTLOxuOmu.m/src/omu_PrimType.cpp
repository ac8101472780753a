#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <iterator>
#include <omu_InterfaceObj.h>
#include <omu_PrimType.h>
#include <omu_PrimVisitor.h>
#include <string_view>

namespace
{
constexpr char KIND = 't';
constexpr unsigned LAYOUT_RELEASE = 800;
// By value; the last stands for everything unknown.
constexpr std::string_view NAMES[] = {"Part", "Sketch", "XYPlot", "Stub", "DetailPlot", "Assembly", "None"};
static_assert(std::size(NAMES) == static_cast<std::size_t>(omu_ObjectToDisplayTypeEnm::NONE) + 1);
}

constexpr auto omu_PrimType::Fields()
{
    return cls_Fields(cls_Field{"typeString", &omu_PrimType::m_TypeString});
}

void omu_PrimType::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_PrimType", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_PrimType>::Instance(), omu_Primitive::TypeId()));
}

omu_PrimType::omu_PrimType(const cow_String& typeString) : omu_Primitive(KIND), m_TypeString(typeString) {}

omu_PrimType::omu_PrimType(omu_ObjectToDisplayTypeEnm type) : omu_PrimType(ConverTypeToString(type)) {}

omu_PrimType::omu_PrimType(const omu_InterfaceObj& object) : omu_PrimType(cow_String(object.TypeString())) {}

omu_PrimType::omu_PrimType(const cls_ReadVisitor& reader)
    : omu_Primitive(reader.BaseReader()), m_TypeString("None")
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

bool omu_PrimType::SameType(const omu_InterfaceObj& object) const
{
    return m_TypeString == cow_String(object.TypeString());
}

omu_ObjectToDisplayTypeEnm omu_PrimType::ConverStringToType(const cow_String& typeString)
{
    int value = 0;
    for (const std::string_view name : NAMES)
    {
        if (typeString.View() == name)
            return static_cast<omu_ObjectToDisplayTypeEnm>(value);
        ++value;
    }
    return omu_ObjectToDisplayTypeEnm::NONE;
}

cow_String omu_PrimType::ConverTypeToString(const omu_ObjectToDisplayTypeEnm& type)
{
    const auto value = static_cast<std::size_t>(type);
    return cow_String(value < std::size(NAMES) ? NAMES[value] : std::string_view("None"));
}

atr_String omu_PrimType::TypeString() const
{
    return "type";
}

cow_String omu_PrimType::AsString(int) const
{
    return m_TypeString;
}

bool omu_PrimType::operator==(const omu_Primitive& other) const
{
    const auto* type = dynamic_cast<const omu_PrimType*>(&other);
    return type != nullptr && SameType(*type);
}

void omu_PrimType::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitType(*this);
}

omu_PrimType* omu_PrimType::Copy() const
{
    return new omu_PrimType(*this);
}

unsigned omu_PrimType::DynTypeId() const
{
    return TypeId();
}

void omu_PrimType::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}
