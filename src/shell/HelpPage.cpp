#include "shell/HelpPage.h"

#include "shell/modFileLib.h"

namespace morvane {

std::optional<std::string> HelpPage(const std::string& ProgramFolder)
{
    for (const char* place : {"/help/index.html", "/../share/morvane/help/index.html"})
        if (std::string page = ProgramFolder + place; FileExistsAt(page))
            return page;
    return std::nullopt;
}

} // namespace morvane
