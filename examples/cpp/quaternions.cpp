// Rotations as quaternions, and the principal values of a stress tensor.
#include <cmath>
#include <iomanip>
#include <iostream>
#include <utf_Quaternion.h>
#include <utf_Routines.h>

int main()
{
    std::cout << std::fixed << std::setprecision(4);

    const double half = std::acos(-1.0) / 4;
    const double aboutZ[] = {0, 0, std::sin(half), std::cos(half)}; // a quarter turn: (x, y, z, w)
    const utf_Quaternion<double> turn(res_DataTypeEnm::QUATERNION_3D, aboutZ);
    const utf_Quaternion<double> twice = turn.mult(turn);
    std::cout << "the X axis goes to (" << turn.R11() << ", " << turn.R12() << ", " << turn.R13() << ")\n";
    std::cout << "two turns are " << twice.toVector().Get(2) << " radians about z\n";

    const double stress[] = {50, 50, 10, 30, 0, 0}; // s11, s22, s33, s12, s13, s23
    const int mode = 1, direct = 3, shears = 3;
    double values[3], directions[9];
    utf_sprind_(stress, values, directions, &mode, &direct, &shears);
    for (int k = 0; k < 3; ++k)
        std::cout << values[k] << " along (" << directions[k] << ", " << directions[k + 3] << ", "
                  << directions[k + 6] << ")\n";
}
