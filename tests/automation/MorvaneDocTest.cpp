#include "automation/MorvaneDoc.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "automation/Keywords.h"

namespace morvane {
namespace {

using enum MorvaneDocErrors;

const Variant none;
const Variant circle = std::string("circle");

Variant Text(const char* Value)
{
    return std::string(Value);
}
Variant Whole(int Value)
{
    return std::int64_t{Value};
}

// Four points of the circle of radius 180 around (200, 200).
const Variant circlePoints = std::vector<double>{20, 200, 380, 200, 200, 20, 200, 380};

template <typename T>
void ExpectError(const Raised<T>& Result, MorvaneDocErrors Number, const std::string& Text)
{
    ASSERT_FALSE(Result) << Text;
    EXPECT_EQ(Result.Error().Number, Number) << Text;
    EXPECT_EQ(Result.Error().Description, Text);
    EXPECT_EQ(Result.Error().Source, "MorvaneDoc");
}

class MorvaneDocMembers : public ::testing::Test {
protected:
    void SetUp() override
    {
        path = ::testing::TempDir() + "morvane_automation.bmp";
        WritePicture(VerticalFringes(400, 400, 20), path);
    }
    void LoadAndTrace()
    {
        ASSERT_TRUE(doc.Load(path).Value());
        ASSERT_TRUE(doc.SetAperture(circle, circlePoints).Value());
        ASSERT_TRUE(doc.AutoTrace(Text("Vertical"), none).Value());
    }

