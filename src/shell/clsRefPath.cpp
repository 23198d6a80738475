#include "shell/clsRefPath.h"

namespace morvane {

std::string clsRefPath::GetItem(int Index) const
{
    return IsItem(Index) ? m_paths[Index - 1] : std::string();
}

void clsRefPath::SetItem(int Index, const std::string& Path)
{
    if (IsItem(Index))
        m_paths[Index - 1] = Path;
}

void clsRefPath::RemoveItem(int Index)
{
    if (IsItem(Index))
        m_paths.erase(m_paths.begin() + Index - 1);
}

} // namespace morvane
