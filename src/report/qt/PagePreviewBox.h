// The page setup's picture of the page, in physical pixels.
#pragma once
#include <QWidget>

#include "document/Preferences.h"

namespace morvane {

class PagePreviewBox final : public QWidget {
public:
    using QWidget::QWidget;

    void ShowPage(const ReportPreferences& Chosen);

protected:
    void paintEvent(QPaintEvent* Event) override;

private:
    ReportPreferences m_chosen;
};

} // namespace morvane
