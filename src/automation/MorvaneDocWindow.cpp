// The members of MorvaneDoc that act on the interferogram's window.
#include "automation/Keywords.h"
#include "automation/MorvaneDoc.h"
#include "interferogram/ZoomLevels.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

using enum MorvaneDocErrors;

constexpr double MinWindow = 16, MaxWindow = 4096; // pixels, either side

bool IsWindowSize(const std::optional<double>& Size)
{
    return Size && *Size >= MinWindow && *Size <= MaxWindow;
}

ImageWindow* WindowOf(const std::shared_ptr<clsDocument>& Of)
{
    return Of && Of->ImageViewExists() ? Of->ImageView() : nullptr;
}

} // namespace

Raised<int> MorvaneDoc::GetZoom() const
{
    const auto document = Document();
    if (const ImageWindow* const window = WindowOf(document))
        return window->ZoomPercent();
    return NoDocument("get zoom");
}

Raised<bool> MorvaneDoc::SetZoom(const Variant& Value)
{
    const auto document = Document();
    ImageWindow* const window = WindowOf(document);
    if (!window)
        return NoDocument("set zoom");
    const std::optional<double> percent = Numeric(Value);
    if (!percent)
        return AutomationError{
            ErrorInvalidNumber, "The zoom factor must be assigned a numeric value."};
    const int level = RoundToLong(*percent);
    if (level != *percent || !IsZoomLevel(level))
        return true;
    window->SetZoom(level);
    m_session.Frame().UpdateMainFrame();
    return true;
}

Raised<RasterSize> MorvaneDoc::WindowSize() const
{
    const auto document = Document();
    if (const ImageWindow* const window = WindowOf(document))
        return window->WindowSize();
    return NoDocument("get window dimensions");
}

Raised<int> MorvaneDoc::GetWidth() const
{
    const Raised<RasterSize> size = WindowSize();
    return size ? Raised<int>(size.Value().Width) : size.Error();
}

Raised<int> MorvaneDoc::GetHeight() const
{
    const Raised<RasterSize> size = WindowSize();
    return size ? Raised<int>(size.Value().Height) : size.Error();
}

Raised<bool> MorvaneDoc::SizeWindow(const Variant& Width, const Variant& Height)
{
    const auto document = Document();
    ImageWindow* const window = WindowOf(document);
    if (!window)
        return NoDocument("size window");
    const std::optional<double> width = Numeric(Width), height = Numeric(Height);
    if (!IsWindowSize(width) || !IsWindowSize(height))
        return AutomationError{
            ErrorNoDocument, "Specified window size is non-numeric or out of range."};
    window->SizeWindow(RoundToLong(*width), RoundToLong(*height));
    return true;
}

} // namespace morvane
