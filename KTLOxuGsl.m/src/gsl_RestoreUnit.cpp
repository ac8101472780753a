#include <cmath>
#include <gsl_PersistentVector.h>
#include <gsl_RestoreUnit.h>
#include <gsl_Util.h>

bool gsl_RestoreUnit(gsl_PersistentVector& vector)
{
    if (std::abs(vector.Vector().Magnitude() - 1.0) <= gsl_Util::Instance().LinearTolerance())
    {
        return true;
    }
    gsl_Vector unit = vector.Vector();
    // Not-a-number and infinity pass the test of Normalize, but have no direction either.
    const bool good = std::isfinite(unit.Magnitude()) && unit.Normalize();
    vector.SetVector(good ? unit : gsl_Vector());
    return good;
}
