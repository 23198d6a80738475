// The 36 terms from the general formula of the radial polynomials, in extended precision: what the
// fast forms are held against.
#pragma once
#include <array>
#include <cmath>

#include "analysis/Zernike.h"

namespace morvane {

inline long double ReferenceFactorial(int n)
{
    long double product = 1;
    for (int i = 2; i <= n; ++i)
        product *= i;
    return product;
}

// R(n, m) = sum over k of (-1)^k (n - k)! / (k! ((n + m) / 2 - k)! ((n - m) / 2 - k)!) r^(n - 2k);
// Born and Wolf, Principles of Optics, 9.2.1.
inline long double ReferenceRadial(int n, int m, long double r)
{
    long double sum = 0;
    for (int k = 0; k <= (n - m) / 2; ++k) {
        const long double factor = ReferenceFactorial(n - k)
            / (ReferenceFactorial(k) * ReferenceFactorial((n + m) / 2 - k)
                * ReferenceFactorial((n - m) / 2 - k));
        sum += (k % 2 == 0 ? factor : -factor) * std::pow(r, static_cast<long double>(n - 2 * k));
    }
    return sum;
}

// The fringe order: by (n + m) / 2 upward, within it by m downward, cosine before sine; after
// (n + m) / 2 = 5 only the rotationally symmetric term of n = 12.
inline std::array<long double, NumZernikes> ReferenceTerms(long double x, long double y)
{
    std::array<long double, NumZernikes> terms{};
    const long double r = std::hypot(x, y), angle = std::atan2(y, x);
    int index = 0;
    for (int half = 1; half <= 5; ++half) {
        for (int m = half; m >= 0; --m) {
            const long double radial = ReferenceRadial(2 * half - m, m, r);
            terms[index++] = radial * std::cos(m * angle);
            if (m > 0)
                terms[index++] = radial * std::sin(m * angle);
        }
    }
    terms[index] = ReferenceRadial(12, 0, r);
    return terms;
}

inline double ReferenceWavefront(const ZernikeSet& coefficients, long double x, long double y)
{
    const auto terms = ReferenceTerms(x, y);
    long double sum = 0;
    for (int i = 0; i < NumZernikes; ++i)
        sum += coefficients[i] * terms[i];
    return static_cast<double>(sum);
}

} // namespace morvane
