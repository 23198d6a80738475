// What a document asks of the session it lives in.
#pragma once
#include "document/DocumentWindows.h"
#include "document/Preferences.h"
#include "platform/Messages.h"

namespace morvane {

class DocumentHost {
public:
    virtual ~DocumentHost() = default;

    // A document that is opened in the individual workspace leaves the places of its views there.
    virtual Preferences& GetPreferences() = 0;
    virtual MessageAnswer ShowMessage(
        const std::string& Text, int Flags, const std::string& Title) = 0;
    virtual DocumentWindowFactory& Windows() = 0;
    virtual void ShowHourglass(bool Shown) = 0;
};

// The pointer is the hourglass until the brace.
class HourglassScope {
public:
    explicit HourglassScope(DocumentHost& Over) : m_host(Over) { m_host.ShowHourglass(true); }
    ~HourglassScope() { m_host.ShowHourglass(false); }
    HourglassScope(const HourglassScope&) = delete;
    HourglassScope& operator=(const HourglassScope&) = delete;

private:
    DocumentHost& m_host;
};

} // namespace morvane
