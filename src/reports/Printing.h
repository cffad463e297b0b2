#pragma once

#include "reports/Timesheet.h"

#include <QString>

#include <functional>

class Prompts;
class QWidget;

// How timesheets get on paper; a test puts its own in place.
class Printing
{
public:
    virtual ~Printing() = default;

    virtual bool HasPrinter() const = 0;

    using Printed = std::function<void(const QString &printerName)>;

    // Shows the preview, from which the platform's print dialog is reached, and returns at once. `printerName` is the printer
    // suggested, empty: the system's default; `printed` is told the one that was printed on, while the owner lives. `title`
    // names the document.
    virtual void Preview(QWidget *owner, const PrintedTimesheet &timesheet, const QString &title,
                         const QString &printerName, const Printed &printed) = 0;
};

// The printers of the system. Tells the person when a timesheet could not be printed.
class SystemPrinting : public Printing
{
public:
    explicit SystemPrinting(Prompts &prompts) : prompts_(prompts) {}

    bool HasPrinter() const override;
    void Preview(QWidget *owner, const PrintedTimesheet &timesheet, const QString &title, const QString &printerName,
                 const Printed &printed) override;

private:
    Prompts &prompts_;
};

// Writes a PDF file in the locale's usual paper size; false when that failed, as SaveFile.
bool WriteTimesheetPdf(const QString &path, const PrintedTimesheet &timesheet, const QString &title);
