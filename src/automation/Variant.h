// A value as scripts hand it over.
#pragma once
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace morvane {

using Variant =
    std::variant<std::monostate, bool, std::int64_t, double, std::string, std::vector<double>>;

} // namespace morvane
