// The road of a picture file into a document, with what the user is told of a bad one.
#include <filesystem>
#include <new>

#include "document/Dib.h"
#include "document/LoadPicture.h"
#include "document/clsDocument.h"

namespace morvane {
namespace {

// The message of a picture that could not be decoded. What is wrong with which file stands on the
// second line.
std::string DecodeMessage(
    const PictureResult& Result, const std::string& Directory, const std::string& Path)
{
    switch (Result.Error) {
    case PictureError::NotAPicture:
        return "Could not load image file " + Path;
    case PictureError::Invalid:
        return "Could not open image file " + Directory + "\r\n" + Path + ": " + Result.Reason;
    default:
        return Result.Reason + "\r\n" + Path;
    }
}

} // namespace

bool clsDocument::LoadFileIntoDataBuffer(const std::string& Path, bool Quiet)
{
    const auto fail = [&](const std::string& text) {
        if (m_image.Size == RasterSize{}) {
            Title.clear();
            BlankImage = true;
        }
        if (!Quiet)
            m_host.ShowMessage(text, MessageOk, "Error");
        return false;
    };
    PictureResult result;
    ImageBuffer loaded;
    std::string error;
    {
        const HourglassScope hourglass(m_host);
        result = LoadPicture(Path);
        if (result.Error == PictureError::None)
            ConvertBitmapToData(result.Picture, loaded, error);
    }
    if (result.Error != PictureError::None)
        return fail(DecodeMessage(result, Directory, Path));
    if (!error.empty()) {
        fail(error);
        return fail("Could not read bitmap");
    }
    TakeImageSize(loaded.Size);
    m_image = std::move(loaded);
    Title = std::filesystem::path(Path).filename().string();
    BlankImage = false;
    ImageDirty = false;
    return true;
}

FileResult clsDocument::SaveDataBufferToBMP(const std::string& Path)
{
    if (BlankImage || m_size.Width < 1 || m_size.Height < 1)
        return {"Cannot save a blank image"};
    try {
        FileResult written = WriteWholeFile(Path, BmpFromBuffer(m_image));
        if (written)
            ImageDirty = false;
        return written;
    } catch (const std::bad_alloc&) {
        return {"Out of memory"};
    }
}

} // namespace morvane
