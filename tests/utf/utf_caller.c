#include <math.h>
#include <utf_Routines.h>

double utf_ApartFromC(const double* tensor);
void utf_BreakFromC(double* q);

/* Principal values and axes of six components, and the tensor that they make: how far it is from the first.
 */
double utf_ApartFromC(const double* tensor)
{
    const int plain = 0, three = 3, six = 6;
    const int at[6] = {0, 4, 8, 3, 6, 7};
    double out[7], scalarFirst[4], diagonal[6] = {0}, full[9], apart = 0;
    utf_calprinquat_(tensor, out, &plain, &plain, &three, &three);
    for (int i = 0; i < 3; ++i)
    {
        diagonal[i] = out[i];
        scalarFirst[i + 1] = out[i + 3];
    }
    scalarFirst[0] = out[6];
    utf_quatrot_(diagonal, scalarFirst, full, &six);
    for (int i = 0; i < 6; ++i)
    {
        apart = fmax(apart, fabs(full[at[i]] - tensor[i]));
    }
    return apart;
}

void utf_BreakFromC(double* q)
{
    const double broken[9] = {-INFINITY, 0, 0, 0, -INFINITY, 0, 0, 0, -INFINITY};
    const int order = 0;
    utf_calquat_(q, broken, &order);
}
