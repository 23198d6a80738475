// A text view of a document: one read-only box over the whole client, in the document's font, its
// columns at tab stops that follow the font.
#pragma once
#include "document/qt/OutputView.h"

class QPlainTextEdit;

namespace morvane {

class frmText final : public OutputView<TextWindow> {
public:
    frmText(clsDocument& Of, ViewType Kind, Session& In);

    void Repaint() override;
    void SetText(
        const std::string& Text, const TextFont& Font, std::span<const int> TabStops) override;
    std::string TextToCopy() const override;

protected:
    QRect Room(QSize WorkArea) const override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void SetFont(const TextFont& Font);
    void SetTabStops(std::span<const int> TabStops);
    QSize SizeOfText() const;

    QPlainTextEdit* m_text; // owned by Qt
    bool m_hasText = false;
};

} // namespace morvane
