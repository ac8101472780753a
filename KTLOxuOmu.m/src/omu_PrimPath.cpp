#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'p';
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto omu_PrimPath::Fields()
{
    return cls_Fields(cls_Field{"context", &omu_PrimPath::m_Context},
                      cls_Field{"contextType", &omu_PrimPath::m_ContextType});
}

void omu_PrimPath::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_PrimPath", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_PrimPath>::Instance(), omu_Primitive::TypeId()));
}

omu_PrimPath::omu_PrimPath(const cow_String& file) : omu_PrimPath(cow_List<cow_String>({file}), FILE_PATH) {}

omu_PrimPath::omu_PrimPath(const cow_List<cow_String>& context, int contextType)
    : omu_Primitive(KIND), m_Context(context), m_ContextType(contextType)
{}

omu_PrimPath::omu_PrimPath(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

cow_String omu_PrimPath::PathText() const
{
    if (m_Context.IsEmpty())
        return {};
    cow_String text = m_Context.Get(0);
    if (m_ContextType == OBJECT_PATH)
        for (int i = 1; i < m_Context.Length(); ++i)
            text += "." + m_Context.Get(i);
    return text;
}

atr_String omu_PrimPath::TypeString() const
{
    return "path";
}

cow_String omu_PrimPath::AsString(int) const
{
    return omu_PrimString::Quoted(PathText());
}

bool omu_PrimPath::operator==(const omu_Primitive& other) const
{
    const auto* path = dynamic_cast<const omu_PrimPath*>(&other);
    return path != nullptr && m_ContextType == path->m_ContextType && m_Context == path->m_Context;
}

void omu_PrimPath::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitPath(*this);
}

omu_PrimPath* omu_PrimPath::Copy() const
{
    return new omu_PrimPath(*this);
}

unsigned omu_PrimPath::DynTypeId() const
{
    return TypeId();
}

void omu_PrimPath::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}
