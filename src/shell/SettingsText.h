// The text of a settings file: sections in brackets, and under each one value a line, "Name =
// value". People edit it by hand, so reading forgives and changing touches only the lines it must:
// comments, blank lines, unknown names, the order, and whatever is not understood stay as they are.
//
// Names of sections and values match without regard to ASCII case. A value that stands twice counts
// where it stands last. Names are the program's own: not empty, without "=", "]", line break or
// blank at an end, and not beginning with "#" or "[".
#pragma once
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

struct LessIgnoringCase {
    using is_transparent = void;
    bool operator()(std::string_view Left, std::string_view Right) const;
};
bool IsSameIgnoringCase(std::string_view Left, std::string_view Right);

template <typename T>
using ByName = std::map<std::string, T, LessIgnoringCase>;

// Texts by section and name.
using SettingsValues = ByName<ByName<std::string>>;

// nullptr if there is none.
const std::string* FindSetting(
    const SettingsValues& In, std::string_view Section, std::string_view Name);

struct SettingChange {
    std::string Section, Name;
    std::optional<std::string> Value; // none: the value is deleted
};

// Any bytes give what can be made out in them.
SettingsValues ReadSettingsText(std::string_view Text);

// The text with the changes made; each value at most once among them. New values stand behind the
// others of their section, in the order of Changes; an empty text gets an explanation at its top.
std::string ChangeSettingsText(std::string_view Text, std::span<const SettingChange> Changes);

} // namespace morvane
