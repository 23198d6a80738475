// The area of the main window that holds the windows of the documents. While it is empty it says
// how to begin.
#pragma once
#include <QMdiArea>

namespace morvane {

class WorkArea final : public QMdiArea {
public:
    explicit WorkArea(QWidget* Parent);

protected:
    void resizeEvent(QResizeEvent* Event) override;
    void paintEvent(QPaintEvent* Event) override;
};

} // namespace morvane
