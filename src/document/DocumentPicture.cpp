// The road of a picture file into a document, with what the user is told of a bad one.
#include <filesystem>
#include <new>

#include "document/Dib.h"
#include "document/LoadPicture.h"
#include "document/clsDocument.h"
#include "geometry/modRaster.h"

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
    NotePicture(Path);
    MayReplacePicture = false;
    return true;
}

bool clsDocument::StretchImage(double Aspect)
{
    if (BlankImage || !HasImageBuffer() || !(Aspect > 0) || Aspect == 1)
        return true;
    const double scale = Aspect > 1 ? 1 : 1 / Aspect;
    const RasterSize size = ResampledSize(m_image.Size, Aspect, scale);
    if (!IsAllowedSize(size.Width, size.Height))
        return false;
    try {
        ImageBuffer stretched;
        stretched.Pixels.resize(static_cast<std::size_t>(size.Width) * size.Height);
        stretched.Size = size;
        ResampleImage(m_image.Pixels, m_image.Size, stretched.Pixels, Aspect, scale);
        m_image = std::move(stretched);
    } catch (const std::bad_alloc&) {
        return false;
    }
    m_size = size;
    ImageDirty = true;
    InvalidateMask();
    ImageView_Refresh();
    return true;
}

FileResult clsDocument::StageBMP(const std::string& Path, std::optional<StagedFile>& Into) const
try {
    const std::string file = BlankImage ? "" : BmpFromBuffer(m_image);
    if (file.empty())
        return {"Cannot save a blank image"};
    return Into.emplace(Path, file).Prepared();
} catch (const std::bad_alloc&) {
    return {"Out of memory"};
}

FileResult clsDocument::SaveDataBufferToBMP(const std::string& Path)
{
    std::optional<StagedFile> file;
    FileResult written = StageBMP(Path, file);
    if (written)
        written = file->Commit();
    if (written)
        NotePicture(Path);
    return written;
}

void clsDocument::NotePicture(const std::string& Path)
{
    PicturePath = Path;
    ImageDirty = false;
    MayReplacePicture = true;
}

} // namespace morvane
