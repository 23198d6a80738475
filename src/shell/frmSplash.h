// The program's name, version and platform: while it starts, and from the Help menu. A click
// anywhere closes it.
#pragma once
#include <QDialog>

namespace morvane {

class frmSplash final : public QDialog {
public:
    // Without an owner it stands in the middle of the screen, above all others.
    explicit frmSplash(QWidget* Owner = nullptr);

protected:
    void mousePressEvent(QMouseEvent* Event) override;
    void paintEvent(QPaintEvent* Event) override;
};

} // namespace morvane