    SilentSession session;
    MorvaneDoc doc{session.Main};
    std::string path;
};

TEST_F(MorvaneDocMembers, NeedADocument)
{
    const auto text = [](const char* wish) {
        return std::string("Can't ") + wish + " until an interferogram has been loaded.";
    };
    ExpectError(doc.SetAperture(none, none), ErrorNoDocument, text("define an aperture"));
    ExpectError(doc.SetObstruction(none, none), ErrorNoDocument, text("define an obstruction"));
    ExpectError(doc.AutoTrace(none, none), ErrorNoDocument, text("trace fringes"));
    ExpectError(doc.Analyze(), ErrorNoDocument, text("perform analysis"));
    ExpectError(doc.Aberration(none), ErrorNoDocument, text("read aberrations"));
    ExpectError(doc.Zernike(none), ErrorNoDocument, text("read Zernike coefficients"));
    ExpectError(doc.FringeCenter(none, none), ErrorNoDocument, text("read fringe centers"));
    EXPECT_FALSE(doc.ExportMap(path + ".csv").Value());
}

TEST_F(MorvaneDocMembers, WindowMembersNeedADocumentFirst)
{
    const auto text = [](const char* wish) {
        return std::string("Can't ") + wish + " until an interferogram has been loaded.";
    };
    ExpectError(doc.GetZoom(), ErrorNoDocument, text("get zoom"));
    ExpectError(doc.SetZoom(none), ErrorNoDocument, text("set zoom"));
    ExpectError(doc.GetWidth(), ErrorNoDocument, text("get window dimensions"));
    ExpectError(doc.SizeWindow(none, none), ErrorNoDocument, text("size window"));
}

TEST_F(MorvaneDocMembers, ZoomTakesTheLevelsOfTheZoomBox)
{
    ASSERT_TRUE(doc.Load(path).Value());
    EXPECT_EQ(doc.GetZoom().Value(), 100);
    const struct {
        Variant Assigned;
        int Zoom;
    } cases[] = {{Whole(150), 150}, {Whole(33), 150}, {Text("50"), 50}, {25.0, 25}, {25.4, 25},
        {Whole(1600), 1600}, {Whole(0), 1600}, {-1e30, 1600}, {1e30, 1600}};
    for (const auto& c : cases) {
        EXPECT_TRUE(doc.SetZoom(c.Assigned));
        EXPECT_EQ(doc.GetZoom().Value(), c.Zoom);
    }
    for (const Variant& bad : {Text("large"), Variant(true), none, circlePoints})
        ExpectError(doc.SetZoom(bad), ErrorInvalidNumber,
            "The zoom factor must be assigned a numeric value.");
}

TEST_F(MorvaneDocMembers, SizeWindowKeepsThePlace)
{
    ASSERT_TRUE(doc.Load(path).Value());
    const WindowPlace before = doc.Document()->ImageView()->GetPlace();
    for (const auto& [width, height] :
        {std::pair{Whole(16), Whole(4096)}, {Text("640"), Variant(480.0)}}) {
        EXPECT_TRUE(doc.SizeWindow(width, height).Value());
        const WindowPlace place = doc.Document()->ImageView()->GetPlace();
        EXPECT_EQ(place.Left, before.Left);
        EXPECT_EQ(place.Top, before.Top);
    }
    EXPECT_EQ(doc.GetWidth().Value(), 640);
    EXPECT_EQ(doc.GetHeight().Value(), 480);
    const std::pair<Variant, Variant> bad[] = {{Whole(15), Whole(100)}, {Whole(100), Whole(4097)},
        {15.9, Whole(100)}, {Whole(100), 4096.1}, {Text("wide"), Whole(100)}, {Whole(100), none}};
    for (const auto& [width, height] : bad)
        ExpectError(doc.SizeWindow(width, height), ErrorNoDocument,
            "Specified window size is non-numeric or out of range.");
    EXPECT_EQ(doc.GetWidth().Value(), 640);
}

TEST_F(MorvaneDocMembers, RaiseTheirErrorsInOrder)
{
    ASSERT_TRUE(doc.Load(path).Value());
    ExpectError(doc.AutoTrace(Text("vertical"), none), ErrorNoAperture,
        "Can't trace fringe centers until an aperture is defined.");
    ExpectError(doc.AutoTrace(Whole(2), Text("finest")), ErrorInvalidFringeDensity,
        "Invalid trace density parameter passed to AutoTrace.");
    ExpectError(doc.AutoTrace(Whole(2), Whole(4)), ErrorInvalidTraceDirection,
        "Invalid trace direction parameter.");
    ExpectError(doc.Analyze(), ErrorNoAperture,
        "Can't perform analysis until an interferogram has been loaded.");
    ASSERT_TRUE(doc.SetAperture(circle, circlePoints).Value());
    ExpectError(doc.Analyze(), ErrorNoFringeCenters,
        "Can't perform analysis until fringe centers have been traced.");
    ExpectError(
        doc.FringeCenter(Whole(1), Whole(1)), ErrorInvalidFringeOrder, "Invalid fringe order.");
    ASSERT_TRUE(doc.AutoTrace(Text("v"), Text("coarse")).Value());
    ExpectError(
        doc.FringeCenter(Whole(1), Whole(0)), ErrorInvalidFringeIndex, "Invalid fringe index.");
    ExpectError(doc.FringeCenter(1.5, Whole(1)), ErrorInvalidFringeOrder, "Invalid fringe order.");
    ExpectError(doc.Load(path + ".absent"), ErrorInvalidPath, "Specified file does not exist.");
    ExpectError(doc.Load(Whole(3)), ErrorInvalidPath, "Specified file does not exist.");
    for (const Variant& bad : {Whole(0), Whole(37), Variant(1.5), Text("first"), none})
        ExpectError(doc.Zernike(bad), ErrorInvalidNumber,
            "Zernike polynomial coefficients must be specified using the integers 1-36.");
    for (const Variant& bad : {Whole(11), Whole(-1), Variant(0.5), Text("tilts"), none})
        ExpectError(
            doc.Aberration(bad), ErrorInvalidAberration, "Invalid aberration type parameter.");
}

TEST_F(MorvaneDocMembers, CheckShapesInOrder)
{
    ASSERT_TRUE(doc.Load(path).Value());
    const auto list = [](std::size_t count) { return Variant(std::vector<double>(count, 5)); };
    std::vector<double> infinite = std::get<std::vector<double>>(circlePoints);
    infinite[2] = std::numeric_limits<double>::infinity();
    const std::string invalid = "Invalid points array passed to SetShape().";
    ExpectError(doc.SetAperture(Text("blob"), Text("points")), ErrorInvalidType,
        "Control points must be specified using an array.");
    ExpectError(
        doc.SetAperture(Text("blob"), list(8)), ErrorInvalidShape, "Invalid shape type parameter.");
    ExpectError(
        doc.SetAperture(Whole(4), list(8)), ErrorInvalidShape, "Invalid shape type parameter.");
    ExpectError(doc.SetAperture(Text("Circle"), list(7)), ErrorInvalidPoints,
        "An ellipse is defined by four points.");
    ExpectError(doc.SetObstruction(Whole(2), list(5)), ErrorInvalidPoints,
        "An ellipse is defined by three points.");
    ExpectError(doc.SetAperture(Text("polygon"), list(9)), ErrorInvalidPoints, invalid);
    ExpectError(doc.SetAperture(Text("polygon"), list(102)), ErrorInvalidPoints, invalid);
    ExpectError(doc.SetAperture(circle, infinite), ErrorInvalidPoints, invalid);
    EXPECT_TRUE(doc.SetAperture(circle, circlePoints).Value());
    EXPECT_EQ(doc.Document()->Aperture.GetRadii(), (Point{180, 180}));
}

TEST_F(MorvaneDocMembers, GoTheWholeRoad)
{
    LoadAndTrace();
    ASSERT_TRUE(doc.SetScaleFactor(Whole(1)).Value());
    ASSERT_TRUE(doc.SetRemove(Text("tilt"), false));
    ASSERT_TRUE(doc.Analyze().Value());
    EXPECT_TRUE(session.Answerer.Asked.empty());
    // One order every 20 columns of a radius of 180.
    EXPECT_NEAR(doc.Zernike(Whole(1)).Value(), 9, 0.01);
    EXPECT_NEAR(doc.Aberration(Text("Tilt")).Value(), 9, 0.01);
    EXPECT_NEAR(doc.Aberration(Text("TILT ANGLE")).Value(), 0, 0.1);
    ASSERT_TRUE(doc.SetOutputWavelength(316.4));
    ASSERT_TRUE(doc.Analyze().Value());
    EXPECT_NEAR(doc.Aberration(Whole(0)).Value(), 18, 0.02);
    EXPECT_EQ(doc.Aberration(Text("rms")).Value(), 2 * doc.Document()->Figures.RMS);
    EXPECT_EQ(doc.Aberration(Text("strehl")).Value(), doc.Document()->Figures.Strehl);
    EXPECT_EQ(doc.Aberration(Text("s.a.")).Value(), doc.Aberration(Whole(7)).Value());

    const FringeCenterResult center = doc.FringeCenter(Whole(1), Whole(1)).Value();
    EXPECT_TRUE(center.Ok);
    EXPECT_EQ(std::fmod(center.X, 20), 10);

    const std::string map = ::testing::TempDir() + "morvane_map.csv";
    EXPECT_TRUE(doc.ExportMap(map).Value());
    std::ifstream lines(map);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count)
        EXPECT_EQ(std::count(line.begin(), line.end(), ','), 99);
    EXPECT_EQ(count, 100);
    EXPECT_FALSE(doc.ExportMap(::testing::TempDir() + "no/such/folder.csv").Value());
}

TEST_F(MorvaneDocMembers, AWarningOfApplyIsFalseAndWaitsForNobody)
{
    LoadAndTrace();
    ASSERT_TRUE(doc.SetScaleFactor(2000.0));
    const UnattendedScope alone(session.Main);
    EXPECT_FALSE(doc.Analyze().Value());
}

TEST_F(MorvaneDocMembers, AnalyzeKeepsTheOptionsOfTheScript)
{
    LoadAndTrace();
    ASSERT_TRUE(doc.Analyze().Value());
    MorvaneDoc other(session.Main);
    ASSERT_TRUE(other.Load(path).Value());
    ASSERT_TRUE(doc.SetScaleFactor(0.125));
    ASSERT_TRUE(doc.Analyze().Value());
    EXPECT_EQ(session.Main.Active(), doc.Document().get());
    EXPECT_EQ(doc.GetScaleFactor(), 0.125);
    EXPECT_EQ(doc.Document()->ZScale, 0.125);
}

TEST_F(MorvaneDocMembers, ASecondLoadClearsAndKeepsTheSlot)
{
    LoadAndTrace();
    ASSERT_TRUE(doc.Analyze().Value());
    const int slot = doc.Document()->DocNumber;
    doc.Document()->Optic.Operator = "somebody else";
    doc.Document()->Averaged = true;
    const std::string small = ::testing::TempDir() + "morvane_automation_small.bmp";
    WritePicture(VerticalFringes(100, 80, 10), small);
    EXPECT_TRUE(doc.Load(small).Value());
    EXPECT_EQ(doc.Document()->DocNumber, slot);
    EXPECT_EQ(session.Main.NumOpenDocuments(), 1);
    EXPECT_EQ(doc.Document()->Fringes.NumFringes(), 0);
    EXPECT_EQ(doc.Document()->Aperture.GetShapeType(), ShapeKind::None);
    EXPECT_FALSE(doc.Document()->OutputViewsExist());
    EXPECT_FALSE(doc.Document()->Averaged);
    EXPECT_EQ(doc.Document()->Optic, UserData());
    EXPECT_EQ(doc.Zernike(Whole(1)).Value(), 0);
    EXPECT_EQ(doc.Document()->GetImageSize(), (RasterSize{100, 80}));

    const std::string broken = ::testing::TempDir() + "morvane_automation_broken.bmp";
    WriteWholeFile(broken, "BM and nothing more");
    EXPECT_FALSE(doc.Load(broken).Value());
    EXPECT_EQ(doc.Document()->Title, "morvane_automation_small.bmp");
    MorvaneDoc fresh(session.Main);
    EXPECT_FALSE(fresh.Load(broken).Value());
    EXPECT_EQ(session.Main.NumOpenDocuments(), 1);
    WriteWholeFile(broken + ".gif", "GIF89a");
    EXPECT_FALSE(fresh.Load(broken + ".gif").Value());
}

TEST_F(MorvaneDocMembers, ADocumentThatTheUserClosedIsNone)
{
    LoadAndTrace();
    session.Main.CloseDocument(*doc.Document());
    EXPECT_EQ(doc.Zernike(Whole(1)).Error().Number, ErrorNoDocument);
    EXPECT_TRUE(doc.Load(path).Value());
    EXPECT_TRUE(doc.Zernike(Whole(1)));
}

TEST_F(MorvaneDocMembers, OptionsKeepTheirTwoScales)
{
    const struct {
        Variant Assigned;
        int Read;
    } limits[] = {
        {Text("Auto"), 0}, {Whole(8), 24}, {Whole(6), 15}, {Whole(4), 8}, {2.0, 2}, {Whole(0), 0}};
    for (const auto& limit : limits) {
        ASSERT_TRUE(doc.SetOrderLimit(limit.Assigned));
        EXPECT_EQ(doc.GetOrderLimit(), limit.Read);
    }
    for (const Variant& bad : {Whole(24), Whole(3), Text("eighth"), none, Variant(2.5)})
        ExpectError(doc.SetOrderLimit(bad), ErrorInvalidNumber,
            "Zernike Order Limit must be specified usiong an integer.");
    for (const double scale : {0.5, 1.0, 0.25}) {
        ASSERT_TRUE(doc.SetScaleFactor(scale));
        EXPECT_EQ(doc.GetScaleFactor(), scale);
    }
    ExpectError(doc.SetScaleFactor(Text("half")), ErrorInvalidType,
        "Scale Factors must be specified using a numeric data type.");
    ASSERT_TRUE(doc.SetInputWavelength(Text("543.5")));
    EXPECT_EQ(doc.GetInputWavelength(), 543.5);
    ExpectError(doc.SetInputWavelength(true), ErrorInvalidNumber,
        "The input wavelength must be assigned a numeric value.");
    ExpectError(doc.SetOutputWavelength(Text("green")), ErrorInvalidNumber,
        "The output wavelength must be assigned a numeric value.");
    EXPECT_EQ(doc.GetOutputWavelength(), 632.8);
    ExpectError(doc.SetTrimEdges(Whole(1)), ErrorInvalidBoolean,
        "The 'Trim Edges' property must be assigned a boolean value.");
    ExpectError(doc.SetInvertWavefront(Text("yes")), ErrorInvalidBoolean,
        "The 'Invert Wavefront' property must be assigned a boolean value.");
    ASSERT_TRUE(doc.SetTrimEdges(false));
    EXPECT_FALSE(doc.GetTrimEdges());
}

TEST_F(MorvaneDocMembers, RemoveTakesTheTermsThatCanBe)
{
    for (const int type : {0, 2, 3, 5, 7}) {
        ASSERT_TRUE(doc.SetRemove(Whole(type), false));
        EXPECT_FALSE(doc.GetRemove(Whole(type)).Value());
        ASSERT_TRUE(doc.SetRemove(Whole(type), true));
        EXPECT_TRUE(doc.GetRemove(Whole(type)).Value());
    }
    EXPECT_EQ(session.Main.Analyze.Options().Removed, (RemoveFlags{true, true, true, true, true}));
    for (const Variant& bad : {Whole(1), Whole(4), Whole(8), Text("rms"), none})
        ExpectError(
            doc.SetRemove(bad, none), ErrorInvalidAberration, "Invalid aberration type parameter.");
    ExpectError(doc.SetRemove(Text("COMA"), Whole(1)), ErrorInvalidBoolean,
        "The 'Remove' property must be assigned a boolean value.");
}

} // namespace
} // namespace morvane
