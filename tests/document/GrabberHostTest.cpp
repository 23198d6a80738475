#include "document/GrabberHost.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

#include "TemporaryFolder.h"
#include "platform/File.h"
#include "plugins/TestPlugin.h"

namespace morvane {
namespace {

TEST(GrabberNameOf, TakesTheExactPrefixOnly)
{
    const struct {
        const char *File, *Name;
    } cases[] = {
        {"MVVGPlugDemo.so", "Demo"},
        {"MVVGPlugCard 2.SO", "Card 2"},
        {"mvvgplugX.so", ""},
        {"MVVGPLUGX.so", ""},
        {"MVVGPlug.so", ""},
        {"MVVGPlug.so.so", ""},
        {"MVVGPlugA.soft.so", "A"},
        {"MVVGPLUGxMVVGPlugB.so", "B"},
        {"libMVVGPlugX.so", ""},
        {"MVVGPlugX.so.1", ""},
        {"MVVGPlugX", ""},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GrabberNameOf(c.File), c.Name) << c.File;
}

TEST(GrabberHostSearch, ListsFiftyFilesByNameAndNothingElse)
{
    const TemporaryFolder folder;
    for (int i = 10; i < 65; ++i)
        WriteWholeFile(folder / ("MVVGPlug" + std::to_string(i) + ".so"), "");
    std::filesystem::create_directory(folder / "MVVGPlug00.so");
    ASSERT_EQ(mkfifo((folder / "MVVGPlug01.so").c_str(), 0600), 0);
    GrabberHost host;
    host.Search(folder / "");
    ASSERT_EQ(host.Names().size(), 50u);
    EXPECT_EQ(host.Find("10"), 1);
    EXPECT_EQ(host.Find("59"), 50);
    EXPECT_EQ(host.Find("60"), NoGrabber);
    host.Search(folder / "absent");
    EXPECT_TRUE(host.Names().empty());
}

TEST(GrabberHostLoad, TellsWhyAPluginCannotBeLoaded)
{
    const TemporaryFolder folder;
    for (const char* name : {"NoFunction", "OldVersion", "Incomplete", "Refuses", "Throws"}) {
        const std::string file = std::string("MVVGPlug") + name + ".so";
        std::filesystem::copy(std::string(TEST_PLUGIN_FOLDER "/") + file, folder / file);
    }
    WriteWholeFile(folder / "MVVGPlugText.so", "no library\n");
    WriteWholeFile(folder / "MVVGPlugEmpty.so", "");
    const struct {
        const char *Name, *Reason;
    } cases[] = {
        {"NoFunction", "MorvaneCreateGrabber"},
        {"OldVersion", "another version"},
        {"Incomplete", "incomplete"},
        {"Refuses", "no card in any slot"},
        {"Throws", "thrown at creation"},
        {"Text", "MVVGPlugText.so"},
        {"Empty", "MVVGPlugEmpty.so"},
    };
    GrabberHost host;
    host.Search(folder / "");
    for (const auto& c : cases) {
        const std::string error = host.Load(host.Find(c.Name));
        EXPECT_NE(error.find(c.Reason), std::string::npos) << c.Name << ": " << error;
        EXPECT_EQ(host.Name(), c.Name);
        EXPECT_FALSE(host.IsLoaded() || host.IsReady() || host.HasProperties()) << c.Name;
    }
}

// The loader of the system dies of most of these.
TEST(GrabberHostLoad, RefusesALibraryThatHasBeenCutShort)
{
    const TemporaryFolder folder;
    std::vector<std::uint8_t> whole;
    ASSERT_TRUE(ReadWholeFile(TEST_PLUGIN_FOLDER "/MVVGPlugRefuses.so", 1 << 28, whole));
    const std::string_view bytes(reinterpret_cast<const char*>(whole.data()), whole.size());
    GrabberHost host;
    for (const std::size_t length : {1, 63, 64, 600, 4096, 5000, 12000}) {
        ASSERT_LT(length, bytes.size());
        WriteWholeFile(folder / "MVVGPlugCut.so", bytes.substr(0, length));
        host.Search(folder / "");
        EXPECT_NE(host.Load(1), "") << length;
    }
}

class GrabberHostLife : public ::testing::Test {
protected:
    void SetUp() override { host->Search(TEST_PLUGIN_FOLDER); }
    std::string Load() { return host->Load(host->Find("Scripted")); }

    TestPluginScript& script = NewTestScript();
    std::unique_ptr<GrabberHost> host = std::make_unique<GrabberHost>();
};

TEST_F(GrabberHostLife, ClosesAtTheEndOnly)
{
    EXPECT_EQ(Load(), "");
    EXPECT_TRUE(host->IsLoaded() && host->IsReady() && host->HasProperties());
    EXPECT_EQ(Load(), "");
    EXPECT_EQ(script.Calls, "create release create ");
    host.reset();
    EXPECT_EQ(script.Calls, "create release create close release ");
}

TEST_F(GrabberHostLife, APluginThatIsNotReadyIsNotClosed)
{
    script.Ready = script.HasProperties = false;
    EXPECT_EQ(Load(), "");
    EXPECT_TRUE(host->IsLoaded());
    EXPECT_FALSE(host->IsReady() || host->HasProperties());
    EXPECT_FALSE(host->ShowProperties());
    host.reset();
    EXPECT_EQ(script.Calls, "create release ");
}

TEST_F(GrabberHostLife, AnIndexOutsideTheListLeavesNone)
{
    for (const int index : {NoGrabber, 0, 51, 2147483647}) {
        EXPECT_EQ(Load(), "");
        EXPECT_EQ(host->Load(index), "");
        EXPECT_FALSE(host->IsLoaded() || host->IsReady()) << index;
        EXPECT_EQ(host->Name(), "None");
        EXPECT_EQ(host->Index(), -1);
        EXPECT_EQ(host->GetSizes().Width, 0);
    }
}

TEST_F(GrabberHostLife, NothingElseIsCalledWhileTheDialogIsOpen)
{
    DeliverGoodFrame(script);
    EXPECT_EQ(Load(), "");
    script.OnProperties = [&] {
        std::vector<std::uint8_t> block(10);
        EXPECT_FALSE(host->IsReady());
        EXPECT_FALSE(host->Grab(block));
        EXPECT_EQ(host->GetSizes().Width, 0);
        EXPECT_FALSE(host->ShowProperties());
        Load();
    };
    EXPECT_TRUE(host->ShowProperties());
    EXPECT_EQ(script.Calls, "create properties ");
    EXPECT_TRUE(host->IsReady());
}

TEST_F(GrabberHostLife, APluginThatThrowsIsAsOneThatDoesNothing)
{
    EXPECT_EQ(Load(), "");
    script.Throws = true;
    std::vector<std::uint8_t> block(10);
    EXPECT_EQ(host->GetSizes().Bytes, 0);
    EXPECT_FALSE(host->Grab(block));
    EXPECT_TRUE(host->ShowProperties());
    EXPECT_EQ(Load(), "");
    EXPECT_TRUE(host->IsLoaded());
    EXPECT_FALSE(host->IsReady() || host->HasProperties());
}

} // namespace
} // namespace morvane
