// The icons of the commands and the mouse pointers as they are painted.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <utility>

#include "interferogram/qt/Pointers.h"
#include "shell/qt/Icons.h"

namespace morvane::test {
namespace {

class UnderPalette {
public:
    UnderPalette(QColor Text, QColor Disabled)
    {
        QPalette colors = m_before;
        colors.setColor(QPalette::ButtonText, Text);
        colors.setColor(QPalette::Disabled, QPalette::ButtonText, Disabled);
        QGuiApplication::setPalette(colors);
    }
    ~UnderPalette() { QGuiApplication::setPalette(m_before); }

private:
    const QPalette m_before = QGuiApplication::palette();
};

int CountOf(const QImage& In, QColor Wanted)
{
    int count = 0;
    for (int y = 0; y < In.height(); ++y)
        for (int x = 0; x < In.width(); ++x)
            count += In.pixelColor(x, y) == Wanted;
    return count;
}

// Opaque pixels from Darkest to Brightest.
int CountOfGrey(const QImage& In, int Darkest, int Brightest)
{
    int count = 0;
    for (int y = 0; y < In.height(); ++y)
        for (int x = 0; x < In.width(); ++x) {
            const QColor pixel = In.pixelColor(x, y);
            count += pixel.alpha() > 200 && pixel.value() >= Darkest && pixel.value() <= Brightest;
        }
    return count;
}

QImage Painted(const QString& Name, QIcon::Mode Mode)
{
    return CommandIcon(Name).pixmap(QSize(24, 24), 2.0, Mode).toImage();
}

class CommandIcons : public testing::TestWithParam<const char*> { };

TEST_P(CommandIcons, FollowThePalette)
{
    for (const auto& [text, disabled] :
        {std::pair(QColor(0x20, 0x24, 0x2a), QColor(0x8b, 0x91, 0x9a)),
            std::pair(QColor(0xe6, 0xe8, 0xeb), QColor(0x70, 0x76, 0x7e))}) {
        const UnderPalette palette(text, disabled);
        const QImage normal = Painted(GetParam(), QIcon::Normal);
        const QImage grey = Painted(GetParam(), QIcon::Disabled);
        EXPECT_EQ(normal.size(), QSize(48, 48));
        EXPECT_GT(CountOf(normal, text), 30);
        EXPECT_EQ(CountOf(normal, disabled), 0);
        EXPECT_GT(CountOf(grey, disabled), 30);
        EXPECT_EQ(CountOf(grey, text), 0);
    }
}

TEST_P(CommandIcons, KeepOffTheEdge)
{
    const QImage picture = Painted(GetParam(), QIcon::Normal);
    for (int i = 0; i < 48; ++i)
        for (const QPoint at : {QPoint(i, 0), QPoint(i, 47), QPoint(0, i), QPoint(47, i)})
            EXPECT_EQ(qAlpha(picture.pixel(at)), 0) << at.x() << " " << at.y();
}

INSTANTIATE_TEST_SUITE_P(All, CommandIcons,
    testing::Values("open", "save", "print", "page-setup", "tool-box", "analyze-box", "average-box",
        "grid-box", "reference-zernikes", "math-box", "surface-plot", "contour-plot",
        "line-profile", "synthetic-fringes", "aberrations", "zernikes", "grid-results",
        "grab-image", "grabber-properties", "aspect-ratio", "trace-horizontally",
        "trace-vertically", "hand-tool", "edit-tool", "zoom-in", "zoom-out"));

TEST(Pointers, ShowOnBlackAndOnWhiteAtEachDensity)
{
    for (const double density : {1.0, 1.5, 2.0})
        for (int i = int(PointerShape::AddShape); i <= int(PointerShape::ZoomOut); ++i) {
            const QCursor pointer = PointerFor(PointerShape(i), density);
            const QImage picture = pointer.pixmap().toImage();
            EXPECT_EQ(picture.size(), QSize(32, 32) * density) << i;
            EXPECT_GT(CountOfGrey(picture, 0, 40), 12) << i;
            EXPECT_GT(CountOfGrey(picture, 215, 255), 12) << i;
        }
}

TEST(Pointers, PointFromTheirMiddleOrTheirTip)
{
    for (int i = int(PointerShape::AddShape); i <= int(PointerShape::ZoomOut); ++i) {
        const bool arrow =
            i == int(PointerShape::SelectFringe) || i == int(PointerShape::ClearFringe);
        const QCursor pointer = PointerFor(PointerShape(i), 2.0);
        const QImage picture = pointer.pixmap().toImage();
        const QPoint physical = pointer.hotSpot() * picture.devicePixelRatio();
        EXPECT_EQ(physical, arrow ? QPoint(10, 8) : QPoint(32, 32)) << i;
        EXPECT_TRUE(!arrow || qAlpha(picture.pixel(physical)) > 200) << i;
    }
    EXPECT_EQ(PointerFor(PointerShape::Default, 1.0).shape(), Qt::ArrowCursor);
}

} // namespace
} // namespace morvane::test
