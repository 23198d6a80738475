#include "shell/qt/DialogPlace.h"

#include <QDialog>

#include "shell/qt/Screens.h"

namespace morvane {

void TakeKeptPlace(QDialog& Of, SettingsStore& Settings, const PlaceKey& Key)
{
    Of.adjustSize(); // a later change would take the place for that inside the frame
    const QPoint middle = Of.parentWidget()->frameGeometry().center() - Of.rect().center();
    const BoxPlace place = ReadPlace(Settings, Key, {middle.x(), middle.y()});
    const QPoint kept(place.Left, place.Top);
    Of.move(IsReachable({kept, Of.size()}) ? kept : middle);
}

void KeepPlace(const QDialog& Of, SettingsStore& Settings, const PlaceKey& Key)
{
    WritePlace(Settings, Key, {Of.x(), Of.y()});
}

} // namespace morvane
