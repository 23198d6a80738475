#include "interferogram/qt/OrderBox.h"

#include <QLineEdit>
#include <algorithm>

#include "shell/InputPrompt.h"

namespace morvane {

OrderBox::OrderBox(QWidget* Parent) : QAbstractSpinBox(Parent)
{
    lineEdit()->setObjectName("txtOrder");
    setFocusPolicy(Qt::StrongFocus); // the wheel alone must not take it
    connect(lineEdit(), &QLineEdit::textEdited, this, &OrderBox::Typed);
}

void OrderBox::ShowOrder(const QString& Text, StepEnabled Steps)
{
    m_steps = Steps;
    update();
    if (lineEdit()->text() != Text)
        lineEdit()->setText(Text);
}

QValidator::State OrderBox::validate(QString& Text, int&) const
{
    const bool isNumber = std::ranges::all_of(Text, [](QChar character) {
        return AcceptsCharacter(InputKind::PositiveInteger, character.unicode());
    });
    return isNumber ? QValidator::Acceptable : QValidator::Invalid;
}

void OrderBox::stepBy(int Steps)
{
    emit Stepped(Steps);
}

} // namespace morvane
