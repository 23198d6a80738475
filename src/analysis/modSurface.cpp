#include "analysis/modSurface.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "analysis/ModMathLib.h"
#include "platform/Numbers.h"

namespace morvane {

namespace {

bool isReady(const MaskView& mask, const Pupil& frame)
{
    return mask.Width > 0 && mask.Height > 0 && frame.IsDefined();
}

// The shortest digits that read back to the same double, never with an exponent: the least double
// takes 326 characters.
void appendPlain(std::string& text, double value)
{
    char digits[400];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed);
    text.append(digits, end.ptr);
}

} // namespace

void EvalSurface(const ZernikeSet& Coefficients, const MaskView& Mask, const Pupil& Frame,
    int Width, int Height, MapContent Content, std::span<double> Map)
{
    if (Width < 2 || Height < 2 || !isReady(Mask, Frame))
        return;
    const double hx = (Width - 1) / 2.0, hy = (Height - 1) / 2.0;
    for (int j = 0; j < Height; ++j) {
        const double y = (j - hy) / hy;
        const int row = Frame.Row(y);
        const auto cells = Map.subspan(static_cast<std::size_t>(Width) * j, Width);
        std::fill(cells.begin(), cells.end(), NoData);
        if (row < 0 || row >= Mask.Height)
            continue;
        for (int i = 0; i < Width; ++i) {
            const double x = (i - hx) / hx;
            if (!Mask.IsInside(Frame.Column(x), row))
                continue;
            const double w = EvalZernike(x, y, Coefficients);
            cells[i] = Content == MapContent::Fringes ? 1 - std::cos(w * 2 * Pi) : w;
        }
    }
}

void EvalProfile(const ZernikeSet& Coefficients, const MaskView& Mask, const Pupil& Frame,
    double Angle, std::span<double> X, std::span<double> Y)
{
    const std::size_t numPoints = std::min(X.size(), Y.size());
    if (numPoints < 2 || !isReady(Mask, Frame))
        return;
    const double h = static_cast<double>(numPoints - 1) / 2;
    for (std::size_t k = 0; k < numPoints; ++k) {
        const double t = (static_cast<double>(k) - h) / h;
        const double x = t * std::cos(Angle), y = t * std::sin(Angle);
        X[k] = t;
        Y[k] =
            Mask.IsInside(Frame.Column(x), Frame.Row(y)) ? EvalZernike(x, y, Coefficients) : NoData;
    }
}

std::string MapText(std::span<const double> Map, int Width)
{
    std::string text;
    text.reserve(Map.size() * 20);
    for (std::size_t i = 0; i < Map.size(); ++i) {
        appendPlain(text, Map[i] == NoData ? 0.0 : Map[i]);
        text += (i + 1) % static_cast<std::size_t>(Width) == 0 ? "\r\n" : ",";
    }
    return text;
}

std::string ZernikesText(const ZernikeSet& Coefficients)
{
    std::string text;
    for (const double coefficient : Coefficients)
        text += FormatGeneral(coefficient) + "\r\n";
    return text;
}

} // namespace morvane
