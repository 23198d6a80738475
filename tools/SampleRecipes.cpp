#include "tools/SampleRecipes.h"

#include <initializer_list>
#include <string_view>
#include <utility>

#include "analysis/ModMathLib.h"
#include "platform/File.h"

namespace morvane {
namespace {

// The pistons put the rim well between two orders, so that no fringe is too short for the tracer.

// Term number and coefficient, in fringe orders.
ZernikeSet aberrations(std::initializer_list<std::pair<int, double>> terms)
{
    ZernikeSet coefficients{};
    for (const auto& [term, value] : terms)
        coefficients[term - 1] = value;
    return coefficients;
}

InterferogramRecipe verticalMirror()
{
    InterferogramRecipe recipe;
    recipe.Size = {480, 480};
    recipe.Aperture = CircleOutline({240, 238}, {214, 214});
    recipe.FringesX = 18;
    recipe.Aberrations = aberrations({{4, 0.35}, {5, -0.2}, {6, 0.15}, {8, -0.3}, {15, 0.05}});
    recipe.Piston = 0.3;
    recipe.Contrast = 0.9;
    recipe.Background = 20;
    return recipe;
}

InterferogramRecipe horizontalLens()
{
    InterferogramRecipe recipe;
    recipe.Size = {364, 352};
    recipe.Aperture = CircleOutline({183.5, 176}, {160.5, 158}); // stretched by its camera
    recipe.FringesX = 1;
    recipe.FringesY = 13;
    recipe.Aberrations = aberrations({{3, 0.4}, {7, 0.3}, {10, 0.1}, {12, -0.06}});
    recipe.Piston = 0.6;
    recipe.Contrast = 0.75;
    recipe.Background = 60;
    return recipe;
}

InterferogramRecipe obstructedTelescope()
{
    InterferogramRecipe recipe;
    recipe.Size = {520, 500};
    recipe.Aperture = CircleOutline({262, 248}, {230, 230});
    recipe.Obstruction = CircleOutline({266, 250}, {62, 62});
    recipe.FringesX = 16;
    recipe.Aberrations = aberrations({{3, -0.25}, {4, 0.2}, {8, 0.35}, {9, 0.12}, {11, 0.05}});
    recipe.Piston = 0.4;
    recipe.Contrast = 0.85;
    recipe.Background = 8;
    return recipe;
}

InterferogramRecipe tiltedFlat()
{
    InterferogramRecipe recipe;
    recipe.Size = {560, 440};
    recipe.Aperture = EllipseOutline({281, 219}, {250, 165}, 20 / DegreesPerRadian);
    recipe.FringesX = 19;
    recipe.FringesY = 1;
    recipe.Aberrations = aberrations({{3, 0.3}, {4, -0.45}, {5, 0.25}, {13, 0.06}});
    recipe.Piston = 0.7;
    recipe.Contrast = 0.8;
    recipe.Background = 40;
    return recipe;
}

InterferogramRecipe smallBall()
{
    InterferogramRecipe recipe;
    recipe.Size = {240, 232};
    recipe.Aperture = CircleOutline({119.5, 116}, {104, 104});
    recipe.FringesX = -9; // the wavefront falls to the right: numbering turns its sign
    recipe.Aberrations = aberrations({{4, 0.3}, {7, -0.25}, {8, 0.2}});
    recipe.Piston = 0.3;
    recipe.Contrast = 0.95;
    return recipe;
}

InterferogramRecipe dustyWorkshop()
{
    InterferogramRecipe recipe;
    recipe.Size = {640, 600};
    recipe.Aperture = CircleOutline({318, 301}, {270, 270});
    recipe.FringesX = 15;
    recipe.FringesY = -0.5;
    recipe.Aberrations = aberrations({{3, 0.2}, {5, 0.35}, {6, -0.3}, {8, -0.5}, {15, 0.15}});
    recipe.Piston = 0.7;
    recipe.Contrast = 0.7;
    recipe.Vignetting = 0.45;
    recipe.Background = 25;
    recipe.Noise = 6;
    recipe.DustSpots = 60;
    recipe.DustRadius = 5;
    recipe.Seed = 20;
    return recipe;
}

InterferogramRecipe oldCameraWindow()
{
    InterferogramRecipe recipe;
    recipe.Size = {400, 380};
    recipe.Aperture = CircleOutline({198, 191}, {172, 172});
    recipe.FringesX = 0.5;
    recipe.FringesY = -12;
    recipe.Aberrations = aberrations({{4, 0.2}, {6, -0.3}, {10, 0.15}, {16, 0.08}});
    recipe.Piston = 0.45;
    return recipe; // full contrast: 32 grey levels leave none to spare
}

InterferogramRecipe packedPlate()
{
    InterferogramRecipe recipe;
    recipe.Size = {420, 440};
    recipe.Aperture = CircleOutline({209, 221}, {186, 186});
    recipe.FringesX = 14;
    recipe.Aberrations = aberrations({{3, 0.5}, {8, 0.15}, {15, -0.1}, {24, 0.05}});
    recipe.Piston = 0.9;
    recipe.Contrast = 0.9;
    return recipe;
}

InterferogramRecipe prismFace()
{
    InterferogramRecipe recipe;
    recipe.Size = {460, 420};
    recipe.Aperture =
        PolygonOutline({{60, 100}, {230, 24}, {424, 92}, {430, 310}, {236, 396}, {48, 320}});
    recipe.FringesX = 16;
    recipe.Aberrations = aberrations({{3, -0.3}, {4, 0.3}, {5, 0.2}, {7, 0.1}});
    recipe.Piston = 0.5;
    recipe.Contrast = 0.8;
    recipe.Background = 90;
    return recipe;
}

} // namespace

std::string SampleRecipe::SidecarName() const
{
    return Name.substr(0, Name.rfind('.')) + ".json";
}

bool SampleRecipe::IsExact() const
{
    return Interferogram.Noise == 0 && Interferogram.DustSpots == 0;
}

std::vector<SampleRecipe> SampleRecipes()
{
    return {
        {"mirror.bmp", PictureFormat::Bmp8, verticalMirror()},
        {"lens-horizontal.bmp", PictureFormat::Bmp24, horizontalLens()},
        {"telescope.bmp", PictureFormat::Bmp8, obstructedTelescope()},
        {"flat-ellipse.bmp", PictureFormat::Bmp8, tiltedFlat()},
        {"ball-small.bmp", PictureFormat::Bmp8, smallBall()},
        {"workshop-noisy.jpg", PictureFormat::JpegColor, dustyWorkshop()},
        {"window-16bit.bmp", PictureFormat::Bmp16, oldCameraWindow()},
        {"plate.rle", PictureFormat::Rle8, packedPlate()},
        {"prism-polygon.jpg", PictureFormat::JpegGrey, prismFace()},
    };
}

std::string WriteSample(const SampleRecipe& Sample, const std::string& Folder, int Quality)
{
    const InterferogramRecipe& recipe = Sample.Interferogram;
    const std::vector<std::uint8_t> file =
        EncodePicture(MakeInterferogram(recipe), recipe.Size, Sample.Format, Quality);
    if (file.empty())
        return "the picture cannot be encoded";
    const std::string_view bytes(reinterpret_cast<const char*>(file.data()), file.size());
    const FileResult picture = WriteWholeFile(Folder + "/" + Sample.Name, bytes);
    if (!picture)
        return picture.Error;
    return WriteWholeFile(Folder + "/" + Sample.SidecarName(), SidecarText(recipe)).Error;
}

} // namespace morvane
