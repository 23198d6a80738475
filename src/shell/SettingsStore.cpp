#include "shell/SettingsStore.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/Numbers.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

// Only one program at a time may hold the lock of a file; others wait for it at the construction.
// A program that is stopped while it holds the lock must not keep the others from ending, and some
// file systems know no locks, so the wait is short and then the work goes on without.
class FileLock {
public:
    explicit FileLock(const std::string& Path)
        : m_handle(open(Path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666))
    {
        constexpr std::chrono::milliseconds longest(2000), step(2);
        const auto end = std::chrono::steady_clock::now() + longest;
        while (m_handle >= 0 && flock(m_handle, LOCK_EX | LOCK_NB) != 0
            && (errno == EWOULDBLOCK || errno == EINTR) && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(step);
    }
    ~FileLock()
    {
        if (m_handle >= 0)
            close(m_handle);
    }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int m_handle;
};

// A file that is not there is an empty one.
FileResult ReadText(const std::string& Path, std::string& Text)
{
    Text.clear();
    std::error_code error;
    if (fs::status(Path, error).type() == fs::file_type::not_found)
        return {};
    std::vector<std::uint8_t> bytes;
    FileResult result = ReadWholeFile(Path, SettingsStore::MaxFileBytes, bytes);
    Text.assign(bytes.begin(), bytes.end());
    return result;
}

bool IsInsideCharacter(char Byte)
{
    return (static_cast<unsigned char>(Byte) & 0xC0) == 0x80;
}

// Up to the first NUL, and no more than MaxValueBytes of whole UTF-8 characters.
std::string_view CutValue(std::string_view Text)
{
    constexpr std::size_t longestTail = 3; // of a character
    Text = Text.substr(0, Text.find('\0'));
    if (Text.size() <= SettingsStore::MaxValueBytes)
        return Text;
    std::size_t end = SettingsStore::MaxValueBytes;
    while (IsInsideCharacter(Text[end]) && end > SettingsStore::MaxValueBytes - longestTail)
        --end;
    return Text.substr(0, IsInsideCharacter(Text[end]) ? SettingsStore::MaxValueBytes : end);
}

SettingsValues ReadValues(std::string_view Text)
{
    SettingsValues values = ReadSettingsText(Text);
    for (auto& [section, names] : values)
        for (auto& [name, value] : names)
            value.resize(CutValue(value).size());
    return values;
}

std::int32_t LongIn(std::string_view Text)
{
    return RoundToLong(LeadingNumber(Text));
}

std::string TextOf(bool Value)
{
    return Value ? "1" : "0";
}

bool Holds(const std::vector<std::string>& List, const std::string& Value)
{
    return std::ranges::find(List, Value) != List.end();
}

std::string NameInList(std::string_view Prefix, std::size_t Index)
{
    return std::string(Prefix) + std::to_string(Index + 1);
}

std::vector<std::string> ListIn(
    const SettingsValues& Values, std::string_view Section, std::string_view Prefix)
{
    std::vector<std::string> list;
    for (std::size_t i = 0;; ++i) {
        const std::string* const found = FindSetting(Values, Section, NameInList(Prefix, i));
        if (found == nullptr || found->empty())
            return list;
        if (!Holds(list, *found))
            list.push_back(*found);
    }
}

// What was Before and isn't There any more another program has removed; what is There and wasn't
// Before it has added.
std::vector<std::string> MergedList(const std::vector<std::string>& Before,
    const std::vector<std::string>& Ours, const std::vector<std::string>& There, ListOrder Order)
{
    const auto wasBefore = [&](const std::string& value) { return Holds(Before, value); };
    std::vector<std::string> merged;
    for (const std::string& value : Ours)
        if (!wasBefore(value) || Holds(There, value))
            merged.push_back(value);
    auto place = merged.end();
    if (Order == ListOrder::NewFirst)
        place = std::stable_partition(merged.begin(), merged.end(), std::not_fn(wasBefore));
    std::vector<std::string> added;
    for (const std::string& value : There)
        if (!wasBefore(value) && !Holds(merged, value))
            added.push_back(value);
    merged.insert(place, added.begin(), added.end());
    return merged;
}

} // namespace

std::string SettingsPath()
{
    if (const char* const own = std::getenv("MORVANE_SETTINGS"); own != nullptr && *own != 0)
        return own;
    const char* const folder = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    // A relative folder is not valid, says the XDG base directory standard.
    const fs::path root = folder != nullptr && *folder == '/' ? fs::path(folder)
        : home != nullptr                                     ? fs::path(home) / ".config"
                                                              : fs::path(".config");
    return root / "morvane" / "settings.ini";
}

