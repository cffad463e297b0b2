#pragma once

#include "reports/Summary.h"

#include <QByteArray>
#include <QString>

class Form;
class Printing;
class Prompts;

// Puts a summary on paper, on the clipboard and into files for the summary window. A file that can't be written is told of.
// A summary of no kind goes nowhere.
class SummaryOutput
{
public:
    // All but the name outlive this.
    SummaryOutput(Form &window, Prompts &prompts, Printing &printing, QString userInitials);

    void Print(const Summary &summary,
               QString &printerName); // as Printing::Preview; without a printer offers a PDF file
    void Copy(const Summary &summary) const;
    void SavePdf(const Summary &summary);
    void SaveCsv(const Summary &summary);

    QString PickRowsFile(const QDate &from, const QDate &to); // for SaveRows; empty when the person cancelled
    void SaveRows(const QString &path, const QByteArray &content);
    void TellNotSaved(const QString &path); // also of rows that could not be read

private:
    QString DocumentName(const QDate &from, const QDate &to) const;
    QString PickPath(const QString &title, const QString &name, const QString &filter);

    Form &window_;
    Prompts &prompts_;
    Printing &printing_;
    QString userInitials_;
};
