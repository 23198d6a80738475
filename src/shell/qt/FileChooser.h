// The platform's own dialogs for opening and saving: set up from a request, read into a choice.
#pragma once
#include <QStringList>

#include "shell/FileDialogs.h"

class QFileDialog;
class QWidget;

namespace morvane {

// "name|pattern;pattern|..." as the filters of a dialog: each name says what the user knows, the
// patterns behind it match capitals too.
QStringList NameFilters(const std::string& Filter);

void PrepareOpen(QFileDialog& Dialog, const FileRequest& Request);
// Whoever asked asks about a file that exists already, so the dialog does not.
void PrepareSave(QFileDialog& Dialog, const FileRequest& Request);
FileChoice ChoiceOf(const QFileDialog& Dialog);

std::optional<FileChoice> AskOpenFiles(QWidget* Owner, const FileRequest& Request);
std::optional<FileChoice> AskSaveFile(QWidget* Owner, const FileRequest& Request);

} // namespace morvane
