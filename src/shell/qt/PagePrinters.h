// The printers of the desktop, and PDF files, which need none.
#pragma once
#include "shell/Printing.h"

class QWidget;

namespace morvane {

// With the dialog of the desktop, which also offers a PDF file; nullptr if the user cancels.
std::unique_ptr<Printer> AskPagePrinter(QWidget* Parent, const PageRequest& Request);
std::unique_ptr<Printer> DefaultPagePrinter(const PageRequest& Request);
std::unique_ptr<Printer> PagePrinterToPdf(const PageRequest& Request, const std::string& Path);

} // namespace morvane
