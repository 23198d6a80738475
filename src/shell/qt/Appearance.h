// The look of the program: one calm light palette on the Fusion style, the same on every desktop.
#pragma once
#include <QColor>

class QApplication;

namespace morvane {

inline constexpr QColor WorkAreaColor{0xb4, 0xba, 0xc2};

void ApplyAppearance(QApplication& To);

} // namespace morvane
