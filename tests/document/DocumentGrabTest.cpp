#include <gtest/gtest.h>

#include "RecordingFrame.h"
#include "document/LittleEndian.h"
#include "plugins/TestPlugin.h"

namespace morvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

class DocumentGrab : public ::testing::Test {
protected:
    void SetUp() override
    {
        host.Search(TEST_PLUGIN_FOLDER);
        ASSERT_EQ(host.Load(host.Find("Scripted")), "");
    }
    bool Grab() { return document->GrabIntoDataBuffer(host); }

    TestPluginScript& script = NewTestScript();
    GrabberHost host;
    SilentSession session;
    std::shared_ptr<clsDocument> document = session.Main.NewDocument();
};

TEST_F(DocumentGrab, TakesFramesOfBothDepthsFromTheTop)
{
    const struct {
        const char* Name;
        int Width, Height, Bits;
        Bytes Rows, Pixels;
    } cases[] = {
        {"8 bits with padding", 3, 2, 8, {4, 5, 6, 99, 1, 2, 3, 99}, {1, 2, 3, 4, 5, 6}},
        {"8 bits, full range", 4, 1, 8, {0, 1, 254, 255}, {0, 1, 254, 255}},
        {"24 bits without thirds", 1, 2, 24, {10, 20, 32, 99, 0, 0, 2, 99}, {0, 20}},
        {"24 bits white", 4, 1, 24, Bytes(12, 255), {255, 255, 255, 255}},
    };
    for (const auto& c : cases) {
        Deliver(script, c.Width, c.Height, TestFrame(c.Width, c.Height, c.Bits, c.Rows));
        ASSERT_TRUE(Grab()) << c.Name;
        EXPECT_EQ(document->Image().Pixels, c.Pixels) << c.Name;
        EXPECT_EQ(document->GetImageSize(), (RasterSize{c.Width, c.Height})) << c.Name;
    }
    EXPECT_TRUE(session.Answerer.Asked.empty());
}

TEST_F(DocumentGrab, MakesThePictureNewAndTheAnalysisStale)
{
    document->LoadBlankImage(NoSize, NoSize);
    document->AnalysisValid = document->Analysis.Mask.MaskValid = true;
    document->Modified = false;
    DeliverGoodFrame(script);
    ASSERT_TRUE(Grab());
    EXPECT_TRUE(document->ImageDirty && document->Modified);
    EXPECT_FALSE(document->BlankImage || document->AnalysisValid);
    EXPECT_FALSE(document->Analysis.Mask.MaskValid);
}

TEST_F(DocumentGrab, StretchesByThePreferredRatio)
{
    DeliverGoodFrame(script);
    session.Main.Prefs.GrabAspectRatio = 2;
    ASSERT_TRUE(Grab());
    EXPECT_EQ(document->GetImageSize(), (RasterSize{10, 2}));
    EXPECT_EQ(document->GetIntensity(2, 0), 20);
    session.Main.Prefs.GrabAspectRatio = 1e-9;
    ASSERT_TRUE(Grab());
    EXPECT_EQ(document->GetImageSize(), (RasterSize{5, 2}));
    EXPECT_EQ(
        session.Answerer.TakeOnly(), "The picture is not stretched: it would become too large");
}

TEST_F(DocumentGrab, CodesTheSizesThatAreNotThere)
{
    for (int code = 1; code <= 7; ++code)
        for (const int absent : {0, -5}) {
            DeliverGoodFrame(script);
            if (code & 1)
                script.Width = absent;
            if (code & 2)
                script.Height = absent;
            if (code & 4)
                script.Bytes = absent;
            EXPECT_FALSE(Grab());
            ASSERT_EQ(session.Answerer.Asked.size(), 1u);
            EXPECT_EQ(session.Answerer.Asked[0].Title, "Error");
            EXPECT_EQ(session.Answerer.TakeOnly(),
                "Frame grabber not ready [" + std::to_string(code) + "]");
        }
}

TEST_F(DocumentGrab, RefusesWhatDoesNotAgreeAndKeepsThePicture)
{
    DeliverGoodFrame(script);
    ASSERT_TRUE(Grab());
    const Bytes before = document->Image().Pixels;
    const auto header = [this](std::size_t offset, std::uint32_t value) {
        StoreU32(script.Frame.data() + offset, value);
    };
    const struct {
        const char* Name;
        std::function<void()> Spoil;
    } cases[] = {
        {"no header", [&] { header(0, 0); }},
        {"wider", [&] { header(4, 6); }},
        {"higher", [&] { header(8, 3); }},
        {"top-down", [&] { header(8, static_cast<std::uint32_t>(-2)); }},
        {"enormous", [&] { header(4, 0x7fffffff); }},
        {"16 bits", [&] { StoreU16(script.Frame.data() + 14, 16); }},
        {"1 bit", [&] { StoreU16(script.Frame.data() + 14, 1); }},
        {"compressed", [&] { header(16, 1); }},
        {"a byte short", [&] { script.Frame.pop_back(); }},
        {"header only", [&] { script.Frame.resize(40); }},
        {"nothing", [&] { script.Frame.clear(); }},
        {"room for the header only", [&] { script.Bytes = 40; }},
        {"room for a byte", [&] { script.Bytes = 1; }},
        {"too wide to be told", [&] { script.Width = 32768; }},
        {"impossible block", [&] { script.Bytes = 2147483647; }},
    };
    for (const auto& c : cases) {
        DeliverGoodFrame(script);
        c.Spoil();
        EXPECT_FALSE(Grab()) << c.Name;
        EXPECT_NE(session.Answerer.TakeOnly(), "") << c.Name;
        EXPECT_EQ(document->Image().Pixels, before) << c.Name;
        EXPECT_EQ(document->GetImageSize(), (RasterSize{5, 2})) << c.Name;
    }
}

TEST_F(DocumentGrab, NamesAFormatThatIsNotSupported)
{
    DeliverGoodFrame(script);
    StoreU16(script.Frame.data() + 14, 16);
    EXPECT_FALSE(Grab());
    ASSERT_EQ(session.Answerer.Asked.size(), 1u);
    EXPECT_EQ(session.Answerer.Asked[0].Title, "Error - Morvane");
    EXPECT_EQ(session.Answerer.Asked[0].Text, "Cannot convert DIB, unsupported format");
}

TEST_F(DocumentGrab, LeavesItToThePluginToTellOfAFailedGrab)
{
    const std::function<void()> failures[] = {
        [&] { script.Success = false; },
        [&] { script.Claimed = 1; }, // more than there is room for
        [&] { script.Claimed = -100000; },
    };
    for (const auto& fail : failures) {
        script.Claimed = 0;
        DeliverGoodFrame(script);
        fail();
        EXPECT_FALSE(Grab());
        EXPECT_TRUE(session.Answerer.Asked.empty());
        EXPECT_FALSE(document->HasImageBuffer());
    }
}

} // namespace
} // namespace morvane
