#include "shell/ToolBoxSettings.h"

namespace morvane {
namespace {

constexpr const char* Section = "Toolbox";
constexpr const char* OrderName = "Fringe Order";

struct KindKey {
    const char* Name;
    ShapeRole Role;
};
constexpr KindKey Kinds[] = {
    {"Aperture Type", ShapeRole::Aperture}, {"Obstruction Type", ShapeRole::Obstruction}};

} // namespace

void ReadToolBox(SettingsStore& From, ToolBox& Into)
{
    for (const KindKey& kind : Kinds)
        Into.SetKind(
            kind.Role, static_cast<ShapeKind>(From.GetSettingLong(Section, kind.Name, 1, 3, 1)));
    Into.SetOrder(From.GetSettingLong(Section, OrderName, 1, MaxFringes, 1));
    From.TakeAsRead(Section, OrderName, Into.OrderText());
}

void WriteToolBox(SettingsStore& Into, const ToolBox& Written)
{
    for (const KindKey& kind : Kinds)
        Into.SaveSettingLong(Section, kind.Name, static_cast<int>(Written.KindOf(kind.Role)));
    Into.SaveSettingString(Section, OrderName, Written.OrderText());
}

} // namespace morvane
