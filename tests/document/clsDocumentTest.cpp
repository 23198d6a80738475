#include "document/clsDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <utility>

#include "FringePicture.h"
#include "RecordingFrame.h"

namespace morvane {
namespace {

// A document with a picture of 400 x 400, fringes every 20 columns, an aperture of radius 180, and
// those fringes traced: orders 1, 2, ... every 20 columns.
class TracedDocument : public ::testing::Test {
protected:
    void SetUp() override
    {
        const std::string path = ::testing::TempDir() + "morvane_document.bmp";
        WritePicture(VerticalFringes(400, 400, 20), path);
        document = session.Main.OpenPicture(path, true);
        ASSERT_NE(document, nullptr);
        SetCircle(document->Aperture, 200, 200, 180);
        document->InvalidateMask();
        ASSERT_TRUE(document->AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal));
    }

    SilentSession session;
    std::shared_ptr<clsDocument> document;
};

// One order every 20 columns is 180 / 20 = 9 waves of x tilt per radius, half that in double pass.
constexpr double tiltPerOrder = 9;
constexpr double traceTolerance = 0.01; // ticks lie on whole columns

TEST_F(TracedDocument, TiltFollowsFromTheFringeSpacing)
{
    document->ZScale = 0.5;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_TRUE(document->AnalysisValid);
    EXPECT_NEAR(document->Zernike(1), tiltPerOrder, traceTolerance);
    EXPECT_NEAR(document->ZernikeFiltered(1), tiltPerOrder / 2, traceTolerance);
    EXPECT_NEAR(document->Kingslake(1), tiltPerOrder / 2, traceTolerance);
    EXPECT_EQ(document->Zernike(0), 0);
    EXPECT_EQ(document->Zernike(37), 0);
    EXPECT_EQ(document->Kingslake(9), 0);
}

TEST_F(TracedDocument, ResultsThatLeaveTheirRangeAreNone)
{
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    const ZernikeSet fitted = document->GetZernikes();
    for (const double factor : {1e200, 1e308}) {
        document->AnalysisValid = true;
        document->ZScale = factor;
        EXPECT_FALSE(document->UpdateAnalysis(true, true));
        EXPECT_EQ(session.Answerer.TakeOnly(), "The wavefront is too large to be analyzed");
        EXPECT_FALSE(document->AnalysisValid);
        EXPECT_TRUE(std::isnan(document->Figures.RMS) && std::isnan(document->Figures.PV));
    }
    document->ZScale = 1;
    EXPECT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_GT(document->Figures.RMS, 1);
    EXPECT_EQ(document->GetZernikes(), fitted);
}

TEST_F(TracedDocument, CentersOutsideOfTheApertureAreNoPerfectOptic)
{
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    const ZernikeSet fitted = document->GetZernikes();
    document->Fringes.DeleteAll();
    int index = document->Fringes.AddOrder(1);
    for (int i = 0; i < 10; ++i)
        document->Fringes.AddCenter(1, {1e308, -1e308}, index);
    document->AnalysisValid = false;
    EXPECT_FALSE(document->UpdateAnalysis(true, true));
    EXPECT_EQ(session.Answerer.TakeOnly(), "No fringe centers to analyze");
    EXPECT_EQ(document->GetZernikes(), fitted);
    EXPECT_GT(document->Figures.RMS, 1);
}

TEST_F(TracedDocument, RemovedTermsLeaveTheFiguresAndTheSurfaceButNotTheFringes)
{
    document->Removed.Tilt = true;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_EQ(document->Kingslake(1), 0);
    EXPECT_LT(document->Figures.RMS, traceTolerance);
    for (const double height : document->Maps().Surface)
        EXPECT_TRUE(height == NoData || std::abs(height) < 0.1) << height;
    double brightest = 0;
    for (const double intensity : document->Maps().Fringes)
        if (intensity != NoData)
            brightest = std::max(brightest, intensity);
    EXPECT_GT(brightest, 1.9);
}

TEST_F(TracedDocument, DisplayScaleMultipliesSurfaceAndProfileAlone)
{
    document->ZScale = 1;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    const AnalysisMaps plain = document->Maps();
    const double rms = document->Figures.RMS;
    document->DisplayScale = 3;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    const AnalysisMaps scaled = document->Maps();
    ASSERT_EQ(scaled.Surface.size(), 900u);
    ASSERT_EQ(scaled.Fringes.size(), 22500u);
    for (std::size_t i = 0; i < plain.Surface.size(); ++i)
        EXPECT_DOUBLE_EQ(
            scaled.Surface[i], plain.Surface[i] == NoData ? NoData : 3 * plain.Surface[i]);
    EXPECT_NE(plain.ProfileY[50], NoData);
    EXPECT_DOUBLE_EQ(scaled.ProfileY[50], 3 * plain.ProfileY[50]);
    EXPECT_EQ(scaled.Fringes, plain.Fringes);
    EXPECT_EQ(document->Figures.RMS, rms);
}

TEST_F(TracedDocument, ReferenceIsSubtractedFromEachFitOnce)
{
    ZernikeSet reference{};
    reference[0] = 2;
    document->SetRefZernikes(reference);
    EXPECT_FALSE(document->AnalysisValid);
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_NEAR(document->Zernike(1), tiltPerOrder - 2, traceTolerance);
    document->AnalysisValid = false;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_NEAR(document->Zernike(1), tiltPerOrder - 2, traceTolerance);
}

TEST_F(TracedDocument, FewerThanFourTicksKeepTheCoefficients)
{
    document->Fringes.DeleteAll();
    const Point ticks[] = {{180, 200}, {200, 200}, {220, 190}};
    document->Fringes.InsertOrder(1, ticks);
    ZernikeSet before{};
    before[4] = 0.25;
    document->SetZernikes(before);
    document->SetRefZernikes(before);
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_EQ(document->GetZernikes(), before);
    EXPECT_EQ(document->nDataPts, 3);
}

TEST_F(TracedDocument, InvertNegatesTheFit)
{
    document->InvertWavefront = true;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_NEAR(document->Zernike(1), -tiltPerOrder, traceTolerance);
}

TEST_F(TracedDocument, AnAverageTakesItsCoefficientsWithoutTicks)
{
    ZernikeSet average{};
    average[2] = 0.5;
    document->Fringes.DeleteAll();
    document->SetZernikes(average);
    document->Averaged = true;
    document->ZScale = 1;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_EQ(document->GetZernikes(), average);
    EXPECT_DOUBLE_EQ(document->Kingslake(3), 1.0);
    EXPECT_TRUE(session.Answerer.Asked.empty());
}

TEST_F(TracedDocument, NoTicksAreReportedAndOldResultsStay)
{
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    const AnalysisMaps maps = document->Maps();
    document->Fringes.DeleteAll();
    document->InvalidateMask();
    EXPECT_FALSE(document->UpdateAnalysis(true, true));
    EXPECT_EQ(session.Answerer.TakeOnly(), "No fringe centers to analyze");
    EXPECT_FALSE(document->AnalysisValid);
    EXPECT_EQ(document->Maps().Surface, maps.Surface);
}

TEST_F(TracedDocument, MapIsWavesBeforeDisplayScale)
{
    document->DisplayScale = 7;
    document->ZScale = 1;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    const std::vector<double> map = document->GetSurfaceMap();
    EXPECT_EQ(map[0], NoData);
    // Node (75, 50) lies at x = (75 - 49.5) / 49.5 of the radius.
    EXPECT_NEAR(map[50 * 100 + 75], tiltPerOrder * 25.5 / 49.5, 0.05);
}

TEST_F(TracedDocument, FringesAreErasedAfterAYes)
{
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    session.Answerer.Answers = {MessageAnswer::No, MessageAnswer::Yes};
    document->ClearFringes();
    EXPECT_GT(document->Fringes.NumFringes(), 0);
    EXPECT_TRUE(document->AnalysisValid);
    EXPECT_EQ(session.Answerer.TakeOnly(), "Current fringe centers will be erased. Continue?");
    document->ClearFringes();
    EXPECT_EQ(document->Fringes.NumFringes(), 0);
    EXPECT_FALSE(document->AnalysisValid);
    session.Answerer.Asked.clear();
    document->Modified = false;
    document->ClearFringes();
    EXPECT_TRUE(session.Answerer.Asked.empty());
    EXPECT_TRUE(document->Modified);
}

TEST_F(TracedDocument, TraceNeedsAnApertureAndAPicture)
{
    const int ticks = document->Fringes.TotalNumTicks();
    document->Aperture.Delete();
    EXPECT_FALSE(document->AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal));
    EXPECT_EQ(session.Answerer.TakeOnly(), "Set aperture before automatic fringe tracing");
    SetCircle(document->Aperture, 200, 200, 180);
    document->LoadBlankImage(NoSize, NoSize);
    EXPECT_FALSE(document->AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal));
    EXPECT_EQ(document->Fringes.TotalNumTicks(), ticks);
    EXPECT_EQ(document->GetIntensity(5, 5), -1);
    EXPECT_FALSE(document->HasImageBuffer());
}

