// The files opened last, the newest first, full paths.
#pragma once
#include <string>
#include <vector>

namespace morvane {

class RecentFiles {
public:
    static constexpr int MaxFiles = 4;

    const std::vector<std::string>& Paths() const { return m_paths; }
    // Takes the first MaxFiles of them.
    void SetPaths(std::vector<std::string> Paths);
    // Puts Path first; it stands in the list once, and the oldest drops out.
    void Add(const std::string& Path);
    void Remove(const std::string& Path) { std::erase(m_paths, Path); }

private:
    std::vector<std::string> m_paths;
};

} // namespace morvane
