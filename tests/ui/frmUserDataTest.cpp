#include "document/frmUserData.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include "Desk.h"

namespace morvane::test {
namespace {

class frmUserDataDialog : public testing::Test, public Desk {
protected:
    clsDocument& Document = Open();
    UserData& Optic = Document.Optic;

    template <typename Widget>
    Widget& In(const frmUserData& dialog, const char* name)
    {
        return *dialog.findChild<Widget*>(name);
    }
    // After Act by the user, who then presses Button.
    void Ask(const char* button, const std::function<void(frmUserData&)>& act)
    {
        frmUserData dialog(Document, Session, Settings, &Frame);
        act(dialog);
        In<QPushButton>(dialog, button).click();
    }
};

TEST_F(frmUserDataDialog, OkStoresTheTextsAndCancelNothing)
{
    Optic = {"f/8 mirror", "May 5", "", "first\r\nsecond"};
    Document.Modified = false;
    Ask("cmdOK", [&](frmUserData& dialog) {
        EXPECT_EQ(In<QLineEdit>(dialog, "txtDescription").text(), "f/8 mirror");
        EXPECT_EQ(In<QPlainTextEdit>(dialog, "txtComments").toPlainText(), "first\nsecond");
    });
    EXPECT_FALSE(Document.Modified) << "nothing has changed";
    for (const bool accepted : {false, true}) {
        Ask(accepted ? "cmdOK" : "cmdCancel", [&](frmUserData& dialog) {
            In<QLineEdit>(dialog, "txtOperator").setText("Ada");
            In<QPlainTextEdit>(dialog, "txtComments").setPlainText("one\ntwo");
            In<QCheckBox>(dialog, "chkSetDefault").setChecked(true);
        });
        EXPECT_EQ(Optic.Operator, accepted ? "Ada" : "");
        EXPECT_EQ(Optic.Comments, accepted ? "one\r\ntwo" : "first\r\nsecond");
        EXPECT_EQ(Document.Modified, accepted);
        EXPECT_EQ(Frame.isWindowModified(), accepted);
        EXPECT_EQ(Session.Prefs.SetAsDefault, accepted);
        EXPECT_EQ(Session.Prefs.DefaultUserData.Operator, accepted ? "Ada" : "");
    }
}

TEST_F(frmUserDataDialog, TheCommandOpensItForTheActiveDocument)
{
    QTimer::singleShot(0, [&] {
        auto* const opened = qobject_cast<frmUserData*>(QApplication::activeModalWidget());
        ASSERT_TRUE(opened);
        In<QLineEdit>(*opened, "txtDescription").setText("flat");
        opened->accept();
    });
    Trigger("mnuEditUserData");
    EXPECT_EQ(Optic.Description, "flat");
}

TEST_F(frmUserDataDialog, TodayIsADateInEnglish)
{
    Ask("cmdOK", [&](frmUserData& dialog) { In<QPushButton>(dialog, "cmdToday").click(); });
    const QString today = QLocale(QLocale::English).toString(QDate::currentDate(), "MMM d, yyyy");
    EXPECT_EQ(Optic.Date, today.toStdString());
}

TEST_F(frmUserDataDialog, EnterInAFieldIsOkAndItsPlaceIsKept)
{
    frmUserData dialog(Document, Session, Settings, &Frame);
    dialog.show();
    dialog.move(60, 30);
    QTest::keyClicks(&In<QLineEdit>(dialog, "txtDate"), "Mar 1");
    QTest::keyClick(&In<QLineEdit>(dialog, "txtDate"), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(Optic.Date, Session.Prefs.DefaultUserData.Date + "Mar 1");
    EXPECT_EQ(Settings.GetSettingString("CurrentVersion", "UserDataTop", ""), "30");
}

} // namespace
} // namespace morvane::test