TEST(clsDocumentTrace, TooManyFringesAreToldAndThoseFoundStay)
{
    SilentSession session;
    clsDocument document(session.Main);
    const std::string path = ::testing::TempDir() + "morvane_many.bmp";
    WritePicture(VerticalFringes(4200, 360, 20), path);
    ASSERT_TRUE(document.LoadFileIntoDataBuffer(path, false));
    const Point corners[] = {{2, 2}, {4197, 2}, {4197, 357}, {2, 357}};
    document.Aperture.Save(ShapeKind::Polygon, corners);
    EXPECT_TRUE(document.AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal));
    ASSERT_EQ(session.Answerer.Asked.size(), 1u);
    EXPECT_EQ(session.Answerer.Asked[0].Title, "Error");
    EXPECT_EQ(session.Answerer.TakeOnly(), "Too many fringes");
    EXPECT_EQ(document.Fringes.NumFringes(), 200);
}

// The coefficients are given, so the figures are computed on a mask that has no cell or all of
// them.
TEST_F(TracedDocument, UselessAperturesGiveFiguresThatAreNumbers)
{
    ZernikeSet tilt{};
    tilt[0] = 1;
    document->SetZernikes(tilt);
    document->Averaged = true;
    const struct {
        const char* Name;
        double X, Y, Radius;
    } cases[] = {
        {"far outside", 1e9, -1e9, 50},
        {"a tenth of a pixel", 200.5, 200.5, 0.05},
    };
    for (const auto& c : cases) {
        SetCircle(document->Aperture, c.X, c.Y, c.Radius);
        document->InvalidateMask();
        document->AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal);
        ASSERT_TRUE(document->UpdateAnalysis(true, true)) << c.Name;
        EXPECT_EQ(document->Figures.RMS, 0) << c.Name;
        EXPECT_EQ(document->Figures.PV, 0) << c.Name;
        EXPECT_EQ(document->Figures.Strehl, 0) << c.Name;
        EXPECT_EQ(document->Fringes.TotalNumTicks(), 0) << c.Name;
    }
    SetCircle(document->Aperture, 200, 200, 1e300);
    document->InvalidateMask();
    EXPECT_TRUE(document->AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal));
    document->UpdateAnalysis(true, true);
    EXPECT_TRUE(std::isfinite(document->Figures.RMS));
}

