#include <KTLBasException.h>
#include <cctype>
#include <scr_ExceptionFields.h>
#include <scr_Text.h>
#include <string>
#include <string_view>

namespace py = pybind11;

bool scr_ExceptionFields::Announce(unsigned typeId, const cls_Uid&) const
{
    return typeId != KTLBasException::TypeId();
}

void scr_ExceptionFields::WriteBool(const cls_FieldHandle& field, bool value) const
{
    Set(field, py::bool_(value));
}

void scr_ExceptionFields::WriteChar(const cls_FieldHandle& field, char value) const
{
    Set(field, scr_Text::ToPython(cow_String(&value, 1)));
}

void scr_ExceptionFields::WriteInt(const cls_FieldHandle& field, int value) const
{
    Set(field, py::int_(value));
}

void scr_ExceptionFields::WriteFloat(const cls_FieldHandle& field, float value) const
{
    Set(field, py::float_(value));
}

void scr_ExceptionFields::WriteDouble(const cls_FieldHandle& field, double value) const
{
    Set(field, py::float_(value));
}

void scr_ExceptionFields::WriteString(const cls_FieldHandle& field, const cow_String& value) const
{
    Set(field, scr_Text::ToPython(value));
}

void scr_ExceptionFields::WriteMessage(const cls_FieldHandle& field, const atr_String& value) const
{
    Set(field, scr_Text::ToPython(value.AsString()));
}

void scr_ExceptionFields::WriteEnum(const cls_FieldHandle& field, const cow_String& name) const
{
    Set(field, scr_Text::ToPython(name));
}

void scr_ExceptionFields::Set(const cls_FieldHandle& field, const py::object& value) const
{
    constexpr std::string_view PREFIX = "m_";
    std::string name = field.name;
    if (name.starts_with(PREFIX))
        name.erase(0, PREFIX.size());
    if (name.empty())
        return;
    name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
    py::setattr(target_, name.c_str(), value);
}
