#include "tools/InterferogramGenerator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <span>

#include "analysis/ModMathLib.h"
#include "analysis/Pupil.h"
#include "platform/Numbers.h"
#include "tools/TrueWavefront.h"

namespace morvane {
namespace {

class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) { }

    double Uniform() { return std::ldexp(static_cast<double>(m_engine() >> 11), -53); }

    // Twelve uniform numbers have a variance of 1 and a sum that is close to normal; unlike a
    // transform by logarithm and cosine it is exact on every machine.
    double Normal()
    {
        double sum = -6;
        for (int i = 0; i < 12; ++i)
            sum += Uniform();
        return sum;
    }

private:
    std::mt19937_64 m_engine;
};

struct DustSpot {
    Point Center;
    double Radius, Depth;
};

std::vector<DustSpot> scatterDust(const InterferogramRecipe& recipe, Random& random)
{
    std::vector<DustSpot> spots(std::max(recipe.DustSpots, 0));
    for (DustSpot& spot : spots) {
        spot.Center.X = random.Uniform() * recipe.Size.Width;
        spot.Center.Y = random.Uniform() * recipe.Size.Height;
        spot.Radius = 1 + random.Uniform() * (recipe.DustRadius - 1);
        spot.Depth = 0.3 + 0.6 * random.Uniform();
    }
    return spots;
}

void darken(std::span<double> row, int y, const std::vector<DustSpot>& spots)
{
    for (const DustSpot& spot : spots) {
        if (std::abs(y - spot.Center.Y) >= spot.Radius)
            continue;
        for (int x = 0; x < static_cast<int>(row.size()); ++x) {
            const double distance = std::hypot(x - spot.Center.X, y - spot.Center.Y) / spot.Radius;
            if (distance < 1)
                row[x] *= 1 - spot.Depth * (1 - distance * distance);
        }
    }
}

std::uint8_t greyLevel(double value)
{
    return static_cast<std::uint8_t>(std::clamp(RoundToLong(value), 0, 255));
}

ZernikeSet carrierAndAberrations(const InterferogramRecipe& recipe)
{
    ZernikeSet coefficients = recipe.Aberrations;
    coefficients[0] += recipe.FringesX / 2; // the diameter is two pupil units
    coefficients[1] += recipe.FringesY / 2;
    return coefficients;
}

// What the picture shows at a position.
class Scene {
public:
    explicit Scene(const InterferogramRecipe& recipe)
        : m_recipe(recipe), m_wavefront(recipe.Piston, carrierAndAberrations(recipe))
    {
        clsShape aperture = recipe.Aperture.Shape(ShapeRole::Aperture);
        m_pupil.SetScalefactors(aperture);
    }

    bool ShowsOptic(Point at) const
    {
        return m_recipe.Aperture.Contains(at) && !m_recipe.Obstruction.Contains(at);
    }

    double Height(Point at) const { return m_wavefront.At(PupilX(at), PupilY(at)); }

    double Brightness(Point at) const
    {
        if (!ShowsOptic(at))
            return m_recipe.Background;
        const double squaredRadius = PupilX(at) * PupilX(at) + PupilY(at) * PupilY(at);
        return 127.5 * (1 - m_recipe.Vignetting * squaredRadius)
            * (1 - m_recipe.Contrast * std::cos(2 * Pi * Height(at)));
    }

private:
    double PupilX(Point at) const { return (at.X - m_pupil.CenterX) * m_pupil.ScaleX; }
    double PupilY(Point at) const { return (at.Y - m_pupil.CenterY) * m_pupil.ScaleY; }

    const InterferogramRecipe& m_recipe;
    TrueWavefront m_wavefront;
    Pupil m_pupil;
};

Point pixelCenter(int x, int y)
{
    return {static_cast<double>(x), static_cast<double>(y)};
}

std::string outlineText(const Outline& outline)
{
    const char* const name = outline.Kind == ShapeKind::Circle ? "circle"
        : outline.Kind == ShapeKind::Ellipse                   ? "ellipse"
                                                               : "polygon";
    std::string text = std::string("{\"shape\": \"") + name + "\", \"points\": [";
    const char* separator = "";
    for (const Point point : outline.DefiningPoints()) {
        text += separator + FormatShortest(point.X) + ", " + FormatShortest(point.Y);
        separator = ", ";
    }
    return text + "]}";
}

} // namespace

FringeDirection InterferogramRecipe::Direction() const
{
    return std::abs(FringesX) >= std::abs(FringesY) ? FringeDirection::Vertical
                                                    : FringeDirection::Horizontal;
}

std::vector<std::uint8_t> MakeInterferogram(const InterferogramRecipe& Recipe)
{
    const Scene scene(Recipe);
    Random random(Recipe.Seed);
    const std::vector<DustSpot> dust = scatterDust(Recipe, random);
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(Recipe.Size.Width) * Recipe.Size.Height);
    std::vector<double> row(Recipe.Size.Width);
    for (int y = 0; y < Recipe.Size.Height; ++y) {
        for (int x = 0; x < Recipe.Size.Width; ++x)
            row[x] = scene.Brightness(pixelCenter(x, y));
        darken(row, y, dust);
        for (const double value : row)
            pixels.push_back(
                greyLevel(Recipe.Noise > 0 ? value + Recipe.Noise * random.Normal() : value));
    }
    return pixels;
}

ZernikeSet TrueCoefficients(const InterferogramRecipe& Recipe)
{
    ZernikeSet coefficients = carrierAndAberrations(Recipe);
    const bool isVertical = Recipe.Direction() == FringeDirection::Vertical;
    if ((isVertical ? Recipe.FringesX : Recipe.FringesY) < 0)
        for (double& coefficient : coefficients)
            coefficient = -coefficient;
    return coefficients;
}

int CountFringes(const InterferogramRecipe& Recipe)
{
    const Scene scene(Recipe);
    double lowest = std::numeric_limits<double>::max(), highest = -lowest;
    for (int y = 0; y < Recipe.Size.Height; ++y) {
        for (int x = 0; x < Recipe.Size.Width; ++x) {
            const Point at = pixelCenter(x, y);
            if (!scene.ShowsOptic(at))
                continue;
            lowest = std::min(lowest, scene.Height(at));
            highest = std::max(highest, scene.Height(at));
        }
    }
    return lowest > highest ? 0 : RoundToLong(std::floor(highest) - std::ceil(lowest)) + 1;
}

std::string SidecarText(const InterferogramRecipe& Recipe)
{
    std::string text = "{\n  \"aperture\": " + outlineText(Recipe.Aperture) + ",\n";
    if (Recipe.Obstruction.Kind != ShapeKind::None)
        text += "  \"obstruction\": " + outlineText(Recipe.Obstruction) + ",\n";
    const bool isVertical = Recipe.Direction() == FringeDirection::Vertical;
    text += std::string("  \"direction\": \"") + (isVertical ? "vertical" : "horizontal") + "\",\n";
    text += "  \"truth\": [";
    const char* separator = "";
    for (const double coefficient : TrueCoefficients(Recipe)) {
        text += separator + FormatShortest(coefficient);
        separator = ", ";
    }
    return text + "],\n  \"fringes\": " + std::to_string(CountFringes(Recipe)) + "\n}\n";
}

} // namespace morvane
