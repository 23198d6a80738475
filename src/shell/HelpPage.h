// The page that Help, Contents opens.
#pragma once
#include <optional>
#include <string>

namespace morvane {

// Beside the program, as in a build, or where an installation has it; none if it is at neither.
std::optional<std::string> HelpPage(const std::string& ProgramFolder);

} // namespace morvane