SettingsStore::SettingsStore(std::string Path) : m_path(std::move(Path))
{
    std::string text;
    ReadText(m_path, text);
    m_inFile = ReadValues(text);
}

std::string SettingsStore::GetSettingString(
    std::string_view Section, std::string_view Name, std::string_view Default)
{
    std::string value = Find(Section, Name).value_or(std::string(Default));
    TakeAsRead(Section, Name, value);
    return value;
}

void SettingsStore::SaveSettingString(
    std::string_view Section, std::string_view Name, std::string_view Value)
{
    std::string text(CutValue(Value));
    const std::string* const given = FindSetting(m_given, Section, Name);
    const bool isOfUser = given == nullptr || *given != text;
    Put(Section, Name, std::move(text), isOfUser);
}

std::int32_t SettingsStore::GetSettingLong(std::string_view Section, std::string_view Name,
    std::int32_t Min, std::int32_t Max, std::int32_t Default)
{
    const bool hasRange = Min != NoLongRange && Max != NoLongRange && Default != NoLongRange;
    const std::optional<std::string> text = Find(Section, Name);
    std::int32_t value = text ? LongIn(*text) : hasRange ? Default : 0;
    if (hasRange)
        value = std::min(std::max(value, Min), Max);
    TakeAsRead(Section, Name, std::to_string(value));
    return value;
}

void SettingsStore::SaveSettingLong(
    std::string_view Section, std::string_view Name, std::int32_t Value)
{
    PutNumber(Section, Name, std::to_string(Value), LongIn);
}

double SettingsStore::GetSettingDouble(
    std::string_view Section, std::string_view Name, double Min, double Max, double Default)
{
    const bool hasRange = Min != NoDoubleRange && Max != NoDoubleRange && Default != NoDoubleRange;
    const std::optional<std::string> text = Find(Section, Name);
    double value = text ? LeadingNumber(*text) : hasRange ? Default : 0;
    if (hasRange)
        value = std::min(std::max(value, Min), Max);
    TakeAsRead(Section, Name, FormatShortest(value));
    return value;
}

void SettingsStore::SaveSettingDouble(std::string_view Section, std::string_view Name, double Value)
{
    PutNumber(Section, Name, FormatShortest(Value), LeadingNumber);
}

bool SettingsStore::GetSettingBool(std::string_view Section, std::string_view Name, bool Default)
{
    const std::optional<std::string> text = Find(Section, Name);
    const bool value = text ? LeadingNumber(*text) != 0 : Default;
    TakeAsRead(Section, Name, TextOf(value));
    return value;
}

void SettingsStore::SaveSettingBool(std::string_view Section, std::string_view Name, bool Value)
{
    PutNumber(Section, Name, TextOf(Value),
        [](std::string_view Text) { return LeadingNumber(Text) != 0; });
}

std::vector<std::string> SettingsStore::GetSettingList(
    std::string_view Section, std::string_view Prefix) const
{
    return ListIn(m_inFile, Section, Prefix);
}

void SettingsStore::SaveSettingList(std::string_view Section, std::string_view Prefix,
    const std::vector<std::string>& Values, ListOrder Order, std::size_t MaxCount)
{
    std::erase_if(m_lists, [&](const ListChange& Earlier) {
        return Earlier.Section == Section && Earlier.Prefix == Prefix;
    });
    std::vector<std::string> values;
    std::ranges::transform(Values, std::back_inserter(values),
        [](const std::string& value) { return std::string(CutValue(value)); });
    if (values != GetSettingList(Section, Prefix))
        m_lists.push_back(
            {std::string(Section), std::string(Prefix), std::move(values), Order, MaxCount});
}

void SettingsStore::DeleteSetting(std::string_view Section, std::string_view Name)
{
    Put(Section, Name, std::nullopt, true);
}

void SettingsStore::TakeAsRead(
    std::string_view Section, std::string_view Name, std::string_view Value)
{
    m_given[std::string(Section)][std::string(Name)] = Value;
}

void SettingsStore::TakeAsChosen(std::string_view Section, std::string_view Name)
{
    m_given[std::string(Section)].erase(std::string(Name));
}

