// A camera that looks at an interferometer on a table that is never quite still: straight fringes,
// bent by a little astigmatism and coma of the optic, which wander with time and jump from frame to
// frame, under the noise of the sensor.
#pragma once
#include <cstdint>
#include <random>
#include <vector>

namespace morvane::demo {

inline constexpr int CameraWidth = 640, CameraHeight = 480; // pixels
inline constexpr double OpticRadius = 220; // pixels; around the middle of the frame

struct CameraSettings {
    int Fringes = 12; // across the diameter
    int Tilt = 15; // degrees of the fringes from the vertical
    int Noise = 6; // standard deviation, grey levels
};

class SimulatedCamera {
public:
    explicit SimulatedCamera(unsigned Seed) : m_random(Seed) { }

    CameraSettings Settings;

    // Time passes, in seconds, and somebody walks by.
    void Drift(double Seconds);

    // The picture at this moment, rows top-down.
    std::vector<std::uint8_t> Expose();

private:
    std::mt19937 m_random;
    double m_phase = 0; // fringes
};

} // namespace morvane::demo
