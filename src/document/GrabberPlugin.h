// A frame grabber plug-in that has been created, behind calls that nothing is thrown out of. What a
// plug-in has to hold to stands in platform/Grabber.h.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Grabber.h"

namespace morvane {

// As the plug-in tells them: not above 0 if it is not ready, and not to be believed.
struct FrameSizes {
    int Width = 0, Height = 0; // pixels
    int Bytes = 0; // of the block that a frame is delivered in
};

class GrabberPlugin {
public:
    // nullptr, with the reason in Error, if the library gives no grabber of this version.
    static std::unique_ptr<GrabberPlugin> Create(const std::string& Library, std::string& Error);
    ~GrabberPlugin();
    GrabberPlugin(const GrabberPlugin&) = delete;
    GrabberPlugin& operator=(const GrabberPlugin&) = delete;

    bool IsReady() const;
    bool HasProperties() const;
    FrameSizes GetSizes() const;

    // One frame into Block, whose size is the room for it, and then the bytes that were filled.
    // False if there is none.
    bool Grab(std::vector<std::uint8_t>& Block) const;
    void ShowProperties() const;
    // The session ends.
    void Close() const;

private:
    explicit GrabberPlugin(const MorvaneGrabber& Table) : m_table(Table) { }

    const MorvaneGrabber& m_table;
};

} // namespace morvane
