#include "report/LogoPane.h"

#include "document/LoadPicture.h"
#include "platform/Numbers.h"
#include "report/PageText.h"
#include "report/PaneLayout.h"

namespace morvane {
namespace {

int HalfOf(const DeviceRect& pane)
{
    return RoundToLong((pane.Bottom - pane.Top) / 2.0);
}

// Five bits of each, red highest.
Color FromFiveBits(unsigned pixel)
{
    const auto channel = [pixel](int shift) {
        const unsigned five = pixel >> shift & 31;
        return static_cast<std::uint8_t>(five << 3 | five >> 2);
    };
    return {channel(10), channel(5), channel(0)};
}

Color ColorAt(const Bitmap& of, const std::uint8_t* row, std::size_t x)
{
    if (of.BitCount == 8)
        return of.Palette[row[x]];
    if (of.BitCount == 16)
        return FromFiveBits(row[2 * x] | row[2 * x + 1] << 8);
    const std::uint8_t* const pixel = row + x * static_cast<std::size_t>(of.BitCount / 8);
    return {pixel[2], pixel[1], pixel[0]};
}

} // namespace

std::vector<Color> ColorsOf(const Bitmap& Source)
{
    std::vector<Color> colors;
    colors.reserve(
        static_cast<std::size_t>(Source.Width) * static_cast<std::size_t>(Source.Height));
    for (int y = Source.Height - 1; y >= 0; --y) {
        const std::uint8_t* const row =
            Source.Rows.data() + static_cast<std::size_t>(y) * Source.Stride();
        for (int x = 0; x < Source.Width; ++x)
            colors.push_back(ColorAt(Source, row, static_cast<std::size_t>(x)));
    }
    return colors;
}

void DrawLogo(Device& On, const DeviceRect& Pane, int Gap, const std::string& Path)
{
    const DeviceRect box{
        Pane.Left + Gap, Pane.Top + Gap, Pane.Right - Gap + 1, Pane.Top + HalfOf(Pane) + 1};
    const PictureResult logo = LoadPicture(Path);
    if (logo.Error != PictureError::None || box.Width() <= 0 || box.Height() <= 0)
        return;
    const auto& [width, height] = std::pair(logo.Picture.Width, logo.Picture.Height);
    On.DrawColorPicture(FitInto(box, {width, height}), {ColorsOf(logo.Picture), width, height});
}

void DrawComments(
    Device& On, const DeviceRect& Pane, int Gap, const std::string& Comments, const TextFont& Style)
{
    const DeviceRect box{Pane.Left + Gap, Pane.Top + Gap + HalfOf(Pane), Pane.Right - Gap + 1,
        Pane.Bottom - Gap + 1};
    DrawWords(On, box, "Comments: " + Comments, Style);
}

} // namespace morvane
