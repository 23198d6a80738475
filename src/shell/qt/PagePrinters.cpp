#include "shell/qt/PagePrinters.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QLocale>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <cstdint>
#include <optional>

#include <langinfo.h>

#include "platform/File.h"
#include "platform/qt/PageDevice.h"

namespace morvane {
namespace {

constexpr int PdfResolution = 600; // dots per inch
constexpr double PdfEdge = 0.25; // inch, left free as a printer does

QPageLayout::Orientation OrientationOf(const PageRequest& request)
{
    return request.Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

QMarginsF PdfMargins()
{
    return {PdfEdge, PdfEdge, PdfEdge, PdfEdge};
}

// The paper that the user's country writes on: as the system's locale tells its width or, where
// that locale is not installed, by its name.
QPageSize UsualPaper()
{
    constexpr std::intptr_t letterWidth = 216; // mm
    const auto width = reinterpret_cast<std::intptr_t>(nl_langinfo(_NL_PAPER_WIDTH));
    const bool american = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(american || width == letterWidth ? QPageSize::Letter : QPageSize::A4);
}

// The page is whole before the file is touched.
class PdfFile final : public Printer {
public:
    PdfFile(const PageRequest& Request, QPageLayout Layout, std::string Path)
        : m_path(std::move(Path)), m_writer(&m_bytes), m_layout(std::move(Layout))
    {
        m_writer.setResolution(PdfResolution);
        m_writer.setTitle(QString::fromStdString(Request.DocumentName));
        m_writer.setCreator("Morvane " + QCoreApplication::applicationVersion());
    }

    std::string Name() const override { return m_path; }
    bool Open() override { return true; }
    std::string ChangePageSettings() override
    {
        m_layout.setUnits(QPageLayout::Inch);
        m_layout.setMinimumMargins({});
        const bool isTaken = m_layout.setMargins(PdfMargins()) && m_writer.setPageLayout(m_layout);
        return isTaken ? "" : "Error changing page settings.";
    }
    bool StartDoc() override
    {
        if (!StagedFile(m_path, {}).Prepared() || !m_bytes.open(QIODevice::WriteOnly))
            return false;
        m_page.emplace(m_writer);
        return m_writer.paintingActive();
    }
    bool StartPage() override { return true; } // the document starts with one
    Device& Page() override { return *m_page; }
    bool EndPage() override { return true; } // and ends with it
    bool EndDoc() override
    {
        m_page.reset();
        const QByteArray& bytes = m_bytes.data();
        return bool(WriteWholeFile(m_path, {bytes.data(), static_cast<std::size_t>(bytes.size())}));
    }

private:
    const std::string m_path;
    QBuffer m_bytes; // outlives what writes into it
    QPdfWriter m_writer;
    std::optional<PageDevice> m_page;
    QPageLayout m_layout;
};

class PaperPrinter final : public Printer {
public:
    PaperPrinter(std::unique_ptr<QPrinter> On, std::string Name)
        : m_printer(std::move(On)), m_name(std::move(Name))
    {
    }
    ~PaperPrinter() override
    {
        if (m_page)
            m_printer->abort();
    }

    std::string Name() const override { return m_name; }
    bool Open() override { return m_printer && m_printer->isValid(); }
    // As much of the sheet as the printer can print on.
    std::string ChangePageSettings() override
    {
        QPageLayout layout = m_printer->pageLayout();
        const bool isTaken =
            layout.setMargins(layout.minimumMargins()) && m_printer->setPageLayout(layout);
        return isTaken ? "" : "Error changing page settings.";
    }
    bool StartDoc() override
    {
        m_page.emplace(*m_printer);
        return m_printer->paintingActive();
    }
    bool StartPage() override { return IsWell(); }
    Device& Page() override { return *m_page; }
    bool EndPage() override { return IsWell(); }
    bool EndDoc() override
    {
        m_page.reset();
        return IsWell();
    }

private:
    bool IsWell() const
    {
        const QPrinter::PrinterState state = m_printer->printerState();
        return state != QPrinter::Error && state != QPrinter::Aborted;
    }

    std::unique_ptr<QPrinter> m_printer;
    std::string m_name;
    std::optional<PageDevice> m_page;
};

// A report has one page: there is nothing to choose among pages. The dialog of Qt shows its ranges
// and page sets again at will, whatever its options are; below a hidden parent they stay unseen.
void HidePageChoices(QPrintDialog& on)
{
    auto* const unseen = new QWidget(&on);
    unseen->hide();
    for (const char* name : {"gbPrintRange", "pageSetLabel", "pageSetCombo"})
        if (auto* const choice = on.findChild<QWidget*>(name))
            choice->setParent(unseen);
}

std::unique_ptr<QPrinter> Prepared(const PageRequest& request, const QPrinterInfo& on)
{
    auto printer = on.isNull() ? std::make_unique<QPrinter>(QPrinter::HighResolution)
                               : std::make_unique<QPrinter>(on, QPrinter::HighResolution);
    printer->setDocName(QString::fromStdString(request.DocumentName));
    printer->setPageOrientation(OrientationOf(request));
    return printer;
}

} // namespace

std::unique_ptr<Printer> AskPagePrinter(QWidget* Parent, const PageRequest& Request)
{
    auto printer = Prepared(Request, QPrinterInfo::defaultPrinter());
    QPrintDialog dialog(printer.get(), Parent);
    dialog.setObjectName("dlgPrint");
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintCollateCopies);
    HidePageChoices(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    printer->setPrintRange(QPrinter::AllPages); // a printer's own defaults may be others
    if (printer->outputFormat() == QPrinter::PdfFormat)
        return std::make_unique<PdfFile>(
            Request, printer->pageLayout(), printer->outputFileName().toStdString());
    std::string name = printer->printerName().toStdString();
    return std::make_unique<PaperPrinter>(std::move(printer), std::move(name));
}

std::unique_ptr<Printer> DefaultPagePrinter(const PageRequest& Request)
{
    const QPrinterInfo usual = QPrinterInfo::defaultPrinter();
    if (usual.isNull())
        return std::make_unique<PaperPrinter>(
            nullptr, "there is no default printer\r\nFile / Print makes a PDF without one");
    return std::make_unique<PaperPrinter>(
        Prepared(Request, usual), usual.printerName().toStdString());
}

std::unique_ptr<Printer> PagePrinterToPdf(const PageRequest& Request, const std::string& Path)
{
    return std::make_unique<PdfFile>(Request,
        QPageLayout(UsualPaper(), OrientationOf(Request), PdfMargins(), QPageLayout::Inch), Path);
}

} // namespace morvane
