#include "shell/RecentFiles.h"

#include <utility>

namespace morvane {

void RecentFiles::SetPaths(std::vector<std::string> Paths)
{
    m_paths = std::move(Paths);
    if (m_paths.size() > MaxFiles)
        m_paths.resize(MaxFiles);
}

void RecentFiles::Add(const std::string& Path)
{
    Remove(Path);
    m_paths.insert(m_paths.begin(), Path);
    if (m_paths.size() > MaxFiles)
        m_paths.pop_back();
}

} // namespace morvane
