#include "document/GrabberHost.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "platform/DynamicLibrary.h"

namespace morvane {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view Prefix = "MVVGPlug";

std::string upperCase(std::string text)
{
    for (char& letter : text)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return text;
}

bool matchesMask(const std::string& file)
{
    const std::string name = upperCase(file);
    return name.starts_with(upperCase(std::string(Prefix)))
        && name.ends_with(upperCase(LibraryEnding));
}

std::vector<fs::path> filesIn(const std::string& folder)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error))
        if (std::error_code ignored; at->is_regular_file(ignored))
            files.push_back(at->path());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

std::string GrabberNameOf(const std::string& File)
{
    const std::size_t prefix = File.rfind(Prefix);
    if (!matchesMask(File) || prefix == std::string::npos)
        return {};
    const std::string rest = File.substr(prefix + Prefix.size());
    return rest.substr(0, upperCase(rest).find(upperCase(LibraryEnding)));
}

GrabberHost::~GrabberHost()
{
    if (m_plugin && m_ready)
        m_plugin->Close();
}

void GrabberHost::Search(const std::string& Folder)
{
    m_names.clear();
    m_libraries.clear();
    for (const fs::path& file : filesIn(Folder)) {
        const std::string name = GrabberNameOf(file.filename());
        if (name.empty() || m_names.size() == MaxGrabbers)
            continue;
        m_names.push_back(name);
        m_libraries.push_back(file);
    }
}

int GrabberHost::Find(const std::string& Name) const
{
    const auto found = std::find(m_names.begin(), m_names.end(), Name);
    return found == m_names.end() ? NoGrabber : static_cast<int>(found - m_names.begin()) + 1;
}

std::string GrabberHost::Load(int Index)
{
    if (m_isBusy)
        return {};
    // First the old one goes: a card serves one at a time.
    m_plugin.reset();
    m_ready = m_hasProperties = false;
    m_index = Index >= 1 && Index <= static_cast<int>(m_names.size()) ? Index : NoGrabber;
    if (m_index == NoGrabber)
        return {};
    std::string error;
    m_plugin = GrabberPlugin::Create(m_libraries[static_cast<std::size_t>(m_index - 1)], error);
    if (m_plugin) {
        m_ready = m_plugin->IsReady();
        m_hasProperties = m_plugin->HasProperties();
    }
    return error;
}

std::string GrabberHost::Name() const
{
    return m_index == NoGrabber ? NoGrabberName : m_names[static_cast<std::size_t>(m_index - 1)];
}

FrameSizes GrabberHost::GetSizes() const
{
    return m_plugin && !m_isBusy ? m_plugin->GetSizes() : FrameSizes{};
}

bool GrabberHost::Grab(std::vector<std::uint8_t>& Block) const
{
    if (!m_plugin || m_isBusy)
        return false;
    m_isBusy = true;
    const bool grabbed = m_plugin->Grab(Block);
    m_isBusy = false;
    return grabbed;
}

bool GrabberHost::ShowProperties()
{
    if (!m_plugin || !m_hasProperties || m_isBusy)
        return false;
    m_isBusy = true;
    m_plugin->ShowProperties();
    m_isBusy = false;
    return true;
}

} // namespace morvane
