// The session's print job: a page of a document, from the question to the end of the job.
#include "report/DrawReport.h"
#include "shell/modMain.h"

namespace morvane {
namespace {

Message Failure(const std::string& text)
{
    return {.Text = text, .Title = "Error"};
}

} // namespace

PageRequest Session::RequestFor(const clsDocument& Of) const
{
    return {"Morvane - " + Of.ShownName(), Prefs.Report.PageOrientation == LandscapeOrientation};
}

void Session::PrintDialog(const clsDocument& Of)
{
    if (const auto printer = m_frame.AskPrinter(RequestFor(Of)))
        PrintReport(Of, *printer);
}

void Session::PrintAtOnce(const clsDocument& Of)
{
    PrintReport(Of, *m_frame.DefaultPrinter(RequestFor(Of)));
}

bool Session::PrintToPdf(const clsDocument& Of, const std::string& Path)
{
    return PrintReport(Of, *m_frame.PdfPrinter(RequestFor(Of), Path));
}

bool Session::PrintReport(const clsDocument& Of, Printer& On)
{
    const ReportSource source{
        Of, Prefs, m_frame.ScreenSize(), m_frame.ProgramFolder() + "/Logo.bmp"};
    if (HasEmptyPanes(source)
        && ShowMessage("Some of the specified panes will be empty, because there are no analysis "
                       "results to print. Continue?",
               MessageOkCancel, "Morvane")
            == MessageAnswer::Cancel)
        return false;
    const std::optional<Message> failure = PrintPage(source, On);
    if (failure)
        ShowMessage(failure->Text, failure->Flags, failure->Title);
    return !failure;
}

std::optional<Message> Session::PrintPage(const ReportSource& Of, Printer& On)
{
    if (!On.Open())
        return Failure("Cannot open printer: " + On.Name());
    if (const std::string error = On.ChangePageSettings(); !error.empty())
        return Message{.Text = error, .Flags = MessageWarningSign, .Title = "Print Error"};
    if (!On.StartDoc())
        return Failure("Cannot start print job on " + On.Name());
    if (!On.StartPage())
        return Failure("Cannot print page");
    const HourglassScope hourglass(*this);
    DrawReport(On.Page(), Of);
    if (!On.EndPage())
        return Failure("Cannot advance page");
    if (!On.EndDoc())
        return Failure("Print job incomplete");
    return std::nullopt;
}

} // namespace morvane
