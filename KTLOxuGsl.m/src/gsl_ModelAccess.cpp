#include <gsl_ModelAccess.h>

gsl_ModelAccess::gsl_ModelAccess() = default;

gsl_ModelAccess::~gsl_ModelAccess() = default;

const gsl_ModelAccess* gsl_ModelAccess::Current()
{
    return Exists() ? &Instance() : nullptr;
}

int gsl_ModelAccess::FindOwner(int, int) const
{
    return 0;
}