TEST_F(TracedDocument, WithoutMemoryForTheMapsNothingChanges)
{
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    const ZernikeSet before = document->GetZernikes();
    document->InvertWavefront = true;
    document->AnalysisValid = false;
    document->Modified = false;
    document->xSurfaceSize = document->ySurfaceSize = NoSize;
    EXPECT_FALSE(document->UpdateAnalysis(true, false));
    EXPECT_EQ(document->GetZernikes(), before);
    EXPECT_FALSE(document->AnalysisValid);
    EXPECT_FALSE(document->Modified);
}

TEST(clsDocumentPicture, SmallPicturesAreTracedAtDoubleScaleAndAnalysedAtTheirOwn)
{
    SilentSession session;
    const std::string path = ::testing::TempDir() + "morvane_small.bmp";
    WritePicture(VerticalFringes(349, 400, 20), path);
    const auto document = session.Main.OpenPicture(path, true);
    SetCircle(document->Aperture, 174, 200, 160);
    document->InvalidateMask();
    ASSERT_TRUE(document->AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Normal));
    EXPECT_TRUE(document->Analysis.Mask.HalfSize);
    EXPECT_EQ(document->Analysis.Mask.Width(), 698);
    document->ZScale = 1;
    ASSERT_TRUE(document->UpdateAnalysis(true, true));
    EXPECT_FALSE(document->Analysis.Mask.HalfSize);
    EXPECT_EQ(document->Analysis.Mask.Width(), 349);
    EXPECT_NEAR(document->Zernike(1), 8, traceTolerance);

    const std::vector<double> map = document->GetSurfaceMap();
    ASSERT_TRUE(document->AutoTraceFringes(FringeDirection::Vertical, FringeDensity::Fine));
    EXPECT_TRUE(document->Analysis.Mask.HalfSize);
    EXPECT_EQ(document->GetSurfaceMap(), map) << "exports bring the mask back to image size";
}

