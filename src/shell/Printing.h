// What the print job asks of the platform's printers.
#pragma once
#include <memory>
#include <string>

#include "platform/Device.h"

namespace morvane {

struct PageRequest {
    std::string DocumentName; // as the printer's queue shows it
    bool Landscape = false;
};

// A printer, or a file that is printed to, for one page. What has been started and not ended when
// it goes is given up; a file that was there before is then as it was.
class Printer {
public:
    virtual ~Printer() = default;

    virtual std::string Name() const = 0;
    virtual bool Open() = 0;
    // Empty, or what went wrong.
    virtual std::string ChangePageSettings() = 0;
    virtual bool StartDoc() = 0;
    virtual bool StartPage() = 0;
    virtual Device& Page() = 0; // of a page that has been started
    virtual bool EndPage() = 0;
    virtual bool EndDoc() = 0;
};

class Printers {
public:
    virtual ~Printers() = default;

    // By the user's choice of printer, copies and orientation; nullptr if the user cancels.
    virtual std::unique_ptr<Printer> AskPrinter(const PageRequest& Request) = 0;
    virtual std::unique_ptr<Printer> DefaultPrinter(const PageRequest& Request) = 0;
    virtual std::unique_ptr<Printer> PdfPrinter(
        const PageRequest& Request, const std::string& Path) = 0;

    virtual DeviceSize ScreenSize() const = 0;
    // Without a separator at the end.
    virtual std::string ProgramFolder() const = 0;
};

} // namespace morvane
