// The road of a frame from a grabber into a document. What the plug-in says of itself is checked
// before memory is taken and before a byte is read.
#include <new>

#include "document/Dib.h"
#include "document/GrabberHost.h"
#include "document/LittleEndian.h"
#include "document/PictureLimits.h"
#include "document/clsDocument.h"

namespace morvane {
namespace {

// Header, colours and rows of a 24-bit frame, with a mebibyte for the habits of drivers.
bool isPlausible(const FrameSizes& sizes)
{
    constexpr std::size_t slack = 1 << 20;
    if (!IsAllowedSize(sizes.Width, sizes.Height))
        return false;
    const std::size_t stride = AlignToDword(3 * static_cast<std::size_t>(sizes.Width));
    return static_cast<std::size_t>(sizes.Bytes)
        <= DibHeaderSize + slack + stride * static_cast<std::size_t>(sizes.Height);
}

// Rows from the bottom up and not compressed, behind the plain header.
bool hasKnownForm(std::span<const std::uint8_t> frame)
{
    return frame.size() >= DibInfoSize && LoadU32(frame.data()) == DibInfoSize
        && LoadI32(frame.data() + 8) > 0 && LoadU32(frame.data() + 16) == 0;
}

bool agreesWith(const FrameSizes& sizes, std::span<const std::uint8_t> frame)
{
    return LoadI32(frame.data() + 4) == sizes.Width && LoadI32(frame.data() + 8) == sizes.Height;
}

} // namespace

bool clsDocument::GrabIntoDataBuffer(GrabberHost& From)
try {
    const auto fail = [&](const std::string& text, const char* title) {
        m_host.ShowMessage(text, MessageOk, title);
        return false;
    };
    const FrameSizes sizes = From.GetSizes();
    const int missing =
        (sizes.Width <= 0 ? 1 : 0) + (sizes.Height <= 0 ? 2 : 0) + (sizes.Bytes <= 0 ? 4 : 0);
    if (missing != 0)
        return fail("Frame grabber not ready [" + std::to_string(missing) + "]", "Error");
    if (!isPlausible(sizes))
        return fail("The frame grabber tells sizes that no frame can have", "Error");

    std::vector<std::uint8_t> frame(static_cast<std::size_t>(sizes.Bytes));
    if (!From.Grab(frame))
        return false;
    if (!hasKnownForm(frame))
        return fail("Cannot convert DIB, unsupported format", "Error - Morvane");
    if (!agreesWith(sizes, frame))
        return fail("The frame is not of the size that the frame grabber tells", "Error");
    ImageBuffer grabbed;
    std::string error;
    if (!ConvertDIBToData(frame, grabbed, error))
        return fail(error, "Error - Morvane");

    TakeImageSize(grabbed.Size);
    m_image = std::move(grabbed);
    BlankImage = false;
    if (!StretchImage(m_host.GetPreferences().GrabAspectRatio))
        m_host.ShowMessage("The picture is not stretched: it would become too large",
            MessageWarningSign, "Warning");
    ImageDirty = true;
    InvalidateMask();
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace morvane
