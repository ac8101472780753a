#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <gsl_PersistentMatrix.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { IS_IDENTITY, VALUES };
constexpr cls_FieldHandle FIELDS[] = {{IS_IDENTITY, "_is_identity"}, {VALUES, "DDBmatrix"}};
constexpr unsigned LAYOUT_RELEASE = 203;
constexpr int ORDER = 4;
}

void gsl_PersistentMatrix::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("gsl_Matrix", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<gsl_PersistentMatrix>::Instance(), cls_UniversalRoot);
    meta.AddAttribute(FIELDS[IS_IDENTITY], cls_AttributeType::BOOL, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[VALUES], cls_AttributeType::OBJECT, cls_ListTypeId,
                      cls_CollectionType::LIST_DOUBLE);
}

gsl_PersistentMatrix::gsl_PersistentMatrix(const cls_ReadVisitor& reader)
{
    bool isIdentity = true;
    cow_List<double> values;
    reader.ReadBool(FIELDS[IS_IDENTITY], isIdentity);
    // The values speak for themselves; a flag that contradicts them, or a list of another length, leaves the
    // identity.
    if (!isIdentity && reader.ReadList(FIELDS[VALUES], values) && values.Length() == ORDER * ORDER)
    {
        matrix_.FromArray(values.Data());
    }
}

void gsl_PersistentMatrix::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.AnnounceValue(TypeId()))
    {
        return;
    }
    writer.WriteBool(FIELDS[IS_IDENTITY], matrix_.IsIdentity());
    if (!matrix_.IsIdentity())
    {
        double values[ORDER * ORDER];
        matrix_.AsArray(values);
        writer.WriteList(FIELDS[VALUES], values, ORDER * ORDER, ORDER);
    }
}
