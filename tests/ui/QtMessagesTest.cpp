#include "platform/qt/QtMessages.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace morvane {
namespace {

TEST(QtMessages, ButtonsFollowTheFlagsAndNameTheAnswer)
{
    const struct {
        int Flags;
        QMessageBox::StandardButton Pressed;
        MessageAnswer Answer;
        QMessageBox::Icon Icon;
        int NumButtons;
    } cases[] = {
        {MessageOk, QMessageBox::Ok, MessageAnswer::Ok, QMessageBox::NoIcon, 1},
        {MessageTaskModal | MessageStopSign, QMessageBox::Ok, MessageAnswer::Ok,
            QMessageBox::Critical, 1},
        {MessageYesNoCancel | MessageQuestionSign, QMessageBox::Yes, MessageAnswer::Yes,
            QMessageBox::Question, 3},
        {MessageYesNoCancel | MessageQuestionSign, QMessageBox::Cancel, MessageAnswer::Cancel,
            QMessageBox::Question, 3},
        {MessageYesNo | MessageWarningSign, QMessageBox::No, MessageAnswer::No,
            QMessageBox::Warning, 2},
        {MessageAbortRetryIgnore, QMessageBox::Retry, MessageAnswer::Retry, QMessageBox::NoIcon, 3},
        {MessageAbortRetryIgnore, QMessageBox::Ignore, MessageAnswer::Ignore, QMessageBox::NoIcon,
            3},
    };
    for (const auto& c : cases) {
        QString text, title;
        QTimer::singleShot(0, [&] {
            auto& box = *qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            text = box.text();
            title = box.windowTitle();
            EXPECT_EQ(box.icon(), c.Icon) << c.Flags;
            EXPECT_EQ(box.buttons().size(), c.NumButtons) << c.Flags;
            QTest::mouseClick(box.button(c.Pressed), Qt::LeftButton);
        });
        QtMessages messages;
        EXPECT_EQ(messages.Answer({"First <b>\r\nsecond", c.Flags, "Warning"}), c.Answer)
            << c.Flags;
        EXPECT_EQ(text, "First <b>\nsecond");
        EXPECT_EQ(title, "Warning");
    }
}

TEST(QtMessages, EscapeIsTheCarefulAnswer)
{
    const struct {
        int Flags;
        MessageAnswer Answer;
    } cases[] = {{MessageOk, MessageAnswer::Ok}, {MessageYesNoCancel, MessageAnswer::Cancel},
        {MessageYesNo, MessageAnswer::No}, {MessageAbortRetryIgnore, MessageAnswer::Abort}};
    for (const auto& c : cases) {
        QTimer::singleShot(
            0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        QtMessages messages;
        EXPECT_EQ(messages.Answer({"?", c.Flags, "Question"}), c.Answer) << c.Flags;
    }
}

} // namespace
} // namespace morvane
