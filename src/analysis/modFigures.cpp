#include "analysis/modFigures.h"

#include <algorithm>
#include <cmath>

#include "analysis/ModMathLib.h"

namespace morvane {

namespace {

struct Polar {
    double Magnitude, AngleDegrees;
};

// Angles on the axes come out exact, in (-180, 180].
Polar polarForm(double x, double y)
{
    if (y == 0)
        return {std::abs(x), x >= 0 ? 0.0 : 180.0};
    if (x == 0)
        return {std::abs(y), y >= 0 ? 90.0 : -90.0};
    return {std::sqrt(x * x + y * y), Atan2Quadrant(x, y) * DegreesPerRadian};
}

} // namespace

WNotation AToW(const ZernikeSet& Coefficients)
{
    const auto& a = Coefficients;
    const Polar tilt = polarForm(a[0], a[1]);
    const Polar astigmatism = polarForm(a[3], a[4]);
    const Polar coma = polarForm(3 * a[5], 3 * a[6]);
    return {tilt.Magnitude, tilt.AngleDegrees, 2 * a[2], 2 * astigmatism.Magnitude,
        astigmatism.AngleDegrees / 2, coma.Magnitude, coma.AngleDegrees, 6 * a[7]};
}

void EvalAberrations(const ZernikeSet& Coefficients, const MaskView& Mask, const Pupil& Frame,
    int GridWidth, int GridHeight, FiguresOfMerit& Figures)
{
    if (Mask.Width < 1 || Mask.Height < 1 || GridWidth < 2 || GridHeight < 2 || !Frame.IsDefined())
        return;
    const double hx = (GridWidth - 1) / 2.0, hy = (GridHeight - 1) / 2.0;
    double n = 0, sum = 0, sumOfSquares = 0, largest = -1e308, smallest = 1e308;
    for (int j = 0; j < GridHeight; ++j) {
        const double y = (j - hy) / hy;
        const int row = Frame.Row(y);
        if (row < 0 || row >= Mask.Height)
            continue;
        for (int i = 0; i < GridWidth; ++i) {
            const double x = (i - hx) / hx;
            if (!Mask.IsInside(Frame.Column(x), row))
                continue;
            const double w = EvalZernike(x, y, Coefficients);
            n += 1;
            sum += w;
            sumOfSquares += w * w;
            largest = std::max(largest, w);
            smallest = std::min(smallest, w);
        }
    }
    Figures = {};
    if (n < 2)
        return;
    const double variance = (sumOfSquares - sum / n * sum) / (n - 1);
    if (!std::isfinite(variance)) {
        Figures = NoFigures;
        return;
    }
    const double rms = std::sqrt(std::max(variance, 0.0));
    constexpr double fourPiSquared = 39.478417604357354;
    Figures = {rms, std::exp(-fourPiSquared * rms * rms), largest - smallest};
}

} // namespace morvane
