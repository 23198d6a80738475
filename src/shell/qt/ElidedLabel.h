// A line of text that takes the room it is given: what does not fit is cut with an ellipsis and
// shows as a tool tip.
#pragma once
#include <QLabel>

namespace morvane {

class ElidedLabel final : public QLabel {
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* Event) override;
    bool event(QEvent* Event) override;

private:
    QString Shown() const;
};

} // namespace morvane
