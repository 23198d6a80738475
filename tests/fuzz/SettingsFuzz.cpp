// Any bytes as a settings file: what is changed in it reads back, and nothing else changes. Built
// with clang++ -fsanitize=fuzzer,address,undefined.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <type_traits>

#include "shell/SettingsText.h"

namespace {

using namespace morvane;

void Require(bool Holds)
{
    if (!Holds)
        std::abort();
}

// A change may spell a name in another case than the file did.
template <typename T>
bool IsSame(const ByName<T>& Left, const ByName<T>& Right)
{
    const auto isSame = [](const auto& left, const auto& right) {
        if constexpr (std::is_same_v<T, std::string>)
            return IsSameIgnoringCase(left.first, right.first) && left.second == right.second;
        else
            return IsSameIgnoringCase(left.first, right.first) && IsSame(left.second, right.second);
    };
    return std::equal(Left.begin(), Left.end(), Right.begin(), Right.end(), isSame);
}

// Makes the change in the text and in the values that it holds; both must be the same again.
void CheckChange(const std::string& Text, SettingsValues Values, const SettingChange& Change)
{
    if (Change.Value)
        Values[Change.Section][Change.Name] = *Change.Value;
    else
        Values[Change.Section].erase(Change.Name);
    const std::string changed = ChangeSettingsText(Text, {&Change, 1});
    SettingsValues read = ReadSettingsText(changed);
    read[Change.Section]; // deleting doesn't make a section
    Require(IsSame(read, Values));
    Require(ChangeSettingsText(changed, {&Change, 1}) == changed);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size)
{
    const std::string text(Data, Data + Size);
    const SettingsValues values = ReadSettingsText(text);
    CheckChange(text, values, {"CurrentVersion", "Surface Levels", text});
    for (const auto& [section, names] : values)
        for (const auto& [name, value] : names) {
            CheckChange(text, values, {section, name, value + "x"});
            CheckChange(text, values, {section, name, std::nullopt});
            return 0;
        }
    return 0;
}
