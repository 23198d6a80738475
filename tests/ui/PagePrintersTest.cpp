#include "shell/qt/PagePrinters.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "Desk.h"
#include "platform/qt/QtDevice.h"

namespace morvane {
namespace {

class PagePrinters : public ::testing::Test {
protected:
    QByteArray Content(const char* name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    std::unique_ptr<Printer> ToPdf(const char* name, bool landscape = false) const
    {
        return PagePrinterToPdf({"Morvane - test", landscape}, folder.filePath(name).toStdString());
    }

    QTemporaryDir folder;
};

// All that a report draws with.
void DrawSomething(Device& on)
{
    std::array<Color, 256> palette;
    for (int i = 0; i < 256; ++i)
        palette[static_cast<std::size_t>(i)] = {static_cast<std::uint8_t>(i), 0, 0};
    std::vector<std::uint8_t> pixels(300 * 200);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint8_t>(i * i >> 3);
    on.DrawPicture({0, 0, 600, 400}, {pixels, 300, 200, &palette}, {0, 0, 300, 200});
    on.DrawText({100, 500}, "Strehl Ratio", {}, Black);
    on.DrawCrosses(std::array{DevicePoint{50, 50}, DevicePoint{90, 50}}, 12);
}

TEST_F(PagePrinters, PdfNeedsNoPrinterAndKeepsPicturesWhole)
{
    const auto printer = ToPdf("page.pdf");
    ASSERT_TRUE(printer->Open());
    ASSERT_EQ(printer->ChangePageSettings(), "");
    ASSERT_TRUE(printer->StartDoc() && printer->StartPage());
    DrawSomething(printer->Page());
    ASSERT_TRUE(printer->EndPage() && printer->EndDoc());
    const QByteArray pdf = Content("page.pdf");
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.contains("/Subtype /Image")) << "no picture";
    EXPECT_FALSE(pdf.contains("DCTDecode")) << "as a JPEG";
    EXPECT_TRUE(pdf.contains("/ToUnicode")) << "its text cannot be searched";
}

TEST_F(PagePrinters, FiguresAreThoseOfTheSheet)
{
    for (const bool landscape : {false, true}) {
        const auto printer = ToPdf("page.pdf", landscape);
        ASSERT_EQ(printer->ChangePageSettings(), "");
        ASSERT_TRUE(printer->StartDoc());
        const DeviceFigures figures = printer->Page().Figures();
        EXPECT_EQ(figures.PixelsPerInchX, 600);
        EXPECT_EQ(figures.PixelsPerInchY, 600);
        EXPECT_EQ(figures.Physical.Width > figures.Physical.Height, landscape);
        EXPECT_EQ(figures.Offset, (DevicePoint{150, 150}));
        EXPECT_EQ(figures.Printable.Width, figures.Physical.Width - 300);
        EXPECT_EQ(figures.Printable.Height, figures.Physical.Height - 300);
        EXPECT_EQ(printer->Page().Bounds().Width(), figures.Printable.Width);
    }
}

TEST_F(PagePrinters, WhatIsGivenUpLeavesTheOldFile)
{
    QFile old(folder.filePath("page.pdf"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    {
        const auto printer = ToPdf("page.pdf");
        printer->ChangePageSettings();
        ASSERT_TRUE(printer->StartDoc() && printer->StartPage());
        DrawSomething(printer->Page());
    }
    EXPECT_EQ(Content("page.pdf"), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("page.pdf"));
}

TEST_F(PagePrinters, NoFileIsStartedThatCannotBeMade)
{
    const std::string tooLong(300, 'x');
    for (const char* name : {"no/page.pdf", ".", tooLong.c_str()}) {
        const auto printer = ToPdf(name);
        ASSERT_TRUE(printer->Open());
        printer->ChangePageSettings();
        EXPECT_FALSE(printer->StartDoc()) << name;
        EXPECT_EQ(printer->Name(), folder.filePath(name).toStdString());
    }
    EXPECT_FALSE(PagePrinterToPdf({}, "")->StartDoc());
}

// What a full disk takes of a page is less than a page.
TEST_F(PagePrinters, APageThatIsNotWrittenWholeIsNoPage)
{
    QFile old(folder.filePath("page.pdf"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto printer = ToPdf("page.pdf");
    printer->ChangePageSettings();
    const bool isStarted = printer->StartDoc() && printer->StartPage();
    DrawSomething(printer->Page());
    const rlimit least{1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &least);
    const bool isDone = printer->EndPage() && printer->EndDoc();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);
    EXPECT_TRUE(isStarted);
    EXPECT_FALSE(isDone);
    EXPECT_EQ(Content("page.pdf"), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("page.pdf"));
}

class PrintCommand : public ::testing::Test, protected test::Desk {
protected:
    // Answers the dialog of File, Print by a PDF.
    void PrintToFile(const QString& path, QDialog::DialogCode answer)
    {
        QTimer::singleShot(0, &Frame, [=] {
            auto& dialog = *qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            for (QPushButton* const button : dialog.findChildren<QPushButton*>())
                if (button->text().contains("Options"))
                    button->click();
            EXPECT_TRUE(dialog.findChild<QTabWidget*>()->isVisible());
            EXPECT_FALSE(dialog.findChild<QWidget*>("gbPrintRange")->isVisible()) << "of one page";
            auto& names = *dialog.findChild<QComboBox*>("printers");
            names.setCurrentIndex(names.findText("Print to File (PDF)"));
            dialog.findChild<QLineEdit*>("filename")->setText(path);
            answer == QDialog::Accepted ? dialog.accept() : dialog.reject();
        });
        Trigger("mnuFilePrint");
    }
};

TEST_F(PrintCommand, WritesThePageThatTheDialogAsksFor)
{
    OpenAnalyzed();
    const QRect before = Frame.geometry();
    const QString path = Folder.filePath("page.pdf");
    PrintToFile(path, QDialog::Rejected);
    EXPECT_FALSE(QFile::exists(path));
    PrintToFile(path, QDialog::Accepted);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("%%EOF"));
    EXPECT_TRUE(User.Messages.empty());
    EXPECT_EQ(Frame.geometry(), before);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(PrintCommand, AtOnceNeedsAPrinterAndNamesTheOtherWay)
{
    if (!QPrinterInfo::defaultPrinter().isNull())
        GTEST_SKIP() << "there is a printer";
    const auto printer = Frame.DefaultPrinter({});
    EXPECT_FALSE(printer->Open());
    EXPECT_EQ(
        printer->Name(), "there is no default printer\r\nFile / Print makes a PDF without one");
}

TEST_F(PrintCommand, WithoutAScreenItIsThatOfAUsualDesk)
{
    ASSERT_EQ(QGuiApplication::platformName(), "offscreen");
    EXPECT_EQ(Frame.ScreenSize(), (DeviceSize{1920, 1080}));
}

// A page would carry every pixel of a photographed logo.
TEST(QtDeviceColors, ALargerPictureIsReducedToWhatIsShown)
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::white);
    QtDevice device(image);
    std::vector<Color> stripes(16 * 16, White);
    for (std::size_t i = 0; i < stripes.size(); i += 2)
        stripes[i] = Black;
    device.DrawColorPicture({0, 0, 2, 2}, {stripes, 16, 16});
    for (const QPoint at : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
        EXPECT_NEAR(qGray(image.pixel(at)), 127, 2);
}

// Whoever opens the picture sees each of its pixels as a square.
TEST(QtDeviceColors, ScaleByTheNearestPixel)
{
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Qt::white);
    QtDevice device(image);
    const std::array<Color, 2> pixels{Cyan, Magenta};
    device.DrawColorPicture({1, 1, 5, 3}, {pixels, 2, 1});
    const auto row = [&image](int y) {
        QString text;
        for (int x = 0; x < image.width(); ++x)
            text += image.pixel(x, y) == ToRgb(Cyan)  ? 'c'
                : image.pixel(x, y) == ToRgb(Magenta) ? 'm'
                                                      : '.';
        return text;
    };
    EXPECT_EQ(row(0), "......");
    EXPECT_EQ(row(1), ".ccmm.");
    EXPECT_EQ(row(2), ".ccmm.");
    EXPECT_EQ(row(3), "......");
    EXPECT_EQ(device.Touched(), (DeviceRect{1, 1, 5, 3}));
    device.DrawColorPicture({0, 0, 6, 4}, {pixels, 2, 2});
    EXPECT_EQ(row(0), "......") << "of a picture that is not all there nothing is drawn";
}

} // namespace
} // namespace morvane