TEST(clsDocumentPicture, AFailedLoadTellsFileAndReasonAndKeepsThePicture)
{
    SilentSession session;
    const std::string good = ::testing::TempDir() + "morvane_good.bmp";
    const std::string text = ::testing::TempDir() + "morvane_text.bmp";
    const std::string cut = ::testing::TempDir() + "morvane_cut.bmp";
    const ImageBuffer picture = VerticalFringes(40, 30, 8);
    WritePicture(picture, good);
    WriteWholeFile(text, "no picture at all, but long enough to look like one to a hurried reader");
    WriteWholeFile(cut, BmpFromBuffer(picture).substr(0, 1500));
    const auto document = session.Main.OpenPicture(good, false);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->Title, "morvane_good.bmp");

    EXPECT_FALSE(document->LoadFileIntoDataBuffer(text, false));
    EXPECT_EQ(session.Answerer.TakeOnly(), "Could not load image file " + text);
    EXPECT_FALSE(document->LoadFileIntoDataBuffer(cut, false));
    const std::string message = session.Answerer.TakeOnly();
    EXPECT_EQ(
        message.find("Could not open image file " + document->Directory + "\r\n" + cut + ": "), 0u)
        << message;
    EXPECT_FALSE(document->LoadFileIntoDataBuffer(::testing::TempDir(), true));
    EXPECT_TRUE(session.Answerer.Asked.empty());

    EXPECT_EQ(document->Image().Pixels, picture.Pixels);
    EXPECT_EQ(document->Title, "morvane_good.bmp");
    EXPECT_EQ(document->GetIntensity(39, 29), picture.Pixels.back());
    EXPECT_EQ(document->GetIntensity(40, 29), -1);
    EXPECT_EQ(document->GetIntensity(-1, 0), -1);
}

TEST(clsDocumentViews, OutputViewsFollowTheirFlags)
{
    SilentSession session;
    clsDocument document(session.Main);
    document.OutputViews_UpdateVisibility(Activation::LeaveFocus);
    EXPECT_TRUE(session.Frame.Log.Lines.empty());
    document.Title = "mirror.bmp";
    ASSERT_TRUE(document.CreateOutputViews());
    EXPECT_TRUE(document.Visible.Aberrations);
    EXPECT_FALSE(document.Visible.Zernikes);
    EXPECT_TRUE(session.Frame.Log.Has("Aberrations: caption Aberrations - mirror.bmp"));
    session.Frame.Log.Lines.clear();
    document.OutputViews_UpdateVisibility(Activation::LeaveFocus);
    EXPECT_EQ(session.Frame.Log.Lines,
        (std::vector<std::string>{
            "Zernikes: hide", "GridResults: hide", "Aberrations: show", "LineProfile: hide"}));
}

class clsDocumentAllViews : public testing::Test {
protected:
    clsDocumentAllViews()
    {
        session.Main.Prefs.Visible = {true, true, true, true, true, true, true};
        session.Main.Prefs.CascadeX = 4;
        session.Main.Prefs.CascadeY = 30;
        session.Main.Prefs.Places.Zernikes = {100, 200, 300, 250};
    }
    std::vector<std::string> TakeLog() { return std::exchange(session.Frame.Log.Lines, {}); }
    static WindowPlace PlaceOf(const clsDocument& Document)
    {
        return Document.View(ViewType::Zernikes)->GetPlace();
    }

    SilentSession session;
    clsDocument document{session.Main};
};

TEST_F(clsDocumentAllViews, AreShownHiddenAndRepaintedInTheirOrders)
{
    using Lines = std::vector<std::string>;
    ASSERT_TRUE(document.CreateOutputViews());
    TakeLog();
    document.OutputViews_ShowNoActivate();
    EXPECT_EQ(TakeLog(),
        (Lines{"Zernikes: show", "Aberrations: show", "LineProfile: show", "GridResults: show"}));
    document.OutputViews_HideAll();
    EXPECT_EQ(TakeLog(),
        (Lines{"Zernikes: hide", "Aberrations: hide", "LineProfile: hide", "GridResults: hide"}));
    document.Visible.Aberrations = false;
    document.OutputViews_Refresh();
    EXPECT_EQ(
        TakeLog(), (Lines{"Zernikes: repaint", "GridResults: repaint", "LineProfile: repaint"}));
    for (const int kind : {0, 1, 2, 4, 7, 8, 10})
        document.OutputViews_Select(static_cast<ViewType>(kind));
    EXPECT_EQ(TakeLog(), (Lines{"Zernikes: raise"})) << "hidden, missing and unknown ones are not";
}

