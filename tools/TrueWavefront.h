// A wavefront of known coefficients. Its terms come from the general definition of the circle
// polynomials, R(n, m) cos(m theta) and R(n, m) sin(m theta) (Born & Wolf, Principles of Optics,
// 9.2.1), not from the table that the fit uses: a slip in one shows against the other.
#pragma once
#include <array>
#include <vector>

#include "analysis/Zernike.h"

namespace morvane {

class TrueWavefront {
public:
    TrueWavefront(double Piston, const ZernikeSet& Coefficients);

    // The height at a pupil position, in the unit of the coefficients.
    double At(double X, double Y) const;

private:
    static constexpr int MaxPower = 6; // of r squared

    // All terms of one angular frequency and phase: a polynomial in r squared times r^m cos(m
    // theta) or r^m sin(m theta).
    struct Harmonic {
        int Frequency;
        bool IsSine;
        std::array<double, MaxPower + 1> Powers{};
    };
    void AddTerm(double coefficient, int n, int m, bool isSine);

    double m_piston;
    std::vector<Harmonic> m_harmonics;
};

} // namespace morvane
