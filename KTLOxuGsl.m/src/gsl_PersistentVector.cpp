#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <cmath>
#include <gsl_PersistentVector.h>
#include <gsl_Point.h>
#include <gsl_Util.h>
#include <gsl_utils.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 203;
}

constexpr auto gsl_PersistentVector::Fields()
{
    return cls_Fields(cls_Field{"x", &gsl_Vector::x_}, cls_Field{"y", &gsl_Vector::y_},
                      cls_Field{"z", &gsl_Vector::z_}, cls_Field{"_magnitude", &gsl_Vector::magnitude_});
}

void gsl_PersistentVector::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("gsl_Vector", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<gsl_PersistentVector>::Instance(),
                                      gsl_Point::TypeId()));
}

gsl_PersistentVector::gsl_PersistentVector(const cls_ReadVisitor& reader)
{
    vector_.magnitude_ = -1.0;
    Fields().Read(reader, vector_);
    const double stored = vector_.magnitude_;
    vector_.ComputeMagnitude();
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
    if (writer.AnnounceValue(TypeId()))
    {
        Fields().Write(writer, vector_);
    }
}
