#include "reports/Printing.h"

#include "platform/forms/Form.h"
#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "reports/SaveFile.h"
#include "reports/TimesheetPages.h"

#include <QAction>
#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QLoggingCategory>
#include <QPdfWriter>
#include <QPrintEngine>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.reports")

const QMarginsF pageMargins(20, 10, 15, 15); // millimetres, with room for the holes of a folder

// Whether the printing system leaves pages out that the person did not choose. CUPS does for a list of pages, not for a range,
// and its print engine alone knows: the key of its options is in no header of Qt, it was seen in Qt 6.4. A Qt without it says
// nothing here; then the pages are picked here and, of a list, once more by CUPS, which misses some.
bool PicksPagesItself(const QPrinter &printer)
{
    constexpr auto cupsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);
    return printer.outputFormat() == QPrinter::NativeFormat
           && printer.printEngine()->property(cupsOptions).toStringList().contains(u"page-ranges"_s);
}

// The preview's buttons can't be reached with the keys.
void AddPrintKey(QPrintPreviewDialog &preview)
{
    for (QAction *action : preview.findChildren<QAction *>())
        if (action->text() == QPrintPreviewDialog::tr("Print"))
            action->setShortcut(QKeySequence::Print);
}

// Neither a printing system that has gone nor a full disk is reported: what is left tells.
bool IsThere(const QString &printerName)
{
    return !QPrinterInfo::printerInfo(printerName).isNull();
}

bool IsWholePdf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(std::max(0LL, file.size() - 16))
           && file.read(16).trimmed().endsWith("%%EOF");
}

struct PrinterOfPreview
{
    explicit PrinterOfPreview(const QPrinterInfo &suggested) : used(suggested, QPrinter::HighResolution) {}

    QPrinter used;
    bool isPrinted = true;
};

// The dialog needs its printer until it is gone itself.
class PreviewDialog : public PrinterOfPreview, public QPrintPreviewDialog
{
public:
    PreviewDialog(const QPrinterInfo &suggested, QWidget *owner)
        : PrinterOfPreview(suggested), QPrintPreviewDialog(&used, owner)
    {
    }
};

// For the preview, too.
bool Print(const PrintedTimesheet &timesheet, QPrinter &printer)
{
    const TimesheetLayout layout = LayOut(timesheet, printer);
    if (printer.printRange() == QPrinter::PageRange)
        return PaintPages(layout, printer, PicksPagesItself(printer) ? QPageRanges() : printer.pageRanges());
    // the pages that the print dialog lets a person choose from
    printer.setFromTo(1, static_cast<int>(layout.pages.size()));
    return PaintPages(layout, printer);
}

} // namespace

bool SystemPrinting::HasPrinter() const
{
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

void SystemPrinting::Preview(QWidget *owner, const PrintedTimesheet &timesheet, const QString &title,
                             const QString &printerName, const Printed &printed)
{
    QPrinterInfo suggested = QPrinterInfo::printerInfo(printerName);
    if (suggested.isNull())
        suggested = QPrinterInfo::defaultPrinter();
    auto *preview = new PreviewDialog(suggested, owner);
    preview->setWindowTitle(Say("Print Preview: %1").arg(title));
    QPrinter &printer = preview->used;
    printer.setDocName(title);
    printer.setCreator(QGuiApplication::applicationDisplayName());
    printer.setPageMargins(pageMargins, QPageLayout::Millimeter);

    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->resize(QSize(900, 1000).boundedTo(preview->screen()->availableSize() * 9 / 10));
    AddPrintKey(*preview);
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [preview, timesheet](QPrinter *target) { preview->isPrinted = Print(timesheet, *target); });
    // The dialog is accepted by printing, be it on a printer or to a file.
    QObject::connect(preview, &QDialog::accepted, preview, [this, preview, owner, title, printed] {
        const QPrinter &used = preview->used;
        const bool isOnPaper = used.outputFormat() == QPrinter::NativeFormat;
        const QString target = isOnPaper ? used.printerName() : used.outputFileName();
        if (isOnPaper)
            printed(target);
        if (!preview->isPrinted || used.printerState() == QPrinter::Error
            || !(isOnPaper ? IsThere(target) : IsWholePdf(target))) {
            qCWarning(log).noquote() << title << u"could not be printed on"_s << target;
            prompts_.MsgBox(owner, Say("The timesheet could not be printed on %1.").arg(target));
        }
    });
    if (const auto *form = qobject_cast<const Form *>(owner))
        QObject::connect(form, &Form::QuestionsToEnd, preview, &QDialog::reject);
    preview->open();
}

bool WriteTimesheetPdf(const QString &path, const PrintedTimesheet &timesheet, const QString &title)
{
    QByteArray content;
    QBuffer buffer(&content);
    if (!buffer.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&buffer); // ends the document when it goes
        const bool usesLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
        writer.setPageSize(QPageSize(usesLetter ? QPageSize::Letter : QPageSize::A4));
        writer.setPageMargins(pageMargins, QPageLayout::Millimeter);
        writer.setTitle(title);
        writer.setCreator(QGuiApplication::applicationDisplayName());
        if (!PaintPages(LayOut(timesheet, writer), writer))
            return false;
    }
    return SaveFile(path, content);
}
