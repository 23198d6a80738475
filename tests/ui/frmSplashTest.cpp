#include "shell/frmSplash.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

namespace morvane::test {
namespace {

TEST(frmSplashWindow, NamesTheProgramAndClosesAtAnyClick)
{
    QWidget owner;
    for (QWidget* const over : {static_cast<QWidget*>(nullptr), &owner}) {
        frmSplash splash(over);
        splash.show();
        QTest::qWait(0);
        QStringList texts;
        for (const QLabel* label : splash.findChildren<QLabel*>())
            texts.append(label->text());
        EXPECT_TRUE(texts.contains("Morvane"));
        QLabel* const label = splash.findChildren<QLabel*>().last();
        QTest::mouseClick(label, Qt::LeftButton);
        EXPECT_FALSE(splash.isVisible());
    }
}

} // namespace
} // namespace morvane::test
