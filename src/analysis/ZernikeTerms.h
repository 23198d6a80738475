// The formulas of the 36 terms, once for all: inlined where a single position is asked for and
// where the fit runs over blocks of positions.
#pragma once
#include <cstddef>

#if defined(__GNUC__)
#define MORVANE_ALWAYS_INLINE inline __attribute__((always_inline))
#else
#define MORVANE_ALWAYS_INLINE inline
#endif

namespace morvane {

// Writes term n at Terms[(n - 1) * Step]. The terms are those of the fringe set as tabulated in
// Wyant and Creath, Basic Wavefront Aberration Theory for Optical Metrology (1992), without piston.
//
// r^m cos(m a) and r^m sin(m a) come from products of lower ones, the low radial polynomials from
// Horner's rule in q = r^2. In q the high ones lose three digits at the edge, where large terms of
// either sign meet; written in u = 2 q - 1, from -1 to 1, the same polynomials (without angle
// Legendre's, with angle Jacobi's) have coefficients near 1.
MORVANE_ALWAYS_INLINE void WriteZernikeTerms(
    double x, double y, double* __restrict Terms, std::ptrdiff_t Step)
{
    const double xx = x * x, yy = y * y, q = xx + yy;
    const double c2 = xx - yy, s2 = 2 * x * y;
    const double c3 = c2 * x - s2 * y, s3 = s2 * x + c2 * y;
    const double c4 = c2 * c2 - s2 * s2, s4 = 2 * s2 * c2;
    const double c5 = c3 * c2 - s3 * s2, s5 = s3 * c2 + c3 * s2;

    const double coma = 3 * q - 2;
    const double astigmatism = 4 * q - 3;
    const double trefoil = 5 * q - 4;
    const double tetrafoil = 6 * q - 5;
    const double coma2 = (10 * q - 12) * q + 3;
    const double astigmatism2 = (15 * q - 20) * q + 6;
    const double trefoil2 = (21 * q - 30) * q + 10;

    const double u = 2 * q - 1, uu = u * u;
    const double spherical = 0.5 * (3 * uu - 1);
    const double spherical2 = 0.5 * (5 * uu - 3) * u;
    const double spherical3 = 0.125 * ((35 * uu - 30) * uu + 3);
    const double spherical4 = 0.125 * ((63 * uu - 70) * uu + 15) * u;
    const double spherical5 = 0.0625 * (((231 * uu - 315) * uu + 105) * uu - 5);
    const double coma3 = 0.125 * (((35 * u - 15) * u - 15) * u + 3);
    const double coma4 = 0.125 * ((((63 * u - 28) * u - 42) * u + 12) * u + 3);
    const double astigmatism3 = 0.25 * (((28 * u - 21) * u - 6) * u + 3);

    Terms[0 * Step] = x;
    Terms[1 * Step] = y;
    Terms[2 * Step] = u;
    Terms[3 * Step] = c2;
    Terms[4 * Step] = s2;
    Terms[5 * Step] = coma * x;
    Terms[6 * Step] = coma * y;
    Terms[7 * Step] = spherical;
    Terms[8 * Step] = c3;
    Terms[9 * Step] = s3;
    Terms[10 * Step] = astigmatism * c2;
    Terms[11 * Step] = astigmatism * s2;
    Terms[12 * Step] = coma2 * x;
    Terms[13 * Step] = coma2 * y;
    Terms[14 * Step] = spherical2;
    Terms[15 * Step] = c4;
    Terms[16 * Step] = s4;
    Terms[17 * Step] = trefoil * c3;
    Terms[18 * Step] = trefoil * s3;
    Terms[19 * Step] = astigmatism2 * c2;
    Terms[20 * Step] = astigmatism2 * s2;
    Terms[21 * Step] = coma3 * x;
    Terms[22 * Step] = coma3 * y;
    Terms[23 * Step] = spherical3;
    Terms[24 * Step] = c5;
    Terms[25 * Step] = s5;
    Terms[26 * Step] = tetrafoil * c4;
    Terms[27 * Step] = tetrafoil * s4;
    Terms[28 * Step] = trefoil2 * c3;
    Terms[29 * Step] = trefoil2 * s3;
    Terms[30 * Step] = astigmatism3 * c2;
    Terms[31 * Step] = astigmatism3 * s2;
    Terms[32 * Step] = coma4 * x;
    Terms[33 * Step] = coma4 * y;
    Terms[34 * Step] = spherical4;
    Terms[35 * Step] = spherical5;
}

} // namespace morvane
