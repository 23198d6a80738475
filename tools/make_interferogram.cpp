// Makes an interferogram with a known wavefront, and its sidecar, from the command line.
#include <cmath>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/ModMathLib.h"
#include "platform/Numbers.h"
#include "tools/SampleRecipes.h"

namespace {

using namespace morvane;

constexpr int MaxSide = 16384;

constexpr const char* Help =
    R"(Makes an interferogram with a known wavefront, and a JSON file of its truth beside it.

  make_interferogram [OPTIONS] PICTURE
  make_interferogram --samples FOLDER      make the pictures of examples/ anew

Lists are separated by commas. Positions are pixels, origin top left, y down; heights are fringe
orders: dark fringe centers lie where the wavefront is a whole number.

Picture
  --size WIDTH,HEIGHT          pixels (512,512)
  --format KIND                bmp1 bmp4 bmp8 bmp16 bmp24 bmp32 rle4 rle8 jpeg-grey jpeg-color
                               (jpeg-color for .jpg, rle8 for .rle, else bmp8)
  --quality N                  of a JPEG, 1 to 100 (90)

Aperture (by default a circle that leaves a rim), obstruction (by default none)
  --circle X,Y,R[,RY]          --obstruction-circle X,Y,R[,RY]
  --ellipse X,Y,A,B,DEGREES    --obstruction-ellipse X,Y,A,B,DEGREES
                               half axes; the first one's angle from +x, counter-clockwise
  --polygon X,Y,X,Y,...        --obstruction-polygon X,Y,X,Y,...     3 to 50 corners

Wavefront
  --fringes X,Y                carrier: orders gained across the pupil, rightward, downward (20,0)
  --piston W                   constant (0)
  --zernike N,W[,N,W...]       coefficients of terms 1 to 36; may be given again

Brightness
  --contrast C                 0 to 1 (1)
  --vignetting V               part lost at the pupil's edge, 0 to 1 (0)
  --background G               grey level around the optic, 0 to 255 (0)
  --noise S                    standard deviation in grey levels (0)
  --dust N[,RADIUS]            soft dark spots (0), the largest of RADIUS pixels (4)
  --seed N                     of noise and dust (1)
)";

// A fault in the command line; the text is for the user.
struct UsageFault {
    std::string Text;
};

struct Request {
    InterferogramRecipe Recipe;
    std::string Picture, SamplesFolder;
    std::string FormatName;
    int Quality = 90;
    bool HasAperture = false;
};

std::vector<double> numbersOf(
    const std::string& option, std::string_view text, std::size_t fewest, std::size_t most)
{
    std::vector<double> numbers;
    for (;;) {
        const std::string_view item = text.substr(0, text.find(','));
        if (!IsNumeric(item))
            throw UsageFault{option + ": \"" + std::string(item) + "\" is no number"};
        numbers.push_back(LeadingNumber(item));
        if (item.size() == text.size())
            break;
        text.remove_prefix(item.size() + 1);
    }
    if (numbers.size() < fewest || numbers.size() > most)
        throw UsageFault{option + ": wrong count of numbers"};
    return numbers;
}

double numberIn(const std::string& option, double value, double lowest, double highest)
{
    if (value < lowest || value > highest)
        throw UsageFault{option + ": " + FormatGeneral(value) + " is out of range"};
    return value;
}

int wholeIn(const std::string& option, double value, int lowest, int highest)
{
    if (value != std::floor(value))
        throw UsageFault{option + ": " + FormatGeneral(value) + " is no whole number"};
    return RoundToLong(numberIn(option, value, lowest, highest));
}

Outline outlineOf(const std::string& option, std::string_view kind, const std::string& text)
{
    if (kind == "polygon") {
        const std::vector<double> n = numbersOf(option, text, 6, std::size_t{2} * MaxVertices);
        if (n.size() % 2 != 0)
            throw UsageFault{option + ": a corner lacks its y"};
        std::vector<Point> corners;
        for (std::size_t i = 0; i < n.size(); i += 2)
            corners.push_back({n[i], n[i + 1]});
        return PolygonOutline(std::move(corners));
    }
    const bool isCircle = kind == "circle";
    const std::vector<double> n =
        isCircle ? numbersOf(option, text, 3, 4) : numbersOf(option, text, 5, 5);
    const Point radii{n[2], n.size() > 3 ? n[3] : n[2]};
    if (radii.X <= 0 || radii.Y <= 0)
        throw UsageFault{option + ": radii must be above 0"};
    return isCircle ? CircleOutline({n[0], n[1]}, radii)
                    : EllipseOutline({n[0], n[1]}, radii, n[4] / DegreesPerRadian);
}

void addZernikes(const std::string& option, const std::string& text, ZernikeSet& coefficients)
{
    const std::vector<double> n = numbersOf(option, text, 2, std::size_t{2} * NumZernikes);
    if (n.size() % 2 != 0)
        throw UsageFault{option + ": a term lacks its coefficient"};
    for (std::size_t i = 0; i < n.size(); i += 2)
        coefficients[wholeIn(option, n[i], 1, NumZernikes) - 1] = n[i + 1];
}

