#include "shell/qt/DialogPlace.h"

#include <QDialog>

#include "shell/qt/Screens.h"

namespace morvane {

// The corner of the screen is where nobody has put it yet.
void TakeKeptPlace(QDialog& Of, SettingsStore& Settings, const PlaceKey& Key)
{
    const BoxPlace place = ReadPlace(Settings, Key);
    const QPoint kept(place.Left, place.Top);
    Of.adjustSize(); // a later change would take the place for that inside the frame
    if (!kept.isNull() && IsReachable({kept, Of.size()}))
        Of.move(kept);
}

void KeepPlace(const QDialog& Of, SettingsStore& Settings, const PlaceKey& Key)
{
    WritePlace(Settings, Key, {Of.x(), Of.y()});
}

} // namespace morvane
