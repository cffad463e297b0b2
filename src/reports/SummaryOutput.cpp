#include "reports/SummaryOutput.h"

#include "platform/forms/Form.h"
#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "reports/Csv.h"
#include "reports/SaveFile.h"
#include "reports/Timesheet.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QLocale>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace {

// Never the program folder, which others may share.
QString FolderToSaveIn()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

} // namespace

SummaryOutput::SummaryOutput(Form &window, Prompts &prompts, Printing &printing, QString userInitials)
    : window_(window), prompts_(prompts), printing_(printing), userInitials_(std::move(userInitials))
{
}

void SummaryOutput::Print(const Summary &summary, const QString &printerName, const Printing::Printed &printed)
{
    if (summary.kind == SummaryKind::None)
        return;
    if (printing_.HasPrinter()) {
        printing_.Preview(&window_, TimesheetToPrint(summary, userInitials_, QLocale()),
                          DocumentName(summary.from, summary.to), printerName, printed);
    } else {
        prompts_.AskYesNo(
            &window_,
            Say("There is no printer on this computer.\n\nDo you want to save the timesheet "
                "as a PDF file instead?"),
            [this, summary](bool yes) {
                if (yes)
                    SavePdf(summary);
            });
    }
}

void SummaryOutput::Copy(const Summary &summary) const
{
    if (summary.kind != SummaryKind::None)
        QGuiApplication::clipboard()->setText(ClipboardText(summary, userInitials_, QLocale()));
}

// What is saved is made before the picker opens: another sum may end while it is open.
void SummaryOutput::SavePdf(const Summary &summary)
{
    if (summary.kind == SummaryKind::None)
        return;
    const QString title = DocumentName(summary.from, summary.to);
    const PrintedTimesheet timesheet = TimesheetToPrint(summary, userInitials_, QLocale());
    PickPath(Say("Save the timesheet as PDF"), title, u"*.pdf"_s, [this, timesheet, title](const QString &path) {
        if (!WriteTimesheetPdf(path, timesheet, title))
            TellNotSaved(path);
    });
}

void SummaryOutput::SaveCsv(const Summary &summary)
{
    if (summary.kind == SummaryKind::None)
        return;
    const QByteArray content = SummaryCsv(summary);
    PickPath(Say("Save the sums as CSV"), DocumentName(summary.from, summary.to), u"*.csv"_s,
             [this, content](const QString &path) { SaveRows(path, content); });
}

void SummaryOutput::PickRowsFile(const QDate &from, const QDate &to, std::function<void(const QString &path)> then)
{
    PickPath(Say("Save the time rows as CSV"), Say("%1 rows").arg(DocumentName(from, to)), u"*.csv"_s, std::move(then));
}

void SummaryOutput::SaveRows(const QString &path, const QByteArray &content)
{
    if (!SaveFile(path, content))
        TellNotSaved(path);
}

QString SummaryOutput::DocumentName(const QDate &from, const QDate &to) const
{
    return Say("%1 %2 to %3").arg(userInitials_, from.toString(Qt::ISODate), to.toString(Qt::ISODate));
}

void SummaryOutput::PickPath(const QString &title, const QString &name, const QString &filter,
                             std::function<void(const QString &path)> then)
{
    prompts_.PickSaveFile(
        &window_, title, QDir(FolderToSaveIn()).filePath(name + filter.mid(1)), filter,
        [then = std::move(then)](const QString &path) {
            if (!path.isEmpty())
                then(path);
        });
}

void SummaryOutput::TellNotSaved(const QString &path)
{
    prompts_.MsgBox(&window_,
                    Say("The file\n%1\ncould not be saved. Its folder may be read-only or not there, the disk may be "
                        "full, or another program may have opened it.")
                        .arg(QDir::toNativeSeparators(path)));
}
