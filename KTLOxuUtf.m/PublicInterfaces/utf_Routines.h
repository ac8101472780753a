#pragma once

/* The numerical routines of rotations and symmetric tensors, for callers in C, C++ and Fortran.

   Every argument is passed by address and none may be null; arrays are column-major: entry (i, j) of a matrix
   with m rows stands at i + m j, both counted from 0. Results may not overlap inputs, unless a routine says
   so. Nothing is allocated, thrown or kept: any thread may call them. A value that is not a number makes
   results that are not numbers; every loop ends all the same.

   A quaternion is a rotation by the angle a about the unit axis n: (x, y, z) = n sin(a/2), w = cos(a/2). Mind
   its order: utf_calquat_ lets its caller choose, utf_calprinquat_ writes the scalar last, utf_quatrot_ reads
   it first. */

#include <oxu_Export.h>

#ifdef __cplusplus
extern "C"
{
#endif

    /** The quaternion q (4 values) of a rotation whose axes are the columns of c (3x3).

        An even order gives (x, y, z, w), an odd one (w, x, y, z). The largest of the trace and the diagonal
       entries chooses the component that is computed first, so that nothing is divided by a small number (S.
       W. Shepperd, "Quaternion from rotation matrix", J. Guidance and Control 1, 1978); of equal diagonal
       entries the last one is taken. c is neither checked nor made orthogonal. What no rotation can be is
       told by the lines "SYSTEM ERROR 1 IN CALQUAT" or "SYSTEM ERROR 3 IN CALQUAT" on the standard output,
       and q holds what the arithmetic gives. */
    OXU_EXPORT void utf_calquat_(double* q, const double* c, const int* order);

    /** The same for a frame that may be left-handed, with the scalar last: then column 2 of c is reversed
       first, in the caller's array. */
    OXU_EXPORT void utf_getquat_(double* q, double* c);

    /** Turns a symmetric tensor from the frame of a quaternion's axes to the global one: t = transpose(A) S
       A, where the rows of A are those axes.

        s holds s11, s22, s33, s12, s13, s23; t becomes the full 3x3 matrix. With n = 6, r is the unit
       quaternion (w, x, y, z), scalar first, unlike everywhere else; with any other n, r holds two values and
       stands for (0, 0, r[0], r[1]). t may be s or r. */
    OXU_EXPORT void utf_quatrot_(const double* s, const double* r, double* t, const int* n);

    /** Principal values of a symmetric tensor in out[0..2] and the quaternion of their directions, scalar
       last, in out[3..6].

        tensor holds ndi direct values and nshr shears, as for utf_sprind_. Element types 21 to 25 and 88 to
       91 (a type above 1000 counts by its thousands) have engineering shears, which are halved. With more
       than one direct value the first ndi values fall; the frame is right-handed. Tensor types 7, 8 and 9 are
       this routine's own codes, none of res_DataTypeEnm's, for tensors that are packed to the plane: only the
       two values in the plane are sorted, and out[3..6] holds the planar quaternion (z, w, 0, 0). With type 9
       and ndi = nshr = 1 the two values are s11 and s12 of a tensor whose s22 is 0. The arguments are left as
       they are. */
    OXU_EXPORT void utf_calprinquat_(const double* tensor, double* out, const int* elementType,
                                     const int* tensorType, const int* ndi, const int* nshr);

    /** Principal values ps[0..2] of a symmetric tensor, and their unit directions as the rows of an (3x3):
       component j of direction k is an[k + 3 j].

        s holds ndi direct values (11, 22, 33), then nshr shears (12, 13, 23), each at most 3; what is missing
       is 0. mode 2 halves the shears. The values are not sorted: a diagonal tensor gives its own entries and
       the identity. The largest component of each direction, the first one of equals, is positive. Values are
       right to a few units in the last place of the largest. When a value of s is not finite, ps and an are
       not numbers.

        Cyclic Jacobi rotations (H. Rutishauser, "The Jacobi method for real symmetric matrices", Numer. Math.
       9, 1966), which keep the directions orthogonal however close the values are. */
    OXU_EXPORT void utf_sprind_(const double* s, double* ps, double* an, const int* mode, const int* ndi,
                                const int* nshr);

    /** Sorts n values to fall, and the n columns of three in directions with them; equal values keep their
     * order. */
    OXU_EXPORT void utf_asortd_(double* values, double* directions, const int* n);

    /** b (n x m) = the transpose of a (m x n). */
    OXU_EXPORT void utf_atra_(const double* a, double* b, const int* m, const int* n);

    /** c (l x n) = a (l x m) times b (m x n). */
    OXU_EXPORT void utf_aprd_(const double* a, const double* b, double* c, const int* l, const int* m,
                              const int* n);

#ifdef __cplusplus
}
#endif
