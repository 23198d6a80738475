#include "shell/AnalyzeBox.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "shell/modFileLib.h"

namespace morvane {
namespace {

constexpr const char* wavelengthRange = "\r\nEnter a wavelength between 1 nm and 10000 nm";

// A document that Apply accepts, and a box whose options a test changes.
class AnalyzeBoxStore : public ::testing::Test {
protected:
    void SetUp() override
    {
        SetCircle(document.Aperture, 100, 100, 50);
        const Point tick[] = {{100, 100}};
        document.Fringes.InsertOrder(1, tick);
    }

    // The text of the message that storing these options gives; empty if none.
    std::string Store(const AnalyzeOptions& Options)
    {
        box.SetOptions(Options);
        const std::optional<Message> message = box.StoreOptions(document);
        return message ? message->Text : std::string();
    }

    SilentSession session;
    clsDocument document{session.Main};
    AnalyzeBox box;
};

TEST_F(AnalyzeBoxStore, ChecksNumbersInOrder)
{
    const auto with = [](auto change) {
        AnalyzeOptions options;
        change(options);
        return options;
    };
    const auto custom = [&](const char* text) {
        return with([=](AnalyzeOptions& o) {
            o.Scale = ScaleChoice::Custom;
            o.CustomScale = text;
        });
    };
    const auto waves = [&](const char* input, const char* output) {
        return with([=](AnalyzeOptions& o) {
            o.InputWavelength = input;
            o.OutputWavelength = output;
        });
    };
    const std::string badScale = "Invalid Custom Scale\r\nEnter a scale between 0 and 1000";
    const std::string badInput = std::string("Invalid Input Wavelength") + wavelengthRange;
    const std::string badOutput = std::string("Invalid Output Wavelength") + wavelengthRange;
    const struct {
        const char* Name;
        AnalyzeOptions Options;
        std::string Message;
    } cases[] = {
        {"scale at its upper end", custom("1000"), ""},
        {"scale of zero", custom("0"), ""},
        {"scale beyond", custom("1000.01"), badScale},
        {"scale below", custom("-0.1"), badScale},
        {"shortest wavelength", waves("1", "10000"), ""},
        {"too short", waves("0.5", "0"), badInput},
        {"no number", waves("red", "632.8"), badInput},
        {"too long", waves("632.8", "10000.5"), badOutput},
        {"number with a unit behind it", waves("632.8nm", "633 nm"), ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Store(c.Options), c.Message) << c.Name;
}

TEST_F(AnalyzeBoxStore, RefusesWhatCannotBeAnalysed)
{
    document.Fringes.DeleteAll();
    EXPECT_EQ(Store({}), "No fringe centers to analyze");
    document.AnalysisValid = true;
    document.NumZernikeToFit = 0;
    EXPECT_EQ(Store({}), "");
    document.Aperture.Delete();
    EXPECT_EQ(Store({}), "No aperture set");
    document.Combined = true;
    EXPECT_EQ(Store({.InputWavelength = "x"}),
        "Cannot analyze a document created by mathematical operations.");
}

// Else a refused document would close without a question, and its new options were gone.
TEST_F(AnalyzeBoxStore, ARefusedDocumentIsModifiedIfAnOptionHasChanged)
{
    const std::string file = ::testing::TempDir() + "morvane_gone.zrn";
    std::string numbers;
    for (int i = 0; i < NumZernikes; ++i)
        numbers += "1\n";
    WriteWholeFile(file, numbers);
    ASSERT_FALSE(box.AddReference(file));
    const AnalyzeOptions listed = box.Options();
    ASSERT_EQ(Store(listed), "");
    document.Fringes.DeleteAll();
    document.Modified = false;
    std::filesystem::remove(file);
    EXPECT_EQ(Store(listed), file + "\r\nInvalid Zernikes reference file");
    EXPECT_TRUE(document.Modified) << "it has lost its reference";
    const struct {
        const char* Name;
        AnalyzeOptions Options;
        bool Modified;
    } cases[] = {{"the same", {}, false},
        {"another unit", {.Unit = DisplayUnit::Microinches}, true},
        {"a reference", {.Reference = 1}, true}};
    for (const auto& c : cases) {
        Store({});
        document.Modified = false;
        EXPECT_EQ(Store(c.Options), "No fringe centers to analyze") << c.Name;
        EXPECT_EQ(document.Modified, c.Modified) << c.Name;
    }
}

TEST_F(AnalyzeBoxStore, OnlyOptionsOfTheFitMakeItStale)
{
    Store({});
    document.AnalysisValid = true;
    document.Analysis.Mask.MaskValid = true;
    AnalyzeOptions options;
    options.Removed.Coma = true;
    options.Unit = DisplayUnit::Microinches;
    options.Scale = ScaleChoice::One;
    Store(options);
    EXPECT_TRUE(document.AnalysisValid);
    EXPECT_TRUE(document.Removed.Coma);
    EXPECT_EQ(document.ZScale, 1);
    EXPECT_DOUBLE_EQ(document.DisplayScale, 24.913385826771654);
    options.TrimEdges = false;
    Store(options);
    EXPECT_TRUE(document.AnalysisValid);
    EXPECT_FALSE(document.Analysis.Mask.MaskValid);
    options.InvertWavefront = true;
    Store(options);
    EXPECT_FALSE(document.AnalysisValid);
    document.AnalysisValid = true;
    options.Limit = OrderLimit::Eighth;
    Store(options);
    EXPECT_FALSE(document.AnalysisValid);
    EXPECT_EQ(document.NumZernikeToFit, 24);
    document.AnalysisValid = true;
    Store(options);
    EXPECT_TRUE(document.AnalysisValid);
    options.Limit = OrderLimit::Automatic;
    Store(options);
    document.NumZernikeToFit = 15; // as the fit writes back
    document.AnalysisValid = true;
    Store(options);
    EXPECT_FALSE(document.AnalysisValid) << "Auto fits anew at each Apply";
}

TEST_F(AnalyzeBoxStore, AnAverageRefusesWhatNeedsAFit)
{
    document.Averaged = true;
    document.AnalysisValid = true;
    document.NumZernikeToFit = 24;
    EXPECT_EQ(Store({.TrimEdges = false}), "") << "Auto is no change for an average";
    EXPECT_EQ(document.NumZernikeToFit, 24);
    EXPECT_EQ(Store({.Limit = OrderLimit::Eighth}), "");
    EXPECT_EQ(
        Store({.Limit = OrderLimit::Fourth}), "Cannot change order of fit of an averaged document");
    EXPECT_EQ(Store({.InvertWavefront = true}),
        "Cannot change the Invert Wavefront parameter of an averaged document");
    EXPECT_EQ(
        Store({.Reference = 1}), "Cannot subtract reference Zernikes from an averaged document");
    EXPECT_TRUE(document.AnalysisValid);
}

TEST_F(AnalyzeBoxStore, ReferencesComeFromTheSharedSetOrAFile)
{
    box.SharedReference[3] = 0.25;
    EXPECT_EQ(Store({.Reference = 1}), "");
    EXPECT_TRUE(document.HasReferenceZernikes);
    EXPECT_EQ(document.GetRefZernikes(), box.SharedReference);
    EXPECT_EQ(Store({}), "");
    EXPECT_FALSE(document.HasReferenceZernikes);

    const std::string file = ::testing::TempDir() + "morvane_reference.zrn";
    std::string text;
    for (int i = 1; i <= NumZernikes; ++i)
        text += std::to_string(i) + ".5\r\n";
    WriteWholeFile(file, text);
    const std::string other = ::testing::TempDir() + "morvane_other_reference.zrn";
    WriteWholeFile(other, "9" + text);
    EXPECT_FALSE(box.AddReference(other));
    EXPECT_FALSE(box.AddReference(file));
    EXPECT_EQ(box.Options().Reference, 3);
    EXPECT_EQ(Store(box.Options()), "");
    EXPECT_TRUE(document.HasReferenceZernikes);
    EXPECT_EQ(document.GetRefZernikes().front(), 1.5);
    EXPECT_EQ(document.GetRefZernikes().back(), 36.5);

    WriteWholeFile(file, "1 2 3");
    const std::optional<Message> refusal = box.StoreOptions(document);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Text, file + "\r\nInvalid Zernikes reference file");
    EXPECT_EQ(refusal->Title, "Error");
    EXPECT_FALSE(document.HasReferenceZernikes);
    EXPECT_EQ(box.AddReference(file)->Text,
        "File " + file + " is invalid\r\nor does not contain 36 Zernike polynomial coefficients");
    box.RemoveReference(3);
    EXPECT_EQ(box.References().Count(), 1);
    EXPECT_EQ(box.Options().Reference, 2);
}

// Switching between documents must neither lose a document's reference nor give it another's.
TEST_F(AnalyzeBoxStore, AShownDocumentKeepsItsReference)
{
    const auto file = [](const char* name, const char* number) {
        std::string text;
        for (int i = 0; i < NumZernikes; ++i)
            text += std::string(number) + "\n";
        const std::string path = ::testing::TempDir() + name;
        WriteWholeFile(path, text);
        return path;
    };
    EXPECT_FALSE(box.AddReference(file("morvane_first.zrn", "1")));
    EXPECT_FALSE(box.AddReference(file("morvane_second.zrn", "2")));
    const struct {
        const char* Name;
        int Chosen, Left; // in the box for this document, and then for another one
        int Shown;
    } cases[] = {
        {"none", 0, 3, 0}, {"the shared set", 1, 0, 1}, {"the first of two files", 2, 3, 2}};
    for (const auto& c : cases) {
        ASSERT_EQ(Store({.Reference = c.Chosen}), "");
        const ZernikeSet reference = document.GetRefZernikes();
        box.SetOptions({.Reference = c.Left});
        box.SetControls(document);
        EXPECT_EQ(box.Options().Reference, c.Shown) << c.Name;
        ASSERT_FALSE(box.StoreOptions(document));
        EXPECT_EQ(document.HasReferenceZernikes, c.Chosen != 0) << c.Name;
        EXPECT_EQ(document.GetRefZernikes(), reference) << c.Name;
    }
    ASSERT_EQ(Store({.Reference = 3}), "");
    box.RemoveReference(3);
    box.SetControls(document);
    EXPECT_EQ(box.Options().Reference, KeptReference);
    ASSERT_FALSE(box.StoreOptions(document));
    EXPECT_TRUE(document.HasReferenceZernikes);
    EXPECT_EQ(document.GetRefZernikes().back(), 2);
}

TEST(ReferenceFile, NeedsThirtySixNumbers)
{
    const auto numbers = [](int count, const char* separator) {
        std::string text;
        for (int i = 1; i <= count; ++i)
            text += separator + std::to_string(i);
        return text;
    };
    const struct {
        const char* Name;
        std::string File, Text;
        bool Ok;
    } cases[] = {
        {"one a line", "a.zrn", numbers(36, "\r\n"), true},
        {"marked by an editor", "a.zrn", "\xef\xbb\xbf" + numbers(36, "\n").substr(1), true},
        {"one too many, as of decimal commas", "a.zrn", numbers(37, ","), false},
        {"a remark behind them", "a.zrn", numbers(36, "\n") + "\nof the flat", true},
        {"deeper than any surface", "a.zrn", numbers(35, "\n") + "\n1e999", false},
        {"as deep in a document", "d.mvd", "Zernikes" + numbers(35, ",") + ",-1000001", false},
        {"one too few", "b.zrn", numbers(35, "\n"), false},
        {"words among them", "c.zrn", "piston 0\n" + numbers(36, "\n"), false},
        {"line of a document", "d.mvd", "FileVersion, 100\nZernikes" + numbers(40, ","), true},
        {"short line of a document, which is the one that counts", "e.mvd",
            "Zernikes" + numbers(35, ",") + "\nZernikes" + numbers(36, ","), false},
        {"key in capitals", "f.mvd", "ZERNIKES" + numbers(36, ","), true},
    };
    for (const auto& c : cases) {
        const std::string path = ::testing::TempDir() + "morvane_" + c.File;
        WriteWholeFile(path, c.Text);
        const std::optional<ZernikeSet> set = LoadReferenceFile(path);
        ASSERT_EQ(set.has_value(), c.Ok) << c.Name;
        if (c.Ok) {
            EXPECT_EQ(set->front(), 1) << c.Name;
            EXPECT_EQ(set->back(), 36) << c.Name;
        }
    }
    EXPECT_FALSE(LoadReferenceFile(::testing::TempDir() + "morvane_absent.zrn"));
    EXPECT_FALSE(LoadReferenceFile(::testing::TempDir()));
}

TEST(PathParts, AreTakenFromTheText)
{
    EXPECT_EQ(FileExtension("/a.b/C.Bmp"), "bmp");
    EXPECT_EQ(FileExtension("/a/c"), "");
    EXPECT_EQ(FileTitle("/a/b.c.jpg", false), "b.c.jpg");
    EXPECT_EQ(FileTitle("/a/b.c.jpg", true), "b.c");
    EXPECT_EQ(FileTitle("b", true), "b");
    EXPECT_EQ(FileDirectory("/a/b.jpg"), "/a");
    EXPECT_EQ(FileDirectory("b.jpg"), "");
}

} // namespace
} // namespace morvane
