// The box of the fringe order with its two arrows. It takes any digits; what is typed and what the
// arrows lead to is for others to decide.
#pragma once
#include <QAbstractSpinBox>

namespace morvane {

class OrderBox final : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit OrderBox(QWidget* Parent = nullptr);

    // The cursor stays where Text is shown already.
    void ShowOrder(const QString& Text, StepEnabled Steps);

    QValidator::State validate(QString& Text, int& At) const override;
    void stepBy(int Steps) override;

signals:
    void Typed(const QString& Text);
    void Stepped(int Steps);

protected:
    StepEnabled stepEnabled() const override { return m_steps; }

private:
    StepEnabled m_steps;
};

} // namespace morvane