TEST_F(clsDocumentAllViews, StandAtTheSharedPlacesOrCascade)
{
    const WindowPlace shared = session.Main.Prefs.Places.Zernikes;
    ASSERT_TRUE(document.CreateOutputViews());
    EXPECT_EQ(PlaceOf(document), shared);
    session.Main.Prefs.HogWindows = false;
    for (int step = 1; step <= 2; ++step) {
        clsDocument next{session.Main};
        ASSERT_TRUE(next.CreateOutputViews());
        EXPECT_EQ(PlaceOf(next), (WindowPlace{100 + 4 * step, 200 + 30 * step, 300, 250}));
    }
    document.OutputViews_Offset(5, -7, false);
    EXPECT_EQ(PlaceOf(document), (WindowPlace{105, 193, 300, 250}));
}

TEST_F(clsDocumentAllViews, TakeNoSizeThatCannotBeUsed)
{
    ASSERT_TRUE(document.CreateOutputViews());
    const WindowPlace own{10, 20, 300, 200};
    document.View(ViewType::Zernikes)->SetPlace(own);
    for (const WindowPlace& kept : {WindowPlace{1, 2, 59, 300}, {1, 2, 300, 39}, {1, 2, 1, 1}}) {
        session.Main.Prefs.Places.Zernikes = kept;
        document.OutputViews_TakePlaces();
        EXPECT_EQ(PlaceOf(document), own) << kept.Width << " x " << kept.Height;
    }
    session.Main.Prefs.Places.Zernikes = {1, 2, 60, 40};
    document.OutputViews_TakePlaces();
    EXPECT_EQ(PlaceOf(document), (WindowPlace{1, 2, 60, 40}));
}

TEST_F(clsDocumentAllViews, GiveTheirPlacesToTheCommonWorkspaceOnly)
{
    ASSERT_TRUE(document.CreateOutputViews());
    document.Visible.LineProfile = false;
    for (const bool common : {false, true}) {
        session.Main.Prefs.HogWindows = common;
        session.Main.Prefs.Places.Zernikes = {1, 2, 3, 4};
        document.OutputViews_GiveGlobals();
        EXPECT_FALSE(session.Main.Prefs.Visible.LineProfile);
        EXPECT_EQ(session.Main.Prefs.Places.Zernikes == PlaceOf(document), common);
    }
}

TEST_F(clsDocumentAllViews, AnotherAngleRenewsTheProfileAlone)
{
    ASSERT_TRUE(document.CreateOutputViews());
    document.RefreshLineViewData(45);
    EXPECT_EQ(document.LineProfileAngle, 0) << "nothing has been analysed";
    document.LoadBlankImage(200, 200);
    SetCircle(document.Aperture, 100, 100, 80);
    document.Averaged = true;
    ZernikeSet tilt{};
    tilt[0] = 1;
    document.SetZernikes(tilt);
    ASSERT_TRUE(document.UpdateAnalysis(true, true));
    document.Modified = false;
    const double alongX = document.Maps().ProfileY.back();
    TakeLog();
    document.RefreshLineViewData(90);
    EXPECT_EQ(TakeLog(), (std::vector<std::string>{"LineProfile: profile at 90"}));
    EXPECT_TRUE(document.Modified);
    EXPECT_GT(alongX, 0.4);
    EXPECT_NEAR(document.Maps().ProfileY.back(), 0, 1e-12) << "across the tilt it is level";

    document.Aperture.Delete();
    document.InvalidateMask();
    document.RefreshLineViewData(0);
    EXPECT_EQ(document.Maps().ProfileY.back(), alongX) << "the results are still shown";
}

TEST(DisplayScale, FollowsUnitAndWavelengths)
{
    EXPECT_DOUBLE_EQ(DisplayScaleOf(DisplayUnit::Waves, 632.8, 632.8), 1);
    EXPECT_DOUBLE_EQ(DisplayScaleOf(DisplayUnit::Waves, 632.8, 316.4), 2);
    EXPECT_DOUBLE_EQ(DisplayScaleOf(DisplayUnit::Micrometers, 632.8, 500), 0.6328);
    EXPECT_DOUBLE_EQ(DisplayScaleOf(DisplayUnit::Microinches, 632.8, 500), 24.913385826771654);
}

} // namespace
} // namespace morvane
