#include <gsl_Util.h>
#include <nex_Raise.h>
#include <omi_gettimecounter.h>

gsl_Util::gsl_Util() : creationTime(omi_gettimecounter()) {}

double gsl_Util::AngleStep(int step) const
{
    switch (step)
    {
    case 1:
        return angleStep1;
    case 2:
        return angleStep2;
    case 3:
        return angleStep3;
    case 4:
        return angleStep4;
    case 5:
        return angleStep5;
    default:
        nex_RaiseRange(step, 5, "KTLOxuGsl.m/src/gsl_Util", __LINE__);
    }
}
