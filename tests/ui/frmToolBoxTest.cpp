#include "interferogram/frmToolBox.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

#include "Desk.h"
#include "interferogram/qt/OrderBox.h"

namespace morvane::test {
namespace {

class frmToolBoxControls : public testing::Test, public Desk {
protected:
    frmToolBox& Form() { return *Frame.findChild<frmToolBox*>(); }
    QLineEdit& Order() { return Find<QLineEdit>("txtOrder"); }
    void Click(const char* Button)
    {
        QTest::mouseClick(&Find<QPushButton>(Button), Qt::LeftButton);
        Settle();
    }
};

TEST_F(frmToolBoxControls, WhileAFigureIsDrawnOnlyItsClearIsLive)
{
    clsDocument& document = Open();
    for (const char* role : {"Aperture", "Obstruction"}) {
        const auto button = [&](const char* what) { return "cmd" + std::string(role) + what; };
        Click(button("Add").c_str());
        QStringList live;
        for (const QWidget* control : Form().findChildren<QWidget*>())
            if (control->isEnabled()
                && (qobject_cast<const QAbstractButton*>(control)
                    || qobject_cast<const QComboBox*>(control)
                    || qobject_cast<const OrderBox*>(control) || control == &Order()))
                live.append(control->objectName());
        EXPECT_EQ(live, QStringList(QString::fromStdString(button("Clear"))));
        EXPECT_NE(document.ImageView()->Tools().Target(), DrawTarget::FringeCenters);
        Click(button("Clear").c_str());
        EXPECT_EQ(document.ImageView()->Tools().Target(), DrawTarget::FringeCenters);
        EXPECT_TRUE(Find<QPushButton>(button("Add").c_str()).isEnabled());
    }
}

TEST_F(frmToolBoxControls, EachButtonCallsItsCommand)
{
    Session.Prefs.AutoLoadAperture = false;
    clsDocument& document = OpenAnalyzed();
    const Point center = document.Aperture.GetCenter();
    Click("cmdApertureSave");
    Click("cmdApertureClear");
    EXPECT_EQ(document.Aperture.GetShapeType(), ShapeKind::None);
    Click("cmdApertureLoad");
    EXPECT_EQ(document.Aperture.GetCenter(), center);
    Session.SelectOrder(3);
    Click("cmdInsert");
    EXPECT_EQ(document.Fringes.GetFringeIndex(3), NoFringe);
    EXPECT_NE(document.Fringes.GetFringeIndex(9), NoFringe);
    Session.SelectOrder(4);
    Click("cmdRemove");
    EXPECT_EQ(document.Fringes.GetFringeIndex(9), NoFringe);
}

TEST_F(frmToolBoxControls, ShowAndSetTheKinds)
{
    Session.Tools.SetKind(ShapeRole::Obstruction, ShapeKind::Polygon);
    EXPECT_EQ(Find<QComboBox>("cboObstruction").currentText(), "Polygon");
    EXPECT_EQ(Find<QComboBox>("cboAperture").currentText(), "Circle");
    QTest::keyClick(&Find<QComboBox>("cboAperture"), Qt::Key_Down);
    EXPECT_EQ(Session.Tools.KindOf(ShapeRole::Aperture), ShapeKind::Ellipse);
    EXPECT_EQ(Session.Tools.KindOf(ShapeRole::Obstruction), ShapeKind::Polygon);
}

// A number of two digits, typed while a text of the results is in front.
TEST_F(frmToolBoxControls, TypingKeepsTheFocusAndBringsThePictureToTheFront)
{
    clsDocument& document = OpenAnalyzed();
    document.View(ViewType::Zernikes)->Show(Activation::TakeFocus);
    Settle();
    ASSERT_EQ(document.ActiveView, ViewType::Zernikes);
    Form().activateWindow();
    Order().setFocus();
    Settle();
    QWidget* const typing = QApplication::focusWidget();
    ASSERT_TRUE(typing && Form().isAncestorOf(typing));
    Order().selectAll();
    for (const char digit : {'1', '7'}) {
        QTest::keyClick(QApplication::focusWidget(), digit);
        Settle();
        EXPECT_EQ(QApplication::focusWidget(), typing) << digit;
    }
    EXPECT_EQ(Session.Tools.CurrentOrder(), 17);
    EXPECT_EQ(document.ActiveView, ViewType::Interferogram);
}

TEST_F(frmToolBoxControls, TheOrderTakesDigitsOnly)
{
    Open();
    const struct {
        const char* Keys;
        const char* Text;
        int Order;
    } cases[] = {{"-2.x 5e+0", "250", 250}, {"0", "0", 0}, {"007", "007", 7}, {"500", "500", 500}};
    for (const auto& c : cases) {
        Order().selectAll();
        QTest::keyClicks(&Order(), c.Keys);
        EXPECT_EQ(Order().text(), c.Text);
        EXPECT_EQ(Session.Tools.CurrentOrder(), c.Order);
    }
    QApplication::clipboard()->setText("1e5");
    Order().selectAll();
    Order().paste();
    EXPECT_EQ(Order().text(), "500") << "pasted";
    QTest::keyClick(&Order(), Qt::Key_Home);
    QTest::keyClick(&Order(), '1');
    EXPECT_EQ(Order().text(), "1500");
    EXPECT_EQ(Order().cursorPosition(), 1) << "the cursor stays where the user put it";
}

TEST_F(frmToolBoxControls, ArrowsStayWithinTheOrders)
{
    Open();
    OrderBox& arrows = Find<OrderBox>("updOrder");
    const struct {
        const char* From;
        Qt::Key Key;
        const char* To;
    } cases[] = {{"1", Qt::Key_Up, "2"}, {"1", Qt::Key_Down, "1"}, {"500", Qt::Key_Down, "200"}};
    for (const auto& c : cases) {
        Session.TypeOrder(c.From);
        QTest::keyClick(&arrows, c.Key);
        EXPECT_EQ(Order().text(), c.To) << c.From;
    }
}

TEST_F(frmToolBoxControls, EnterInTheOrderPressesNothing)
{
    clsDocument& document = OpenAnalyzed();
    const int before = document.Fringes.TotalNumTicks();
    Order().setFocus();
    QTest::keyClick(&Find<OrderBox>("updOrder"), Qt::Key_Return);
    QTest::keyClick(&Order(), Qt::Key_Enter);
    Settle();
    EXPECT_TRUE(Form().isVisible());
    EXPECT_EQ(Session.Tools.Controls(), ToolControls{});
    EXPECT_EQ(document.Fringes.TotalNumTicks(), before);
    EXPECT_NE(document.Aperture.GetShapeType(), ShapeKind::None);
}

TEST_F(frmToolBoxControls, OrdersOfThePictureLeaveTheFocusThere)
{
    clsDocument& document = Open();
    Frame.activateWindow();
    document.ImageView()->Show(Activation::TakeFocus);
    Settle();
    QWidget* const picture = QApplication::focusWidget();
    ASSERT_TRUE(picture);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(picture, Qt::Key_Space);
    EXPECT_EQ(Order().text(), "3");
    EXPECT_EQ(QApplication::focusWidget(), picture);
}

TEST_F(frmToolBoxControls, EveryKeyOfTheFormIsItsOwn)
{
    QStringList keys;
    for (const QAbstractButton* button : Form().findChildren<QAbstractButton*>())
        if (!button->shortcut().isEmpty())
            keys.append(button->shortcut().toString());
    EXPECT_EQ(keys.size(), 10);
    for (const QAction* menu : Frame.menuBar()->actions())
        keys.append(QKeySequence::mnemonic(menu->text()).toString());
    EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(' ').toStdString();
}

TEST_F(frmToolBoxControls, PlaceAndVisibilityComeBackWithTheNextRun)
{
    Form().move(30, 40);
    Frame.close();
    {
        SettingsStore kept(SettingsFile());
        EXPECT_EQ(ReadPlace(kept, ToolBoxPlace).Left, 30);
        frmMain next;
        morvane::Session session(User, next);
        session.ReadSettings(kept, Screens(), "");
        next.Attach(session, kept);
        next.show();
        Settle();
        frmToolBox& box = *next.findChild<frmToolBox*>();
        EXPECT_EQ(box.pos(), QPoint(30, 40));
        box.close();
        next.close();
    }
    SettingsStore kept(SettingsFile());
    EXPECT_FALSE(ReadMainWindow(kept, Screens()).Toolbox);
}

} // namespace
} // namespace morvane::test
