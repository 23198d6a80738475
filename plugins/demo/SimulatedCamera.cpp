#include "SimulatedCamera.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace morvane::demo {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double DriftPerSecond = 0.13, Jump = 0.1; // fringes
constexpr double Astigmatism = 0.35, Coma = 0.2; // fringes at the rim
constexpr double Background = 8, Brightness = 118, Visibility = 0.85; // grey levels, and contrast

// Fringes of path that the optic adds, at a point of its unit circle.
double opticError(double x, double y)
{
    const double r2 = x * x + y * y;
    return Astigmatism * (x * x - y * y) + Coma * (3 * r2 - 2) * y;
}

double lightAt(double fringes, double r2)
{
    const double beam = std::exp(-0.35 * r2); // brightest in the middle
    return Background + Brightness * beam * (1 - Visibility * std::cos(2 * Pi * fringes));
}

} // namespace

void SimulatedCamera::Drift(double Seconds)
{
    std::normal_distribution<double> jump(0, Jump);
    m_phase = std::fmod(m_phase + DriftPerSecond * Seconds + jump(m_random), 1.0);
}

std::vector<std::uint8_t> SimulatedCamera::Expose()
{
    const double tilt = Settings.Tilt * Pi / 180;
    const double alongX = std::cos(tilt) * Settings.Fringes / 2;
    const double alongY = std::sin(tilt) * Settings.Fringes / 2;
    std::normal_distribution<double> noise(0, 1);
    std::vector<std::uint8_t> picture;
    picture.reserve(static_cast<std::size_t>(CameraWidth) * CameraHeight);
    for (int row = 0; row < CameraHeight; ++row)
        for (int column = 0; column < CameraWidth; ++column) {
            const double x = (column - CameraWidth / 2) / OpticRadius;
            const double y = (row - CameraHeight / 2) / OpticRadius;
            const double r2 = x * x + y * y;
            const double light = r2 > 1
                ? Background
                : lightAt(alongX * x + alongY * y + opticError(x, y) + m_phase, r2);
            const double level = light + Settings.Noise * noise(m_random);
            picture.push_back(static_cast<std::uint8_t>(std::clamp(level, 0.0, 255.0) + 0.5));
        }
    return picture;
}

} // namespace morvane::demo
