// What the program remembers between runs: a tree of sections with text values, in one file that
// people may edit by hand. It is read once; saving changes nothing in the file but the values that
// this program changed, so that several running programs keep each other's.
//
// The program writes all its values back at exit, the user's changes among them. A value that goes
// back as the program was given it, by a default or a clamp too, is no change of the user's: it is
// written only while the file still says what it said. A value that the program was never given is
// the user's in any case.
//
// A file that is missing, unreadable or damaged never fails a read: what can't be made out is
// absent. Such a file isn't destroyed either (Save).
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/File.h"
#include "shell/SettingsText.h"

namespace morvane {

// "morvane/settings.ini" in the user's folder for settings, or the file that the environment names
// in MORVANE_SETTINGS.
std::string SettingsPath();

inline constexpr std::int32_t NoLongRange = 2147483647;
inline constexpr double NoDoubleRange = 1E+308;

// Of a list that several programs add to: what any of them has added comes before what was there,
// or the order is that of the program that saves, and what others have added stands behind.
enum class ListOrder { NewFirst, AsSaved };

class SettingsStore {
public:
    static constexpr std::size_t MaxFileBytes = 4 << 20; // a larger file is not read
    // A longer value is cut, between two characters.
    static constexpr std::size_t MaxValueBytes = 1023;

    explicit SettingsStore(std::string Path);
    const std::string& Path() const { return m_path; }

    std::string GetSettingString(
        std::string_view Section, std::string_view Name, std::string_view Default);
    void SaveSettingString(std::string_view Section, std::string_view Name, std::string_view Value);

    // The number at the start of the stored text, or Default, clamped to Min and Max. If one of the
    // three is NoLongRange, the stored number as it is, and 0 if there is none.
    std::int32_t GetSettingLong(std::string_view Section, std::string_view Name, std::int32_t Min,
        std::int32_t Max, std::int32_t Default);
    void SaveSettingLong(std::string_view Section, std::string_view Name, std::int32_t Value);

    // The same, with NoDoubleRange.
    double GetSettingDouble(
        std::string_view Section, std::string_view Name, double Min, double Max, double Default);
    void SaveSettingDouble(std::string_view Section, std::string_view Name, double Value);

    // Stored text is true if its number is not 0; so "yes" is false.
    bool GetSettingBool(std::string_view Section, std::string_view Name, bool Default);
    void SaveSettingBool(std::string_view Section, std::string_view Name, bool Value);

    // The texts under Prefix and a number, from 1 up to the first empty one; each once.
    std::vector<std::string> GetSettingList(
        std::string_view Section, std::string_view Prefix) const;
    // What this program added or removed is added to or removed from the list that the file has by
    // then. At most MaxCount stay.
    void SaveSettingList(std::string_view Section, std::string_view Prefix,
        const std::vector<std::string>& Values, ListOrder Order, std::size_t MaxCount);

    void DeleteSetting(std::string_view Section, std::string_view Name);

    // The program has made Value out of the text that it read, by a rule of its own; saving Value
    // is no change of the user's.
    void TakeAsRead(std::string_view Section, std::string_view Name, std::string_view Value);

    // The user chooses anew what stands under the name: what is saved next is a change of the
    // user's, even if it is what the program was given.
    void TakeAsChosen(std::string_view Section, std::string_view Name);

    // Brings what was changed into the file, whole or not at all. A file that can't be read, or
    // would grow beyond what is read, stays as it is, and the changes wait for the next Save.
    FileResult Save();

private:
    struct Change : SettingChange {
        bool IsOfUser;
    };

    std::optional<std::string> Find(std::string_view Section, std::string_view Name) const;
    void Put(std::string_view Section, std::string_view Name, std::optional<std::string> Value,
        bool IsOfUser);
    template <typename Reading>
    void PutNumber(
        std::string_view Section, std::string_view Name, std::string Text, Reading NumberIn);
    struct ListChange {
        std::string Section, Prefix;
        std::vector<std::string> Values;
        ListOrder Order;
        std::size_t MaxCount;
    };

    std::vector<SettingChange> ChangesFor(const SettingsValues& Present) const;
    std::vector<SettingChange> ChangesFor(
        const ListChange& List, const SettingsValues& Present) const;

    std::string m_path;
    SettingsValues m_inFile; // as read, and as saved since
    SettingsValues m_given; // what the program was told, and what it saved since
    std::vector<Change> m_changes; // in the order of their writing
    std::vector<ListChange> m_lists;
};

} // namespace morvane
