#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "Desk.h"

namespace morvane::test {
namespace {

class frmAnalyzeControls : public testing::Test, public Desk {
protected:
    const AnalyzeOptions& Options() const { return Session.Analyze.Options(); }
    void Click(const char* Button)
    {
        QAbstractButton& button = Find<QAbstractButton>(Button);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }
    void Type(const char* Field, const char* Text)
    {
        Find<QLineEdit>(Field).selectAll();
        QTest::keyClicks(&Find<QLineEdit>(Field), Text);
    }
    std::string AddReferenceFile(const char* Name)
    {
        std::string path = Folder.filePath(Name).toStdString();
        std::string text;
        for (int i = 0; i < NumZernikes; ++i)
            text += "0.5\r\n";
        WriteWholeFile(path, text);
        EXPECT_FALSE(Session.Analyze.AddReference(path).has_value());
        return path;
    }
};

TEST_F(frmAnalyzeControls, EveryEditReachesTheOptions)
{
    for (const char* button : {"optScaleFactor2", "chkInvertWavefront", "optDisplay1", "chkTrim",
             "chkRemove0", "chkRemove2", "chkRemove3", "chkRemove4"})
        Click(button);
    Type("txtScaleFactor", "0.75x");
    Type("txtInputWL", "546.1");
    Type("txtOutputWL", "500");
    QTest::keyClick(&Find<QComboBox>("cboLimitOrder"), Qt::Key_End);
    QTest::keyClick(&Find<QComboBox>("cboReference"), Qt::Key_Down);

    EXPECT_EQ(Options().Scale, ScaleChoice::Custom);
    EXPECT_EQ(Options().CustomScale, "0.75x");
    EXPECT_TRUE(Options().InvertWavefront);
    EXPECT_EQ(Options().Unit, DisplayUnit::Micrometers);
    EXPECT_FALSE(Options().TrimEdges);
    EXPECT_EQ(Options().Removed,
        (RemoveFlags{.Focus = true, .Astigmatism = true, .Coma = true, .Spherical = true}));
    EXPECT_EQ(Options().InputWavelength, "546.1");
    EXPECT_EQ(Options().OutputWavelength, "500");
    EXPECT_EQ(Options().Limit, OrderLimit::Second);
    EXPECT_EQ(Options().Reference, 1);
}

TEST_F(frmAnalyzeControls, FollowOptionsThatChangeElsewhere)
{
    Session.Analyze.SetOptions({.Reference = 1,
        .Scale = ScaleChoice::One,
        .CustomScale = "3",
        .InvertWavefront = true,
        .InputWavelength = "500",
        .OutputWavelength = "550",
        .Unit = DisplayUnit::Microinches,
        .TrimEdges = false,
        .Limit = OrderLimit::Sixth,
        .Removed = {.Coma = true}});
    const std::pair<const char*, bool> checked[] = {{"optScaleFactor0", false},
        {"optScaleFactor1", true}, {"chkInvertWavefront", true}, {"optDisplay0", false},
        {"optDisplay2", true}, {"chkTrim", false}, {"chkRemove0", false}, {"chkRemove1", false},
        {"chkRemove3", true}};
    for (const auto& [name, on] : checked)
        EXPECT_EQ(Find<QAbstractButton>(name).isChecked(), on) << name;
    EXPECT_EQ(Find<QComboBox>("cboReference").currentIndex(), 1);
    EXPECT_EQ(Find<QComboBox>("cboLimitOrder").currentText(), "6th");
    EXPECT_EQ(Find<QLineEdit>("txtScaleFactor").text(), "3");
    EXPECT_EQ(Find<QLineEdit>("txtInputWL").text(), "500");
    EXPECT_EQ(Find<QLineEdit>("txtOutputWL").text(), "550");
    EXPECT_EQ(Options().CustomScale, "3") << "showing is not editing";
}

TEST_F(frmAnalyzeControls, CursorStaysWhileTyping)
{
    QLineEdit& field = Find<QLineEdit>("txtInputWL");
    field.setCursorPosition(1);
    QTest::keyClicks(&field, "44");
    EXPECT_EQ(field.text(), "64432.8");
    EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(frmAnalyzeControls, ListShowsShortNamesAndDeleteTakesFilesOff)
{
    AddReferenceFile("first.zrn");
    AddReferenceFile("second.zrn");
    QComboBox& list = Find<QComboBox>("cboReference");
    ASSERT_EQ(list.count(), 4);
    EXPECT_EQ(list.currentText(), "second.zrn");

    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.currentText(), "first.zrn");
    QTest::keyClick(&list, Qt::Key_Delete);
    QTest::keyClick(&list, Qt::Key_Delete); // the shared set stays
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.currentIndex(), 1);
    EXPECT_EQ(Options().Reference, 1);
}

TEST_F(frmAnalyzeControls, ApplyWarnsWithoutFringes)
{
    Click("cmdApply");
    EXPECT_TRUE(User.Messages.empty()) << "no document, no command";
    Open();
    Click("cmdApply");
    ASSERT_EQ(User.Messages.size(), 1u);
    EXPECT_EQ(User.Messages[0].Text, "No fringe centers to analyze");
}

TEST_F(frmAnalyzeControls, EnterAppliesAndCloseHides)
{
    frmAnalyze& form = *Frame.findChild<frmAnalyze*>();
    Open();
    QTest::keyClick(&Find<QLineEdit>("txtOutputWL"), Qt::Key_Return);
    EXPECT_EQ(User.Messages.size(), 1u);
    EXPECT_TRUE(Find<QAction>("mnuViewAnalyzeBox").isChecked());
    Click("cmdClose");
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(Find<QAction>("mnuViewAnalyzeBox").isChecked());
    Trigger("mnuViewAnalyzeBox");
    EXPECT_TRUE(form.isVisible());
}

} // namespace
} // namespace morvane::test