std::optional<std::string> SettingsStore::Find(
    std::string_view Section, std::string_view Name) const
{
    for (const Change& change : m_changes)
        if (IsSameIgnoringCase(change.Name, Name) && IsSameIgnoringCase(change.Section, Section))
            return change.Value;
    const std::string* const stored = FindSetting(m_inFile, Section, Name);
    return stored != nullptr ? std::optional(*stored) : std::nullopt;
}

void SettingsStore::Put(std::string_view Section, std::string_view Name,
    std::optional<std::string> Value, bool IsOfUser)
{
    std::erase_if(m_changes, [&](const Change& Earlier) {
        return IsSameIgnoringCase(Earlier.Name, Name)
            && IsSameIgnoringCase(Earlier.Section, Section);
    });
    const std::string* const stored = FindSetting(m_inFile, Section, Name);
    if (!IsOfUser && stored != nullptr && Value == *stored)
        return;
    m_changes.push_back({{std::string(Section), std::string(Name), std::move(Value)}, IsOfUser});
}

// A number that stands in the file already stays as it is typed there.
template <typename Reading>
void SettingsStore::PutNumber(
    std::string_view Section, std::string_view Name, std::string Text, Reading NumberIn)
{
    const auto isSame = [&, number = NumberIn(Text)](const std::string* other) {
        return other != nullptr && NumberIn(*other) == number;
    };
    const bool isOfUser = !isSame(FindSetting(m_given, Section, Name));
    if (const std::string* const stored = FindSetting(m_inFile, Section, Name); isSame(stored))
        Text = *stored;
    Put(Section, Name, std::move(Text), isOfUser);
}

std::vector<SettingChange> SettingsStore::ChangesFor(const SettingsValues& Present) const
{
    std::vector<SettingChange> changes;
    for (const Change& change : m_changes) {
        const std::string* const read = FindSetting(m_inFile, change.Section, change.Name);
        const std::string* const now = FindSetting(Present, change.Section, change.Name);
        const bool isUntouched = read != nullptr && now != nullptr ? *read == *now : read == now;
        if (change.IsOfUser || isUntouched)
            changes.push_back(change);
    }
    return changes;
}

FileResult SettingsStore::Save()
{
    if (m_changes.empty() && m_lists.empty())
        return {};
    std::error_code error; // without its folder the file can't be written, which says why
    fs::create_directories(fs::path(m_path).parent_path(), error);
    const FileLock lock(m_path + ".lock");
    std::string before;
    if (FileResult result = ReadText(m_path, before); !result)
        return result;
    const SettingsValues present = ReadValues(before);
    std::vector<SettingChange> changes = ChangesFor(present);
    for (const ListChange& list : m_lists)
        std::ranges::move(ChangesFor(list, present), std::back_inserter(changes));
    std::vector<SettingChange> edits = changes;
    std::erase_if(edits, [&](const SettingChange& change) {
        const std::string* const now = FindSetting(present, change.Section, change.Name);
        return now != nullptr ? change.Value == *now : !change.Value;
    });
    const std::string after = ChangeSettingsText(before, edits);
    if (after.size() > MaxFileBytes)
        return {std::generic_category().message(EFBIG)};
    if (!edits.empty())
        if (FileResult result = WriteWholeFile(m_path, after); !result)
            return result;
    for (const SettingChange& change : changes) {
        if (change.Value)
            m_inFile[change.Section][change.Name] = m_given[change.Section][change.Name] =
                *change.Value;
        else
            m_inFile[change.Section].erase(change.Name);
    }
    m_changes.clear();
    m_lists.clear();
    return {};
}

std::vector<SettingChange> SettingsStore::ChangesFor(
    const ListChange& List, const SettingsValues& Present) const
{
    const std::vector<std::string> there = ListIn(Present, List.Section, List.Prefix);
    std::vector<std::string> merged =
        MergedList(GetSettingList(List.Section, List.Prefix), List.Values, there, List.Order);
    if (merged.size() > List.MaxCount)
        merged.resize(List.MaxCount);
    std::vector<SettingChange> changes;
    changes.reserve(merged.size());
    for (std::size_t i = 0; i < merged.size(); ++i)
        changes.push_back({List.Section, NameInList(List.Prefix, i), merged[i]});
    for (std::size_t i = merged.size();; ++i) {
        const std::string name = NameInList(List.Prefix, i);
        const bool isInFile = FindSetting(Present, List.Section, name) != nullptr;
        if (!isInFile && i >= there.size())
            return changes;
        changes.push_back({List.Section, name, std::nullopt});
    }
}

} // namespace morvane
