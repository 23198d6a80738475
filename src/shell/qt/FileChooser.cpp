#include "shell/qt/FileChooser.h"

#include <QDir>
#include <QFileDialog>

namespace morvane {
namespace {

QStringList InBothCases(const QString& Pattern)
{
    if (Pattern == "*.*")
        return {"*"}; // names without a point as well
    if (Pattern == Pattern.toUpper())
        return {Pattern};
    return {Pattern, Pattern.toUpper()};
}

void Prepare(QFileDialog& Dialog, const FileRequest& Request)
{
    if (!Request.Title.empty())
        Dialog.setWindowTitle(QString::fromStdString(Request.Title));
    const QString folder = QString::fromStdString(Request.Directory);
    if (!folder.isEmpty() && QDir(folder).exists())
        Dialog.setDirectory(folder);
    Dialog.setOption(QFileDialog::HideNameFilterDetails);
    const QStringList filters = NameFilters(Request.Filter);
    Dialog.setNameFilters(filters);
    const int chosen = Request.FilterIndex - 1;
    if (chosen >= 0 && chosen < filters.size())
        Dialog.selectNameFilter(filters[chosen]);
}

std::optional<FileChoice> Ask(QFileDialog& Dialog)
{
    if (Dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return ChoiceOf(Dialog);
}

} // namespace

QStringList NameFilters(const std::string& Filter)
{
    const QStringList parts = QString::fromStdString(Filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& pattern : parts[i + 1].split(';'))
            patterns += InBothCases(pattern);
        filters += parts[i] + '(' + patterns.join(' ') + ')';
    }
    return filters;
}

void PrepareOpen(QFileDialog& Dialog, const FileRequest& Request)
{
    Dialog.setFileMode(QFileDialog::ExistingFiles);
    Prepare(Dialog, Request);
}

void PrepareSave(QFileDialog& Dialog, const FileRequest& Request)
{
    Dialog.setAcceptMode(QFileDialog::AcceptSave);
    Dialog.setFileMode(QFileDialog::AnyFile);
    Dialog.setOption(QFileDialog::DontConfirmOverwrite);
    Prepare(Dialog, Request);
    // Last, for a change of the filter changes the extension.
    Dialog.selectFile(QString::fromStdString(Request.FileName));
}

FileChoice ChoiceOf(const QFileDialog& Dialog)
{
    FileChoice choice;
    for (const QString& path : Dialog.selectedFiles())
        choice.Paths.push_back(path.toStdString());
    // Told with its patterns or, since they are hidden, without them.
    const QString selected = Dialog.selectedNameFilter();
    const QStringList filters = Dialog.nameFilters();
    for (qsizetype i = 0; i < filters.size(); ++i)
        if (filters[i] == selected || filters[i].startsWith(selected + '('))
            choice.FilterIndex = static_cast<int>(i) + 1;
    return choice;
}

std::optional<FileChoice> AskOpenFiles(QWidget* Owner, const FileRequest& Request)
{
    QFileDialog dialog(Owner);
    PrepareOpen(dialog, Request);
    return Ask(dialog);
}

std::optional<FileChoice> AskSaveFile(QWidget* Owner, const FileRequest& Request)
{
    QFileDialog dialog(Owner);
    PrepareSave(dialog, Request);
    return Ask(dialog);
}

} // namespace morvane
