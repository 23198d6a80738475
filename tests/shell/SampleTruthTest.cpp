// The sample pictures, read, traced and fitted, give back the wavefronts that they were made of.
#include <cmath>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/clsAnalysis.h"
#include "analysis/modFit.h"
#include "document/LoadPicture.h"
#include "platform/File.h"
#include "tools/SampleRecipes.h"

namespace morvane {

void PrintTo(const SampleRecipe& sample, std::ostream* out)
{
    *out << sample.Name;
}

namespace {

// Waves RMS over the optic. A tick lies on a whole pixel, which is off by 0.3 pixels RMS: with a
// fringe every 20 pixels and hundreds of ticks that is a few thousandths of a wave.
constexpr double ExactTolerance = 0.01;
// Noise of 6 grey levels on a contrast that sinks to 40 % moves a tick by about one more pixel
// at the rim, and dust draws whole runs of ticks aside.
constexpr double NoisyTolerance = 0.02;

std::string pathOf(const std::string& name)
{
    return std::string(MORVANE_SAMPLES_FOLDER) + "/" + name;
}

struct Road {
    clsFringes Fringes;
    clsAnalysis Analysis;
    int NumTerms = 0;
    ZernikeSet Fitted{};
};

// From the file to the coefficients, in fringe orders.
void travel(const SampleRecipe& sample, Road& road)
{
    const PictureResult opened = LoadPicture(pathOf(sample.Name));
    ASSERT_EQ(opened.Error, PictureError::None) << opened.Reason;
    ImageBuffer image;
    std::string error;
    ASSERT_TRUE(ConvertBitmapToData(opened.Picture, image, error)) << error;
    ASSERT_EQ(image.Size, sample.Interferogram.Size);

    clsShape aperture = sample.Interferogram.Aperture.Shape(ShapeRole::Aperture);
    const clsShape obstruction = sample.Interferogram.Obstruction.Shape(ShapeRole::Obstruction);
    ASSERT_TRUE(road.Analysis.EnsureTraceMask(image.Size, aperture, obstruction));
    ASSERT_EQ(AutoTrace(road.Fringes, road.Analysis.Mask, image.Pixels, image.Size,
                  sample.Interferogram.Direction(), FringeDensity::Normal),
        TraceOutcome::Done);
    ASSERT_TRUE(road.Analysis.EnsureMask(image.Size, aperture, obstruction, false));

    std::vector<double> x, y, z;
    for (int index = 1; index <= road.Fringes.NumFringes(); ++index) {
        for (const Point tick : road.Fringes.Ticks(index)) {
            x.push_back(tick.X);
            y.push_back(tick.Y);
            z.push_back(road.Fringes.GetFringeOrder(index));
        }
    }
    FitFringeCenters(
        {x, y, z}, road.Analysis.Mask.View(), road.Analysis.Frame, road.NumTerms, road.Fitted);
}

// RMS of the difference over all pixels of the optic, its mean taken out.
double distanceFromTruth(const ZernikeSet& truth, const Road& road)
{
    ZernikeSet difference;
    for (int i = 0; i < NumZernikes; ++i)
        difference[i] = road.Fitted[i] - truth[i];
    const MaskView mask = road.Analysis.Mask.View();
    const Pupil& pupil = road.Analysis.Frame;
    double count = 0, sum = 0, squares = 0;
    for (int row = 0; row < mask.Height; ++row) {
        for (int column = 0; column < mask.Width; ++column) {
            if (!mask.IsInside(column, row))
                continue;
            const double height = EvalZernike((column - pupil.CenterX) * pupil.ScaleX,
                (row - pupil.CenterY) * pupil.ScaleY, difference);
            count += 1;
            sum += height;
            squares += height * height;
        }
    }
    return std::sqrt(squares / count - sum / count * (sum / count));
}

int numTracedFringes(const clsFringes& fringes)
{
    int count = 0;
    for (int index = 1; index <= fringes.NumFringes(); ++index)
        count += fringes.Ticks(index).empty() ? 0 : 1;
    return count;
}

class SampleTruth : public testing::TestWithParam<SampleRecipe> { };

TEST_P(SampleTruth, ComesBackFromTraceAndFit)
{
    Road road;
    ASSERT_NO_FATAL_FAILURE(travel(GetParam(), road));
    EXPECT_EQ(road.NumTerms, NumZernikes);
    EXPECT_LE(distanceFromTruth(TrueCoefficients(GetParam().Interferogram), road),
        GetParam().IsExact() ? ExactTolerance : NoisyTolerance);
    EXPECT_EQ(numTracedFringes(road.Fringes), CountFringes(GetParam().Interferogram));
}

// A sidecar that no longer tells the truth of its picture would mislead whoever compares with it.
// A JPEG may differ from one version of its library to the next.
TEST_P(SampleTruth, FilesAreThoseOfTheRecipe)
{
    const SampleRecipe& sample = GetParam();
    std::vector<std::uint8_t> sidecar, picture;
    ASSERT_TRUE(ReadWholeFile(pathOf(sample.SidecarName()), 1 << 20, sidecar));
    EXPECT_EQ(std::string(sidecar.begin(), sidecar.end()), SidecarText(sample.Interferogram));

    ASSERT_TRUE(ReadWholeFile(pathOf(sample.Name), 1 << 20, picture));
    if (sample.Format != PictureFormat::JpegGrey && sample.Format != PictureFormat::JpegColor) {
        const auto made = EncodePicture(
            MakeInterferogram(sample.Interferogram), sample.Interferogram.Size, sample.Format);
        EXPECT_TRUE(picture == made) << "make the samples anew";
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, SampleTruth, testing::ValuesIn(SampleRecipes()),
    [](const testing::TestParamInfo<SampleRecipe>& info) {
        std::string name = info.param.Name;
        for (char& letter : name)
            if (letter == '.' || letter == '-')
                letter = '_';
        return name;
    });

} // namespace
} // namespace morvane
