// The pictures of the commands: line drawings in the text colour of the palette that holds while
// they are painted, so that they stay sharp at every density and follow a change to a dark desktop.
#pragma once
#include <QIcon>

namespace morvane {

// Name is a file of shell/icons without its ending; empty if there is none.
QIcon CommandIcon(const QString& Name);

} // namespace morvane
