#include "shell/BoxPlace.h"

namespace morvane {
namespace {

std::vector<SettingRow> PlaceRows(const PlaceKey& Key, const PlaceLimits& Within, BoxPlace& Of)
{
    const std::string prefix = Key.Prefix;
    return {
        {prefix + "Left", &Of.Left, double(Within.Min.Left), double(Within.Max.Left)},
        {prefix + "Top", &Of.Top, double(Within.Min.Top), double(Within.Max.Top)},
    };
}

} // namespace

BoxPlace ReadPlace(
    SettingsStore& From, const PlaceKey& Key, const BoxPlace& Default, const PlaceLimits& Within)
{
    BoxPlace place = Default;
    ReadRows(From, Key.Section, PlaceRows(Key, Within, place));
    return place;
}

void WritePlace(SettingsStore& Into, const PlaceKey& Key, const BoxPlace& Written)
{
    BoxPlace copy = Written; // the rows point to what can be changed
    WriteRows(Into, Key.Section, PlaceRows(Key, {}, copy));
}

} // namespace morvane
