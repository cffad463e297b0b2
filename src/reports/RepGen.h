#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/RowsModel.h"
#include "reports/QuickRange.h"
#include "reports/Summary.h"
#include "reports/SummaryOutput.h"
#include "reports/SummaryTask.h"
#include "settings/Options.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

class DataControl;
class Printing;
class Prompts;
class TimeSource;

namespace Ui {
class RepGen;
}

// What the hours are summed from; `time` outlives the window.
struct RepGenParts
{
    QString timeDbPath;
    Rounding rounding;
    QString userInitials;
    const TimeSource &time;
    std::function<int()> unsavedStemps; // how many the time database lacks; asked whenever a sum was made
};

// The summary window: sums the hours of a range of days, for each job or each job and day, and puts the result on paper, on
// the clipboard and into files. All of these bear the result that was computed last, whatever the date pickers show since.
class RepGen : public Form
{
    Q_OBJECT

public:
    RepGen(FormServices &services, Prompts &prompts, Printing &printing, RepGenParts parts);
    ~RepGen() override; // a sum that is still being made is dropped

    void SetRepDates(); // takes the dates of the pickers for the next statement

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void ShowRunTimeControls() override;
    void QueryUnload() override; // not while rows are read for a file that the person has named

private:
    class PrinterDialog;

    void SetUpPickers();
    void SetUpGrid();
    void RegisterHidden(); // the controls that have no widget
    void SetUpAnchors();
    void Connect();

    void UpdateButton_Click();
    void DailyButton_Click();
    void PrintCommand_Click();
    void ClipCommand_Click();
    void Ranges_Click(QuickRange range);
    void mnuSavePdf_Click();
    void mnuSaveCsv_Click();
    void mnuSaveRows_Click();
    void SaveRows(const QDate &from, const QDate &to, const QString &path);

    void BeginSum(SummaryKind kind);
    void TaskEnded(const std::optional<dao::Error> &error);
    void SetBusy(bool busy);
    void EnableCommands();

    void ShowSummary();
    QString HoursCell(const QVariant &cell) const;
    void ShowColumns(SummaryKind kind);
    void ShowTotals();
    void ShowBars();
    void ShowUnsaved();
    void ShowNote(const QWidget *note); // one of those under the grid, or none

    RepGenParts parts_;
    std::unique_ptr<Ui::RepGen> ui_;
    DataControl *sumData_ = nullptr;         // owned by the list of controls
    PrinterDialog *printerDialog_ = nullptr; // likewise
    RowsModel gridModel_;
    QString totalsPattern_; // the captions as stored, which the labels show filled in
    QString unsavedPattern_;

    QDate fromDate_;
    QDate toDate_;
    QString roundingFragment_;
    Summary summary_;             // what was computed last
    bool hasThousandths_ = false; // some of its hours are shown with three decimals
    SummaryOutput output_;

    QTimer busyTimer_;
    bool busy_ = false;
    const QWidget *note_ = nullptr; // that is shown
    QPointer<QWidget> focusBeforeBusy_;
    SummaryTask summing_;
    SummaryTask reading_; // of the rows that are to be saved
};
