#include "document/frmAspectRatio.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

#include "Desk.h"

namespace morvane::test {
namespace {

class frmAspectRatioDialog : public testing::Test, public Desk {
protected:
    frmAspectRatioDialog() { Session.Prefs.ManualAspectRatio = 1.5; }
    QLineEdit& Field(const frmAspectRatio& Of)
    {
        return *Of.findChild<QLineEdit*>("txtAspectRatio");
    }
};

TEST_F(frmAspectRatioDialog, TakesOnlyDigitsAndPoints)
{
    frmAspectRatio dialog(Session, &Frame);
    EXPECT_EQ(dialog.windowTitle(), "Adjust Aspect Ratio");
    QLineEdit& field = Field(dialog);
    EXPECT_EQ(field.text(), "1.5");
    field.selectAll();
    QTest::keyClicks(&field, "-2x.,5 e07+");
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.text(), "2.50");
    field.selectAll();
    QApplication::clipboard()->setText("1e5");
    field.paste();
    EXPECT_EQ(field.text(), "2.50") << "pasted";
}

TEST_F(frmAspectRatioDialog, OkStretchesAndNotesTheRatioCancelNeither)
{
    const struct {
        const char* Name;
        const char* Typed;
        QDialogButtonBox::StandardButton Pressed;
        RasterSize Size;
        double Ratio;
    } cases[] = {
        {"wider", "2", QDialogButtonBox::Ok, {240, 100}, 2},
        {"higher", "0.5", QDialogButtonBox::Ok, {120, 200}, 0.5},
        {"cancelled", "2", QDialogButtonBox::Cancel, {120, 100}, 1.5},
        {"nothing typed", "", QDialogButtonBox::Ok, {120, 100}, 0},
    };
    for (const auto& c : cases) {
        Session.Prefs.ManualAspectRatio = 1.5;
        clsDocument& document = Open(120, 100);
        frmAspectRatio dialog(Session, &Frame);
        Field(dialog).setText(c.Typed);
        dialog.findChild<QDialogButtonBox*>()->button(c.Pressed)->click();
        EXPECT_EQ(document.GetImageSize(), c.Size) << c.Name;
        EXPECT_EQ(Session.Prefs.ManualAspectRatio, c.Ratio) << c.Name;
        EXPECT_EQ(document.ImageDirty, c.Size != (RasterSize{120, 100})) << c.Name;
    }
}

TEST_F(frmAspectRatioDialog, TooLargeAPictureIsRefused)
{
    clsDocument& document = Open(120, 100);
    frmAspectRatio dialog(Session, &Frame);
    Field(dialog).setText("99999999999999999999");
    dialog.accept();
    ASSERT_EQ(User.Messages.size(), 1u);
    EXPECT_EQ(User.Messages[0].Title, "Warning");
    EXPECT_EQ(document.GetImageSize(), (RasterSize{120, 100}));
}

} // namespace
} // namespace morvane::test