void takeOption(Request& request, const std::string& option, const std::string& text)
{
    InterferogramRecipe& recipe = request.Recipe;
    const auto numbers = [&](std::size_t fewest, std::size_t most) {
        return numbersOf(option, text, fewest, most);
    };
    const auto number = [&](double lowest, double highest) {
        return numberIn(option, numbers(1, 1)[0], lowest, highest);
    };
    const auto whole = [&](int lowest, int highest) {
        return wholeIn(option, numbers(1, 1)[0], lowest, highest);
    };
    const auto setAperture = [&](std::string_view kind) {
        recipe.Aperture = outlineOf(option, kind, text);
        request.HasAperture = true;
    };
    const auto setObstruction = [&](std::string_view kind) {
        recipe.Obstruction = outlineOf(option, kind, text);
    };

    const std::map<std::string, std::function<void()>> actions{
        {"--samples", [&] { request.SamplesFolder = text; }},
        {"--format", [&] { request.FormatName = text; }},
        {"--quality", [&] { request.Quality = whole(1, 100); }},
        {"--size",
            [&] {
                const std::vector<double> n = numbers(2, 2);
                recipe.Size = {
                    wholeIn(option, n[0], 1, MaxSide), wholeIn(option, n[1], 1, MaxSide)};
            }},
        {"--circle", [&] { setAperture("circle"); }},
        {"--ellipse", [&] { setAperture("ellipse"); }},
        {"--polygon", [&] { setAperture("polygon"); }},
        {"--obstruction-circle", [&] { setObstruction("circle"); }},
        {"--obstruction-ellipse", [&] { setObstruction("ellipse"); }},
        {"--obstruction-polygon", [&] { setObstruction("polygon"); }},
        {"--fringes",
            [&] {
                const std::vector<double> n = numbers(2, 2);
                recipe.FringesX = n[0];
                recipe.FringesY = n[1];
            }},
        {"--piston", [&] { recipe.Piston = numbers(1, 1)[0]; }},
        {"--zernike", [&] { addZernikes(option, text, recipe.Aberrations); }},
        {"--contrast", [&] { recipe.Contrast = number(0, 1); }},
        {"--vignetting", [&] { recipe.Vignetting = number(0, 1); }},
        {"--background", [&] { recipe.Background = number(0, 255); }},
        {"--noise", [&] { recipe.Noise = number(0, 1000); }},
        {"--dust",
            [&] {
                const std::vector<double> n = numbers(1, 2);
                recipe.DustSpots = wholeIn(option, n[0], 0, 100000);
                if (n.size() == 2)
                    recipe.DustRadius = numberIn(option, n[1], 1, MaxSide);
            }},
        {"--seed", [&] { recipe.Seed = whole(0, 2147483647); }},
    };
    const auto action = actions.find(option);
    if (action == actions.end())
        throw UsageFault{option + " is no option"};
    action->second();
}

bool endsWith(const std::string& text, std::string_view end)
{
    return text.size() >= end.size()
        && std::string_view(text).substr(text.size() - end.size()) == end;
}

PictureFormat formatOf(const Request& request)
{
    const std::string& picture = request.Picture;
    const std::string name = !request.FormatName.empty()          ? request.FormatName
        : endsWith(picture, ".jpg") || endsWith(picture, ".jpeg") ? "jpeg-color"
        : endsWith(picture, ".rle")                               ? "rle8"
                                                                  : "bmp8";
    const std::optional<PictureFormat> format = PictureFormatByName(name);
    if (!format)
        throw UsageFault{"--format: " + name + " is no format"};
    return *format;
}

Request requestOf(const std::vector<std::string>& arguments)
{
    Request request;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (!arguments[i].starts_with("--")) {
            request.Picture = arguments[i];
        } else {
            if (i + 1 == arguments.size())
                throw UsageFault{arguments[i] + " needs a value"};
            takeOption(request, arguments[i], arguments[i + 1]);
            ++i;
        }
    }
    if (request.Picture.empty() && request.SamplesFolder.empty())
        throw UsageFault{"no picture is named; --help tells the options"};
    const RasterSize size = request.Recipe.Size;
    const Point center{(size.Width - 1) / 2.0, (size.Height - 1) / 2.0};
    const double radius = 0.46 * std::min(size.Width, size.Height);
    if (!request.HasAperture)
        request.Recipe.Aperture = CircleOutline(center, {radius, radius});
    return request;
}

std::string make(const Request& request)
{
    if (!request.SamplesFolder.empty()) {
        for (const SampleRecipe& sample : SampleRecipes())
            if (const std::string error = WriteSample(sample, request.SamplesFolder);
                !error.empty())
                return sample.Name + ": " + error;
        return {};
    }
    const std::size_t slash = request.Picture.rfind('/');
    const bool hasFolder = slash != std::string::npos;
    const SampleRecipe sample{hasFolder ? request.Picture.substr(slash + 1) : request.Picture,
        formatOf(request), request.Recipe};
    return WriteSample(sample, hasFolder ? request.Picture.substr(0, slash) : ".", request.Quality);
}

} // namespace

int main(int count, char** values)
{
    const std::vector<std::string> arguments(values + 1, values + count);
    if (arguments.empty() || arguments[0] == "--help") {
        std::fputs(Help, stdout);
        return arguments.empty() ? 2 : 0;
    }
    try {
        const std::string error = make(requestOf(arguments));
        if (error.empty())
            return 0;
        std::fprintf(stderr, "make_interferogram: %s\n", error.c_str());
    } catch (const UsageFault& fault) {
        std::fprintf(stderr, "make_interferogram: %s\n", fault.Text.c_str());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_interferogram: %s\n", error.what());
    }
    return 1;
}
