#pragma once

#include "reports/Timesheet.h"

#include <QString>

class Prompts;
class QWidget;

// How timesheets get on paper; a test puts its own in place.
class Printing
{
public:
    virtual ~Printing() = default;

    virtual bool HasPrinter() const = 0;

    // Shows the preview, from which the platform's print dialog is reached. `printerName` is the printer suggested, and becomes
    // the one that was printed on; empty: the system's default. `title` names the document.
    virtual void Preview(QWidget *owner, const PrintedTimesheet &timesheet, const QString &title,
                         QString &printerName) = 0;
};

// The printers of the system. Tells the person when a timesheet could not be printed.
class SystemPrinting : public Printing
{
public:
    explicit SystemPrinting(Prompts &prompts) : prompts_(prompts) {}

    bool HasPrinter() const override;
    void Preview(QWidget *owner, const PrintedTimesheet &timesheet, const QString &title,
                 QString &printerName) override;

private:
    Prompts &prompts_;
};

// Writes a PDF file in the locale's usual paper size; false when that failed, as SaveFile.
bool WriteTimesheetPdf(const QString &path, const PrintedTimesheet &timesheet, const QString &title);
