#include "shell/qt/FileChooser.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

#include "TemporaryFolder.h"
#include "platform/File.h"

namespace morvane::test {
namespace {

constexpr const char* SaveFilter = "Bitmap Files (*.bmp)|*.bmp|Morvane Documents (*.mvd)|*.mvd";

TEST(FileChooser, FiltersMatchCapitalsAndAllFilesMatchesNamesWithoutAPoint)
{
    EXPECT_EQ(
        NameFilters("All Files (*.*)|*.*|Graphic Files (*.jpg *.bmp *.rle)|*.jpg;*.bmp;*.rle"),
        QStringList({"All Files (*.*)(*)",
            "Graphic Files (*.jpg *.bmp *.rle)(*.jpg *.JPG *.bmp *.BMP *.rle *.RLE)"}));
    EXPECT_EQ(NameFilters("name without a pattern"), QStringList());
    EXPECT_EQ(NameFilters(""), QStringList());
}

TEST(FileChooser, SaveRequestComesBackAsTheChoice)
{
    const TemporaryFolder folder;
    const std::string directory = folder / "";
    const struct {
        int FilterIndex;
        const char* Name;
    } cases[] = {
        {1, "mirror.bmp"}, {2, "mirror.mvd"}, {2, "name with 100 %.mvd"}, {1, "no extension"}};
    for (const auto& c : cases) {
        QFileDialog dialog;
        PrepareSave(dialog,
            {.Title = "Save As",
                .Filter = SaveFilter,
                .FilterIndex = c.FilterIndex,
                .Directory = directory,
                .FileName = c.Name});
        EXPECT_EQ(dialog.windowTitle(), "Save As");
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), c.Name);
        const FileChoice choice = ChoiceOf(dialog);
        EXPECT_EQ(choice.FilterIndex, c.FilterIndex) << c.Name;
        EXPECT_EQ(choice.Paths, std::vector<std::string>{folder / c.Name});
    }
}

TEST(FileChooser, OpensInTheFolderAskedForUnlessItIsGone)
{
    const TemporaryFolder folder;
    for (const std::string& directory : {folder / "", folder / "gone", std::string()}) {
        QFileDialog dialog;
        const QString before = dialog.directory().absolutePath();
        PrepareOpen(dialog,
            {.Title = {},
                .Filter = SaveFilter,
                .FilterIndex = 7,
                .Directory = directory,
                .FileName = {}});
        const bool isThere = !directory.empty() && QDir(QString::fromStdString(directory)).exists();
        const QString expected =
            isThere ? QDir(QString::fromStdString(directory)).absolutePath() : before;
        EXPECT_EQ(dialog.directory().absolutePath(), expected) << directory;
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
        EXPECT_EQ(ChoiceOf(dialog).FilterIndex, 1) << "of a filter that is none";
    }
}

} // namespace
} // namespace morvane::test
