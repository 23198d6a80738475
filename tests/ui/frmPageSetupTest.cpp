#include "report/frmPageSetup.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QRadioButton>
#include <QSvgRenderer>
#include <QTimer>

#include "Desk.h"
#include "report/PaneViews.h"

namespace morvane::test {
namespace {

ReportPreferences& SixPanes(ReportPreferences& of)
{
    of.NumPanes = 6;
    of.Pane = {6, 1, 5, 9, 3, 8};
    return of;
}

class frmPageSetupDialog : public testing::Test, public Desk {
protected:
    template <typename Widget>
    Widget& In(const frmPageSetup& dialog, const QString& name)
    {
        return *dialog.findChild<Widget*>(name);
    }
    void Press(const frmPageSetup& dialog, const char* button)
    {
        In<QPushButton>(dialog, button).click();
    }
    QImage Page(const frmPageSetup& dialog)
    {
        return In<QWidget>(dialog, "picPreview").grab().toImage();
    }

    ReportPreferences& Report = SixPanes(Session.Prefs.Report);
    frmPageSetup Dialog{Report, Settings, &Frame};
};

TEST_F(frmPageSetupDialog, OkWritesWhatIsChosenAndCancelNothing)
{
    for (const bool accepted : {false, true}) {
        const ReportPreferences before = Report;
        frmPageSetup dialog(Report, Settings, &Frame);
        In<QRadioButton>(dialog, "optOrient2").click();
        In<QCheckBox>(dialog, "chkDrawGrid").click();
        In<QComboBox>(dialog, "cboPanes").setCurrentText("3 Panes");
        In<QComboBox>(dialog, "cboViews1").setCurrentText("Synthetic Fringes");
        Press(dialog, accepted ? "cmdOK" : "cmdCancel");
        EXPECT_EQ(Report.PageOrientation, accepted ? 2 : 1);
        EXPECT_EQ(Report.DrawPageGrid, !accepted);
        EXPECT_EQ(Report.NumPanes, accepted ? 3 : 6);
        EXPECT_EQ(Report.Pane[0], accepted ? 7 : 6);
        EXPECT_TRUE(std::equal(Report.Pane.begin() + 1, Report.Pane.end(), before.Pane.begin() + 1))
            << "those that are not printed keep their choices";
    }
    frmPageSetup again(Report, Settings, &Frame);
    EXPECT_TRUE(In<QRadioButton>(again, "optOrient2").isChecked());
}

TEST_F(frmPageSetupDialog, EachBoxIsARowOfTheReport)
{
    using Flags = ReportPreferences;
    const std::pair<const char*, bool Flags::*> rows[] = {{"Comments", &Flags::ShowComments},
        {"Operator", &Flags::ShowOperator}, {"Date Tested", &Flags::ShowDate},
        {"Wavelength", &Flags::ShowWavelength}, {"Description", &Flags::ShowDescription},
        {"Data Points", &Flags::ShowDataPts}, {"Scale", &Flags::ShowScale},
        {"Spherical", &Flags::ShowSpherical}, {"Coma", &Flags::ShowComa},
        {"Astigmatism", &Flags::ShowAstigmatism}, {"Defocus", &Flags::ShowDefocus},
        {"Tilt", &Flags::ShowTilt}, {"Strehl Ratio", &Flags::ShowStrehl},
        {"Peak-Valley", &Flags::ShowPV}, {"RMS", &Flags::ShowRMS}};
    for (int i = 0; i < 15; ++i) {
        const auto& [caption, flag] = rows[i];
        const bool before = Report.*flag;
        frmPageSetup dialog(Report, Settings, &Frame);
        auto& box = In<QCheckBox>(dialog, QString("chkShow%1").arg(i));
        EXPECT_EQ(box.text(), caption);
        EXPECT_EQ(box.isChecked(), before) << caption;
        box.click();
        Press(dialog, "cmdOK");
        EXPECT_EQ(Report.*flag, !before) << caption;
    }
}

TEST_F(frmPageSetupDialog, PanesThatAreNotPrintedAreDisabled)
{
    In<QComboBox>(Dialog, "cboPanes").setCurrentIndex(2);
    for (int pane = 1; pane <= 6; ++pane) {
        for (const char* name : {"lblPane%1", "cboViews%1"})
            EXPECT_EQ(In<QWidget>(Dialog, QString(name).arg(pane)).isEnabled(), pane <= 3) << pane;
        EXPECT_EQ(In<QComboBox>(Dialog, QString("cboViews%1").arg(pane)).currentData(),
            Report.Pane[pane - 1]);
    }
}

TEST_F(frmPageSetupDialog, ThePictureFollowsEachChoice)
{
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"orientation", [&] { In<QRadioButton>(Dialog, "optOrient2").click(); }},
        {"and back", [&] { In<QRadioButton>(Dialog, "optOrient1").click(); }},
        {"lines", [&] { In<QCheckBox>(Dialog, "chkDrawGrid").click(); }},
        {"a view", [&] { In<QComboBox>(Dialog, "cboViews6").setCurrentText("Line Profile"); }},
        {"none", [&] { In<QComboBox>(Dialog, "cboViews6").setCurrentText("None"); }},
        {"number", [&] { In<QComboBox>(Dialog, "cboPanes").setCurrentIndex(1); }},
    };
    for (const auto& [name, change] : changes) {
        const QImage before = Page(Dialog);
        change();
        EXPECT_NE(Page(Dialog), before) << name;
    }
}

TEST_F(frmPageSetupDialog, EachViewHasItsMiniature)
{
    for (const PaneChoice& choice : PaneChoices) {
        const QString file =
            ":/miniatures/" + QString(choice.Name).toLower().replace(' ', '-') + ".svg";
        const bool exists = QFile::exists(file);
        EXPECT_EQ(exists, choice.View != PaneView::None) << choice.Name;
        EXPECT_TRUE(!exists || QSvgRenderer(file).isValid()) << choice.Name;
    }
}

TEST_F(frmPageSetupDialog, TheCommandOpensItForThisSession)
{
    Open();
    QTimer::singleShot(0, [&] {
        auto* const opened = qobject_cast<frmPageSetup*>(QApplication::activeModalWidget());
        ASSERT_TRUE(opened);
        In<QComboBox>(*opened, "cboPanes").setCurrentIndex(3);
        opened->accept();
    });
    Trigger("mnuFilePageSetup");
    EXPECT_EQ(Report.NumPanes, 4);
}

TEST_F(frmPageSetupDialog, ItsPlaceIsKept)
{
    Dialog.show();
    Dialog.move(70, 40);
    Dialog.reject();
    EXPECT_EQ(Settings.GetSettingString("CurrentVersion", "PageSetupLeft", ""), "70");
    EXPECT_EQ(Settings.GetSettingString("CurrentVersion", "PageSetupTop", ""), "40");
    EXPECT_EQ(frmPageSetup(Report, Settings, &Frame).pos(), QPoint(70, 40));
}

} // namespace
} // namespace morvane::test
