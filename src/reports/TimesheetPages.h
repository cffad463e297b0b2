#pragma once

#include "reports/Timesheet.h"

#include <QFont>
#include <QPageRanges>

class QPagedPaintDevice;

// What stands where on the pages of one device; lengths in its units, from the corner of the printable area.
struct TimesheetLayout
{
    struct Column
    {
        double left = 0;
        double width = 0;
        Qt::Alignment alignment;
    };
    struct Line
    {
        double top = 0;    // in lines
        QStringList cells; // a text for each column
    };
    using Page = QList<Line>; // the lines below the headings

    QFont font;
    double lineHeight = 0;
    QStringList header; // lines
    QStringList foot;   // lines
    QList<Column> columns;
    QList<Page> pages; // the last line of the last page is the totals
};

// Lays a timesheet out on the pages of a printer, a preview or a PDF file: eight empty lines on top, the header on every page,
// columns that line up, the foot and page numbers, and the totals never alone on a page. Descriptions too long for their column go on in
// the next line of it.
TimesheetLayout LayOut(const PrintedTimesheet &timesheet, const QPagedPaintDevice &device);

// Paints the pages wanted, or all, on the device that they were laid out for; begins a page with device.newPage() but the
// first. False when the device refuses a page.
bool PaintPages(const TimesheetLayout &layout, QPagedPaintDevice &device, const QPageRanges &wanted = {});
