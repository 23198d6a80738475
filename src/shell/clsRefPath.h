// The reference files that the analysis window lists, full paths, counted from 1.
#pragma once
#include <string>
#include <vector>

namespace morvane {

class clsRefPath {
public:
    int Count() const { return static_cast<int>(m_paths.size()); }
    // Empty outside 1 to Count.
    std::string GetItem(int Index) const;
    void SetItem(int Index, const std::string& Path);
    void AddItem(const std::string& Path) { m_paths.push_back(Path); }
    void RemoveItem(int Index);

private:
    bool IsItem(int Index) const { return Index >= 1 && Index <= Count(); }

    std::vector<std::string> m_paths;
};

} // namespace morvane
