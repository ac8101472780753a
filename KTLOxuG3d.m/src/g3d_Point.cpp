#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <g3d_Point.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { FIELD_X, FIELD_Y, FIELD_Z };
constexpr cls_FieldHandle FIELDS[] = {{FIELD_X, "x"}, {FIELD_Y, "y"}, {FIELD_Z, "z"}};
constexpr unsigned LAYOUT_RELEASE = 203;
}

void g3d_Point::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("g3d_Point", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<g3d_Point>::Instance(), cls_UniversalRoot);
    for (const cls_FieldHandle& field : FIELDS)
        meta.AddAttribute(field, cls_AttributeType::FLOAT, cls_UniversalRoot, cls_CollectionType::SINGLE);
    meta.AddDtor(&g3d_Point::CowDtor);
}

void g3d_Point::CowDtor(void* body)
{
    delete static_cast<g3d_Point*>(body);
}

g3d_Point::g3d_Point(const cls_ReadVisitor& reader)
{
    reader.ReadFloat(FIELDS[FIELD_X], x_);
    reader.ReadFloat(FIELDS[FIELD_Y], y_);
    reader.ReadFloat(FIELDS[FIELD_Z], z_);
}

void g3d_Point::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.AnnounceValue(TypeId()))
        return;
    writer.WriteFloat(FIELDS[FIELD_X], x_);
    writer.WriteFloat(FIELDS[FIELD_Y], y_);
    writer.WriteFloat(FIELDS[FIELD_Z], z_);
}
