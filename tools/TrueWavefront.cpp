#include "tools/TrueWavefront.h"

#include <algorithm>
#include <complex>

namespace morvane {
namespace {

double factorial(int n)
{
    return n < 2 ? 1 : n * factorial(n - 1);
}

} // namespace

// Fringe order: groups of n + m = 2, 4, ... 10, in each m falling to 0, cosine before sine; then
// n = 12, m = 0.
TrueWavefront::TrueWavefront(double Piston, const ZernikeSet& Coefficients) : m_piston(Piston)
{
    std::size_t next = 0;
    for (int group = 1; group <= 5; ++group) {
        for (int m = group; m >= 0; --m) {
            AddTerm(Coefficients[next++], 2 * group - m, m, false);
            if (m > 0)
                AddTerm(Coefficients[next++], 2 * group - m, m, true);
        }
    }
    AddTerm(Coefficients[next], 12, 0, false);
}

void TrueWavefront::AddTerm(double coefficient, int n, int m, bool isSine)
{
    if (coefficient == 0)
        return;
    auto harmonic = std::find_if(m_harmonics.begin(), m_harmonics.end(),
        [&](const Harmonic& h) { return h.Frequency == m && h.IsSine == isSine; });
    if (harmonic == m_harmonics.end())
        harmonic = m_harmonics.insert(harmonic, Harmonic{m, isSine});
    for (int s = 0; s <= (n - m) / 2; ++s) {
        const double size = factorial(n - s)
            / (factorial(s) * factorial((n + m) / 2 - s) * factorial((n - m) / 2 - s));
        harmonic->Powers[(n - m) / 2 - s] += coefficient * (s % 2 == 0 ? size : -size);
    }
}

double TrueWavefront::At(double X, double Y) const
{
    const double squaredRadius = X * X + Y * Y;
    std::array<std::complex<double>, 6> turns; // r^m (cos(m theta) + i sin(m theta))
    turns[0] = 1;
    for (std::size_t m = 1; m < turns.size(); ++m)
        turns[m] = {turns[m - 1].real() * X - turns[m - 1].imag() * Y,
            turns[m - 1].real() * Y + turns[m - 1].imag() * X};
    double height = m_piston;
    for (const Harmonic& harmonic : m_harmonics) {
        double radial = 0;
        for (int power = MaxPower; power >= 0; --power)
            radial = radial * squaredRadius + harmonic.Powers[power];
        const std::complex<double> turn = turns[harmonic.Frequency];
        height += radial * (harmonic.IsSine ? turn.imag() : turn.real());
    }
    return height;
}

} // namespace morvane
