#include "shell/AnalyzeSettings.h"

#include <gtest/gtest.h>

#include "TemporaryFolder.h"

namespace morvane {
namespace {

class AnalyzeSettingsStore : public ::testing::Test {
protected:
    // A box as the next program that starts has it, after one that ends with Written.
    AnalyzeBox NextRun(const AnalyzeBox& Written)
    {
        WriteAnalyzeBox(store, Written);
        EXPECT_TRUE(store.Save());
        SettingsStore next(path);
        AnalyzeBox box;
        ReadAnalyzeBox(next, box);
        return box;
    }

    std::string FileOfCoefficients(const std::string& Name)
    {
        std::string text;
        for (int i = 0; i < NumZernikes; ++i)
            text += "0\n";
        WriteWholeFile(folder / Name, text);
        return folder / Name;
    }

    TemporaryFolder folder;
    std::string path = folder / "settings.ini";
    SettingsStore store{path};
};

TEST_F(AnalyzeSettingsStore, AnEmptyStoreGivesTheDefaults)
{
    AnalyzeBox box;
    box.SetOptions({.Scale = ScaleChoice::Custom, .Unit = DisplayUnit::Microinches});
    ReadAnalyzeBox(store, box);
    const AnalyzeOptions& options = box.Options();
    EXPECT_EQ(options.Removed, (RemoveFlags{.Tilt = true, .Focus = true}));
    EXPECT_FALSE(options.InvertWavefront);
    EXPECT_TRUE(options.TrimEdges);
    EXPECT_EQ(options.Unit, DisplayUnit::Waves);
    EXPECT_EQ(options.Scale, ScaleChoice::Half);
    EXPECT_EQ(options.Limit, OrderLimit::Automatic);
    EXPECT_EQ(options.InputWavelength, "632.8");
    EXPECT_EQ(options.OutputWavelength, "632.8");
    EXPECT_EQ(options.CustomScale, "2");
    EXPECT_EQ(options.Reference, 0);
    EXPECT_EQ(box.References().Count(), 0);
    EXPECT_EQ(box.BrowseFolder, "");
}

TEST_F(AnalyzeSettingsStore, OptionsComeBack)
{
    AnalyzeBox box;
    box.BrowseFolder = "/home/me/my mirrors";
    box.SetOptions({.Reference = 1,
        .Scale = ScaleChoice::Custom,
        .CustomScale = "0.3",
        .InvertWavefront = true,
        .InputWavelength = "532",
        .OutputWavelength = "550 nm",
        .Unit = DisplayUnit::Micrometers,
        .TrimEdges = false,
        .Limit = OrderLimit::Sixth,
        .Removed = {.Astigmatism = true, .Coma = true, .Spherical = true}});
    const AnalyzeBox next = NextRun(box);
    const AnalyzeOptions& options = next.Options();
    EXPECT_EQ(next.BrowseFolder, "/home/me/my mirrors");
    EXPECT_EQ(options.Reference, 1);
    EXPECT_EQ(options.Scale, ScaleChoice::Custom);
    EXPECT_EQ(options.CustomScale, "0.3");
    EXPECT_TRUE(options.InvertWavefront);
    EXPECT_EQ(options.InputWavelength, "532");
    EXPECT_EQ(options.OutputWavelength, "550 nm");
    EXPECT_EQ(options.Unit, DisplayUnit::Micrometers);
    EXPECT_FALSE(options.TrimEdges);
    EXPECT_EQ(options.Limit, OrderLimit::Sixth);
    EXPECT_EQ(options.Removed, (RemoveFlags{.Astigmatism = true, .Coma = true, .Spherical = true}));
}

TEST_F(AnalyzeSettingsStore, ChoicesOutOfRangeAreClamped)
{
    WriteWholeFile(path,
        "[Analyze]\nDisplay Units = 7\nScale Factor = -1\nLimit Order = 9\n"
        "Custom Scale = 1e6\n");
    SettingsStore typed(path);
    AnalyzeBox box;
    ReadAnalyzeBox(typed, box);
    EXPECT_EQ(box.Options().Unit, DisplayUnit::Microinches);
    EXPECT_EQ(box.Options().Scale, ScaleChoice::Half);
    EXPECT_EQ(box.Options().Limit, OrderLimit::Second);
    EXPECT_EQ(box.Options().CustomScale, "1000");
}

// One on a drive that is away for a run is not forgotten.
TEST_F(AnalyzeSettingsStore, ReferencesComeBackWithTheSelection)
{
    const std::string first = FileOfCoefficients("first.zrn");
    const std::string second = FileOfCoefficients("second.zrn");
    AnalyzeBox box;
    ASSERT_FALSE(box.AddReference(first));
    ASSERT_FALSE(box.AddReference(second));
    EXPECT_EQ(NextRun(box).Options().Reference, 3);

    std::filesystem::remove(second);
    AnalyzeBox next = NextRun(box);
    ASSERT_EQ(next.References().Count(), 2);
    EXPECT_EQ(next.References().GetItem(1), first);
    EXPECT_EQ(next.Options().Reference, 3);
}

// The list ends at its first empty entry; what a longer one has left must not come back later.
TEST_F(AnalyzeSettingsStore, AShorterListLeavesNothingBehind)
{
    AnalyzeBox box;
    for (const char* name : {"1.zrn", "2.zrn", "3.zrn"})
        ASSERT_FALSE(box.AddReference(FileOfCoefficients(name)));
    EXPECT_EQ(NextRun(box).References().Count(), 3);
    box.RemoveReference(4);
    box.RemoveReference(3);
    EXPECT_EQ(NextRun(box).References().Count(), 1);
    EXPECT_EQ(store.GetSettingString("Analyze", "Reference File 3", "(absent)"), "(absent)");
}

} // namespace
} // namespace morvane
