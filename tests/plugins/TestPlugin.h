// What the scripted test plug-in answers and does, set by the test that drives it, and what has
// been asked of it.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace morvane {

struct TestPluginScript {
    std::int32_t Width = 0, Height = 0, Bytes = 0;
    std::vector<std::uint8_t> Frame; // what Grab delivers of it, as far as there is room
    std::int32_t Claimed = 0; // added to the number of bytes that Grab says it has filled
    bool Success = true; // of Grab
    bool Throws = false; // in every operation but Release
    bool Ready = true, HasProperties = true;
    std::function<void()> OnProperties;

    std::string Calls; // "create grab properties close release "
};

// The script that lies in the library TestPluginFolder "/MVVGPlugScripted.so", as new.
TestPluginScript& NewTestScript();

// A frame as a plug-in delivers it: header, colours if 8 bits, Rows with their padding.
std::vector<std::uint8_t> TestFrame(
    int Width, int Height, int Bits, const std::vector<std::uint8_t>& Rows);

// Makes the script deliver the frame, with sizes that agree.
void Deliver(TestPluginScript& By, int Width, int Height, std::vector<std::uint8_t> Frame);

// 5 by 2 pixels of 8 bits, the upper row 10 to 50, the lower 60 to 100.
void DeliverGoodFrame(TestPluginScript& By);

} // namespace morvane
