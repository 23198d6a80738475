#include "SimulatedCamera.h"

#include <gtest/gtest.h>

#include <cmath>

namespace morvane::demo {
namespace {

constexpr int Radius = static_cast<int>(OpticRadius);

std::uint8_t LevelAt(const std::vector<std::uint8_t>& picture, int x, int y)
{
    return picture[static_cast<std::size_t>(y + CameraHeight / 2) * CameraWidth
        + static_cast<std::size_t>(x + CameraWidth / 2)];
}

// Dark fringes along a diameter of the optic, in the direction (stepX, stepY).
int DarkFringes(const std::vector<std::uint8_t>& picture, int stepX, int stepY)
{
    constexpr int dark = 45; // grey levels; the middle between bright and dark is above 80
    int count = 0;
    bool inside = false;
    for (int i = -Radius; i <= Radius; ++i) {
        const bool isDark = LevelAt(picture, i * stepX, i * stepY) < dark;
        count += isDark && !inside;
        inside = isDark;
    }
    return count;
}

TEST(SimulatedCamera, ShowsTheFringesThatAreSet)
{
    const struct {
        CameraSettings Settings;
        int Across, Down;
    } cases[] = {
        {{.Fringes = 2, .Tilt = 0, .Noise = 0}, 2, 0},
        {{.Fringes = 12, .Tilt = 0, .Noise = 0}, 12, 0},
        {{.Fringes = 40, .Tilt = 0, .Noise = 0}, 40, 0},
        {{.Fringes = 12, .Tilt = 90, .Noise = 0}, 0, 12},
    };
    for (const auto& c : cases) {
        SimulatedCamera camera(1);
        camera.Settings = c.Settings;
        const std::vector<std::uint8_t> picture = camera.Expose();
        const int across = DarkFringes(picture, 1, 0), down = DarkFringes(picture, 0, 1);
        // Along its own direction a fringe is only bent by the optic, by less than one order.
        EXPECT_TRUE(c.Across ? across == c.Across : across <= 1) << across;
        EXPECT_TRUE(c.Down ? down == c.Down : down <= 1) << down;
    }
}

TEST(SimulatedCamera, MovesOnlyWithDriftWhenThereIsNoNoise)
{
    SimulatedCamera camera(1);
    camera.Settings.Noise = 0;
    const std::vector<std::uint8_t> first = camera.Expose();
    EXPECT_EQ(camera.Expose(), first);
    camera.Drift(1);
    EXPECT_NE(camera.Expose(), first);
}

TEST(SimulatedCamera, NoiseHasTheDeviationThatIsSet)
{
    SimulatedCamera camera(1);
    camera.Settings.Noise = 6;
    const std::vector<std::uint8_t> first = camera.Expose(), second = camera.Expose();
    double squares = 0;
    int count = 0;
    for (std::size_t i = 0; i < first.size(); ++i)
        if (first[i] > 60) { // far from the ends of the range
            squares += std::pow(first[i] - second[i], 2);
            ++count;
        }
    ASSERT_GT(count, 50000);
    // The difference of two frames has twice the variance. Of so many points the deviation is
    // known to 0.3 percent.
    EXPECT_NEAR(std::sqrt(squares / count / 2), 6, 0.1);
}

} // namespace
} // namespace morvane::demo
