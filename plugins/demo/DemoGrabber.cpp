// The plug-in "Demo": the simulated camera behind the operations that Morvane calls. A model for
// plug-ins of real cards, too.
#include <chrono>
#include <cstring>

#include "CameraDialog.h"
#include "Grabber.h"
#include "SimulatedCamera.h"

namespace morvane::demo {
namespace {

constexpr int HeaderBytes = 40, ColorBytes = 1024;
constexpr int RowBytes = (CameraWidth + 3) / 4 * 4;
constexpr int FrameBytes = HeaderBytes + ColorBytes + RowBytes * CameraHeight;

// The camera lives as long as the library is in memory: settings and drift go on when the plug-in
// is created anew.
struct Card {
    SimulatedCamera Camera{std::random_device()()};
    std::chrono::steady_clock::time_point LastFrame = std::chrono::steady_clock::now();
};

Card& cardOf(void* context)
{
    return *static_cast<Card*>(context);
}

void put32(std::uint8_t* to, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        to[i] = static_cast<std::uint8_t>(value >> 8 * i);
}

void writeFrame(const std::vector<std::uint8_t>& picture, std::uint8_t* frame)
{
    put32(frame, HeaderBytes);
    put32(frame + 4, CameraWidth);
    put32(frame + 8, CameraHeight);
    frame[12] = 1; // planes
    frame[14] = 8; // bits
    for (std::uint32_t level = 0; level < 256; ++level)
        put32(frame + HeaderBytes + 4 * level, level * 0x010101);
    std::uint8_t* row = frame + HeaderBytes + ColorBytes;
    for (int y = CameraHeight - 1; y >= 0; --y, row += RowBytes)
        std::memcpy(row, picture.data() + static_cast<std::size_t>(y) * CameraWidth, CameraWidth);
}

void grab(void* context, std::uint8_t* frame, std::int32_t* bytes, MorvaneBoolean* success)
{
    if (*bytes < FrameBytes)
        return;
    Card& card = cardOf(context);
    const auto now = std::chrono::steady_clock::now();
    card.Camera.Drift(std::chrono::duration<double>(now - card.LastFrame).count());
    card.LastFrame = now;
    writeFrame(card.Camera.Expose(), frame);
    *bytes = FrameBytes;
    *success = MORVANE_TRUE;
}

MorvaneGrabber makeTable(Card& card)
{
    MorvaneGrabber table{};
    table.Version = MORVANE_GRABBER_VERSION;
    table.Size = sizeof table;
    table.Context = &card;
    table.GetFrameBytes = [](void*, std::int32_t* bytes) { *bytes = FrameBytes; };
    table.GetWidth = [](void*, std::int32_t* width) { *width = CameraWidth; };
    table.GetHeight = [](void*, std::int32_t* height) { *height = CameraHeight; };
    table.GetHasProperties = [](void*, MorvaneBoolean* has) { *has = MORVANE_TRUE; };
    table.GetReady = [](void*, MorvaneBoolean* ready) { *ready = MORVANE_TRUE; };
    table.Grab = grab;
    table.ShowProperties = [](void* context) { EditSettings(cardOf(context).Camera.Settings); };
    return table;
}

} // namespace
} // namespace morvane::demo

const MorvaneGrabber* MorvaneCreateGrabber(char*, std::int32_t)
{
    static morvane::demo::Card card;
    static const MorvaneGrabber table = morvane::demo::makeTable(card);
    return &table;
}
