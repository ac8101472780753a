#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <cmath>
#include <gsl_PersistentVector.h>
#include <gsl_Point.h>
#include <gsl_Util.h>
#include <gsl_utils.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { FIELD_X, FIELD_Y, FIELD_Z, FIELD_MAGNITUDE };
constexpr cls_FieldHandle FIELDS[] = {
    {FIELD_X, "x"}, {FIELD_Y, "y"}, {FIELD_Z, "z"}, {FIELD_MAGNITUDE, "_magnitude"}};
constexpr unsigned LAYOUT_RELEASE = 203;
}

void gsl_PersistentVector::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("gsl_Vector", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<gsl_PersistentVector>::Instance(), gsl_Point::TypeId());
    for (const cls_FieldHandle& field : FIELDS)
    {
        meta.AddAttribute(field, cls_AttributeType::DOUBLE, cls_UniversalRoot, cls_CollectionType::SINGLE);
    }
}

gsl_PersistentVector::gsl_PersistentVector(const cls_ReadVisitor& reader)
{
    reader.ReadDouble(FIELDS[FIELD_X], vector_.x_);
    reader.ReadDouble(FIELDS[FIELD_Y], vector_.y_);
    reader.ReadDouble(FIELDS[FIELD_Z], vector_.z_);
    vector_.ComputeMagnitude();
    double stored = -1.0;
    reader.ReadDouble(FIELDS[FIELD_MAGNITUDE], stored);
    // A unit vector's length is stored as exactly 1, which its components may miss by rounding.
    if (stored < 0.0)
    {
        vector_.magnitude_ = -1.0;
    }
    else if (gsl_RealRelEqual(stored, vector_.magnitude_, gsl_Util::Instance().LinearTolerance()) &&
             std::isfinite(stored))
    {
        vector_.magnitude_ = stored;
    }
}

void gsl_PersistentVector::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.AnnounceValue(TypeId()))
    {
        return;
    }
    writer.WriteDouble(FIELDS[FIELD_X], vector_.x_);
    writer.WriteDouble(FIELDS[FIELD_Y], vector_.y_);
    writer.WriteDouble(FIELDS[FIELD_Z], vector_.z_);
    writer.WriteDouble(FIELDS[FIELD_MAGNITUDE], vector_.magnitude_);
}
