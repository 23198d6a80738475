// The names under which Morvane stands on the bus.
#pragma once
#include <QLatin1String>

namespace morvane {

inline constexpr QLatin1String BusService("com.ostrellabs.Morvane");
inline constexpr QLatin1String BusObject("/com/ostrellabs/Morvane");
inline constexpr QLatin1String DocInterface("com.ostrellabs.Morvane1.MorvaneDoc");
inline constexpr QLatin1String ErrorPrefix("com.ostrellabs.Morvane1.Error.");
inline constexpr QLatin1String ReleaseMember("Release");

} // namespace morvane
