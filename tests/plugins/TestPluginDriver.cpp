#include "plugins/TestPlugin.h"

#include <stdexcept>

#include "document/LittleEndian.h"
#include "platform/DynamicLibrary.h"

namespace morvane {

TestPluginScript& NewTestScript()
{
    std::string error;
    void* const function =
        FunctionOfLibrary(TEST_PLUGIN_FOLDER "/MVVGPlugScripted.so", "GetTestScript", error);
    if (!function)
        throw std::runtime_error(error);
    TestPluginScript& script = *reinterpret_cast<TestPluginScript* (*)()>(function)();
    script = {};
    return script;
}

std::vector<std::uint8_t> TestFrame(
    int Width, int Height, int Bits, const std::vector<std::uint8_t>& Rows)
{
    std::vector<std::uint8_t> frame(Bits == 8 ? 1064 : 40);
    StoreU32(frame.data(), 40);
    StoreU32(frame.data() + 4, static_cast<std::uint32_t>(Width));
    StoreU32(frame.data() + 8, static_cast<std::uint32_t>(Height));
    StoreU16(frame.data() + 12, 1);
    StoreU16(frame.data() + 14, static_cast<std::uint16_t>(Bits));
    frame.insert(frame.end(), Rows.begin(), Rows.end());
    return frame;
}

void Deliver(TestPluginScript& By, int Width, int Height, std::vector<std::uint8_t> Frame)
{
    By.Width = Width;
    By.Height = Height;
    By.Bytes = static_cast<std::int32_t>(Frame.size());
    By.Frame = std::move(Frame);
}

void DeliverGoodFrame(TestPluginScript& By)
{
    Deliver(
        By, 5, 2, TestFrame(5, 2, 8, {60, 70, 80, 90, 100, 0, 0, 0, 10, 20, 30, 40, 50, 0, 0, 0}));
}

} // namespace morvane
