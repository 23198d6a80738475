#include "platform/qt/QtMessages.h"

#include <QMessageBox>

namespace morvane {
namespace {

constexpr int ButtonBits = 7, SignBits = 0x70;

QMessageBox::StandardButtons ButtonsOf(int Flags)
{
    switch (Flags & ButtonBits) {
    case MessageOkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageAbortRetryIgnore:
        return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case MessageYesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageYesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon IconOf(int Flags)
{
    switch (Flags & SignBits) {
    case MessageStopSign:
        return QMessageBox::Critical;
    case MessageQuestionSign:
        return QMessageBox::Question;
    case MessageWarningSign:
        return QMessageBox::Warning;
    default:
        return QMessageBox::NoIcon;
    }
}

MessageAnswer AnswerOf(int Button)
{
    switch (Button) {
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    case QMessageBox::Abort:
        return MessageAnswer::Abort;
    case QMessageBox::Retry:
        return MessageAnswer::Retry;
    case QMessageBox::Ignore:
        return MessageAnswer::Ignore;
    case QMessageBox::Cancel:
        return MessageAnswer::Cancel;
    default:
        return MessageAnswer::Ok;
    }
}

} // namespace

MessageAnswer QtMessages::Answer(const Message& Asked)
{
    QMessageBox box(m_mainWindow);
    box.setWindowTitle(QString::fromStdString(Asked.Title));
    // File names are shown as they are, whatever markup they look like.
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(Asked.Text).replace("\r\n", "\n"));
    box.setIcon(IconOf(Asked.Flags));
    box.setStandardButtons(ButtonsOf(Asked.Flags));
    return AnswerOf(box.exec());
}

} // namespace morvane
