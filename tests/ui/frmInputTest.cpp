#include "shell/frmInput.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "Desk.h"

namespace morvane::test {
namespace {

const InputRequest request{.Caption = "Renumber Fringe",
    .Prompt = "Enter new fringe order:",
    .Text = "4",
    .Kind = InputKind::PositiveInteger,
    .Min = 1,
    .Max = 200};

class frmInputPrompt : public testing::Test, public Desk {
protected:
    // What AskInput gives if Act is what the user does with the dialog.
    std::optional<InputAnswer> Ask(const std::function<void(frmInput&, QLineEdit&)>& Act)
    {
        QTimer::singleShot(0, [&] {
            auto& dialog = *qobject_cast<frmInput*>(QApplication::activeModalWidget());
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            Settle();
            Act(dialog, *dialog.findChild<QLineEdit*>("txtInput"));
        });
        return Frame.AskInput(request);
    }
};

TEST_F(frmInputPrompt, EnterIsOkAndEscapeIsCancel)
{
    const auto answer = Ask([](frmInput& dialog, QLineEdit& box) {
        EXPECT_EQ(dialog.windowTitle(), "Renumber Fringe");
        EXPECT_EQ(dialog.findChild<QLabel*>("lblPrompt")->text(), "Enter new fringe order:");
        EXPECT_EQ(box.selectedText(), "4");
        QTest::keyClicks(&box, "-1x2.");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->Value, 12);
    EXPECT_FALSE(answer->Clamped);
    EXPECT_FALSE(
        Ask([](frmInput&, QLineEdit& box) { QTest::keyClick(&box, Qt::Key_Escape); }).has_value());
}

TEST_F(frmInputPrompt, ANumberOutOfRangeIsClamped)
{
    const auto answer = Ask([](frmInput& dialog, QLineEdit& box) {
        QTest::keyClicks(&box, "999");
        dialog.findChild<QPushButton*>("cmdOK")->click();
    });
    ASSERT_TRUE(answer);
    EXPECT_TRUE(answer->Clamped);
    EXPECT_EQ(answer->Value, 200);
}

TEST_F(frmInputPrompt, PastedTextIsFilteredToo)
{
    QApplication::clipboard()->setText("-7");
    const auto answer = Ask([](frmInput& dialog, QLineEdit& box) {
        box.paste();
        dialog.accept();
    });
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->Text, "4");
}

TEST_F(frmInputPrompt, ItsPlaceIsKeptUnlessItIsOffTheScreen)
{
    Frame.resize(360, 340);
    Frame.move(20, 20);
    const auto cancel = [](frmInput& dialog, QLineEdit&) { dialog.reject(); };
    Ask([](frmInput& dialog, QLineEdit&) {
        dialog.move(50, 60);
        dialog.reject();
    });
    EXPECT_EQ(Settings.GetSettingString("CurrentVersion", "InputDlgLeft", ""), "50");
    Ask([](frmInput& dialog, QLineEdit&) {
        EXPECT_EQ(dialog.pos(), QPoint(50, 60));
        dialog.reject();
    });
    Settings.SaveSettingLong("CurrentVersion", "InputDlgTop", 30000);
    Ask([&](frmInput& dialog, QLineEdit& box) {
        EXPECT_TRUE(IsReachable(dialog.frameGeometry()));
        EXPECT_LT(
            (dialog.frameGeometry().center() - Frame.frameGeometry().center()).manhattanLength(),
            60)
            << "in the middle";
        cancel(dialog, box);
    });
}

} // namespace
} // namespace morvane::test
