#include "document/LoadPicture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string_view>

#include "BmpFile.h"

namespace morvane {
namespace {

using test::BmpFile;
using test::Bytes;

TEST(DecodePicture, TellsKindsApartByContent)
{
    const auto bytes = [](std::string_view text) { return Bytes(text.begin(), text.end()); };
    const struct {
        const char* Name;
        Bytes File;
        PictureError Error;
    } cases[] = {
        {"bitmap", BmpFile{1, 1, 24, 0, 40, 0, {}, {1, 2, 3, 0}}.Make(), PictureError::None},
        {"nothing", {}, PictureError::NotAPicture},
        {"text", bytes("These are my notes."), PictureError::NotAPicture},
        {"text that begins like a bitmap", bytes("BMW, and other cars of this year"),
            PictureError::Invalid},
        {"start of a JPEG", {0xFF, 0xD8, 0xFF}, PictureError::Invalid},
    };
    for (const auto& c : cases) {
        const PictureResult result = DecodePicture(c.File);
        EXPECT_EQ(result.Error, c.Error) << c.Name;
        EXPECT_EQ(result.Reason.empty(), c.Error == PictureError::None) << c.Name;
    }
}

TEST(LoadPicture, FolderAndMissingFileAreUnreadable)
{
    const std::filesystem::path folder = testing::TempDir();
    for (const auto& path : {folder, folder / "no such picture.bmp"}) {
        const PictureResult result = LoadPicture(path.string());
        EXPECT_EQ(result.Error, PictureError::Unreadable) << path;
        EXPECT_FALSE(result.Reason.empty()) << path;
    }
}

} // namespace
} // namespace morvane
