#pragma once

#include "reports/Printing.h"
#include "reports/Summary.h"

#include <QByteArray>
#include <QString>

#include <functional>

class Form;
class Prompts;

// Puts a summary on paper, on the clipboard and into files for the summary window. A file that can't be written is told of.
// A summary of no kind goes nowhere.
class SummaryOutput
{
public:
    // All but the name outlive this.
    SummaryOutput(Form &window, Prompts &prompts, Printing &printing, QString userInitials);

    // As Printing::Preview; without a printer offers a PDF file.
    void Print(const Summary &summary, const QString &printerName, const Printing::Printed &printed);
    void Copy(const Summary &summary) const;
    void SavePdf(const Summary &summary);
    void SaveCsv(const Summary &summary);

    // For SaveRows. `then` is not called when the person cancelled.
    void PickRowsFile(const QDate &from, const QDate &to, std::function<void(const QString &path)> then);
    void SaveRows(const QString &path, const QByteArray &content);
    void TellNotSaved(const QString &path); // also of rows that could not be read

private:
    QString DocumentName(const QDate &from, const QDate &to) const;
    void PickPath(const QString &title, const QString &name, const QString &filter,
                  std::function<void(const QString &path)> then);

    Form &window_;
    Prompts &prompts_;
    Printing &printing_;
    QString userInitials_;
};
