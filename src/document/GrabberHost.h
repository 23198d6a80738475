// The frame grabber plug-ins beside the program, of which one at most is loaded.
//
// A plug-in is a file "MVVGPlug<name>.so", <name> being its short name. Files are looked for in any
// case of letters, but only the exact prefix counts: "mvvgplugCard.so" is passed over, and so is
// "MVVGPlug.so", which has no name.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "document/GrabberPlugin.h"

namespace morvane {

inline constexpr int MaxGrabbers = 50;
inline constexpr int NoGrabber = -1; // no such plug-in
inline constexpr const char* NoGrabberName = "None";

// The short name in the name of a file; empty if it is no plug-in.
std::string GrabberNameOf(const std::string& File);

class GrabberHost {
public:
    ~GrabberHost(); // closes the plug-in

    // Lists the plug-ins in Folder, by file name, up to MaxGrabbers. None of them is run.
    void Search(const std::string& Folder);
    const std::vector<std::string>& Names() const { return m_names; }
    // From 1, NoGrabber if no plug-in has the name.
    int Find(const std::string& Name) const;

    // Releases the plug-in and creates that of an index from 1; any other index leaves none. The
    // reason, if it cannot be created: then it is the chosen one all the same, but not loaded.
    // Nothing happens while a properties dialog is open.
    std::string Load(int Index);

    int Index() const { return m_index; } // of the chosen one
    std::string Name() const; // of the chosen one, NoGrabberName if there is none
    bool IsLoaded() const { return m_plugin != nullptr; }
    bool IsReady() const { return m_ready && !m_isBusy; }
    bool HasProperties() const { return m_hasProperties; }

    // All 0 unless a plug-in is loaded.
    FrameSizes GetSizes() const;
    bool Grab(std::vector<std::uint8_t>& Block) const;
    // The plug-in is not loaded anew. False if it has no dialog or shows it already.
    bool ShowProperties();

private:
    std::vector<std::string> m_names, m_libraries; // short names, paths
    std::unique_ptr<GrabberPlugin> m_plugin;
    int m_index = NoGrabber;
    bool m_ready = false, m_hasProperties = false;
    mutable bool m_isBusy = false; // a call that may show a window is on its way
};

} // namespace morvane
