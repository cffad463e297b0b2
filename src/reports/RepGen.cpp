#include "reports/RepGen.h"

#include "platform/forms/ControlTypes.h"
#include "platform/forms/GridControl.h"
#include "platform/forms/ShownText.h"
#include "platform/system/TimeSource.h"
#include "reports/ChartBars.h"
#include "reports/Csv.h"
#include "reports/HoursQuery.h"
#include "reports/TimeRows.h"
#include "reports/Timesheet.h"
#include "ui_RepGen.h"

#include <QKeyEvent>
#include <QLoggingCategory>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.reports")

constexpr std::chrono::milliseconds untilBusy = 500ms; // what takes longer is worth a word

constexpr QSize leastSize(880, 360); // all buttons, and some lines of the grid

enum Column { dayColumn, jobColumn, hoursColumn, roundedColumn, descriptionColumn, monthColumn };
constexpr int cellMargin = 14; // beside the text of a cell
constexpr int dayWidth = 44;   // as designed, pixels
constexpr int monthWidth = 58;
constexpr int jobWidth = 100;
constexpr int hoursWidth = 70;
constexpr QChar figureSpace = u'\u2007';

QString TwoDigits(const QVariant &cell)
{
    return u"%1"_s.arg(cell.toInt(), 2, 10, QChar(u'0'));
}

QString RoundedCell(const QVariant &cell)
{
    return cell.isNull() ? QString() : ExactHoursText(cell.toDouble(), QLocale());
}

double Shown(double hours)
{
    return ExactHoursText(hours, QLocale::c()).toDouble();
}

bool HasThousandths(const std::optional<double> &hours)
{
    return hours && ExactHoursText(*hours, QLocale::c()).section(u'.', 1).size() == 3;
}

QVariant HoursValue(const std::optional<double> &hours)
{
    return hours ? QVariant(*hours) : QVariant();
}

} // namespace

// Keeps the name of the printer that was used last.
class RepGen::PrinterDialog : public Control
{
public:
    PrinterDialog() : Control(u"PrinterDialog"_s, std::nullopt, u"CommonDialog"_s) {}
    std::optional<QString> Value() const override { return printerName; }
    void SetValue(const QString &text) override { printerName = text; }

    QString printerName;
};

RepGen::RepGen(FormServices &services, Prompts &prompts, Printing &printing, RepGenParts parts)
    : Form(u"RepGen"_s, services),
      parts_(std::move(parts)),
      ui_(std::make_unique<Ui::RepGen>()),
      gridModel_({QLatin1String(QT_TRANSLATE_NOOP("RepGen", "Day")), QLatin1String(QT_TRANSLATE_NOOP("RepGen", "Job")),
                  QLatin1String(QT_TRANSLATE_NOOP("RepGen", "Hours")),
                  QLatin1String(QT_TRANSLATE_NOOP("RepGen", "Rounded")),
                  QLatin1String(QT_TRANSLATE_NOOP("RepGen", "Description")),
                  QLatin1String(QT_TRANSLATE_NOOP("RepGen", "Month"))}),
      output_(*this, prompts, printing, parts_.userInitials),
      summing_(parts_.timeDbPath),
      reading_(parts_.timeDbPath)
{
    ui_->setupUi(this);
    SetUpPickers();
    SetUpGrid();
    ui_->MSChart->SetTitleText(QLatin1String(QT_TRANSLATE_NOOP("RepGen", "Hours")));
    RegisterControls();
    auto &grid = static_cast<GridControl &>(*ControlOf(*ui_->SummaryGrid));
    const QFontMetrics metrics = ui_->SummaryGrid->fontMetrics();
    for (const int column : {dayColumn, monthColumn})
        grid.SetLeastWidth(column, metrics.horizontalAdvance(TwoDigits(28)) + cellMargin);
    grid.SetLeastWidth(hoursColumn, metrics.horizontalAdvance(HoursCell(8888.888)) + cellMargin);
    grid.SetLeastWidth(roundedColumn, metrics.horizontalAdvance(HoursCell(8888.888)) + cellMargin);
    RegisterHidden();
    SetUpAnchors();
    setMinimumSize(leastSize);
    SetDefaultButton(ui_->UpdateButton);
    busyTimer_.setSingleShot(true);
    busyTimer_.setInterval(untilBusy);
    Connect();
}

RepGen::~RepGen() = default;

void RepGen::SetUpPickers()
{
    for (QDateEdit *picker : {ui_->DTPickerFrom, ui_->DTPickerTo}) {
        picker->setDisplayFormat(DateFormat(QLocale()));
        picker->setDate(parts_.time.Now().date());
    }
}

void RepGen::SetUpGrid()
{
    gridModel_.SetFormatter(dayColumn, TwoDigits);
    gridModel_.SetFormatter(monthColumn, TwoDigits);
    gridModel_.SetFormatter(hoursColumn, [this](const QVariant &cell) { return HoursCell(cell); });
    gridModel_.SetFormatter(roundedColumn, RoundedCell);
    QTableView &grid = *ui_->SummaryGrid;
    grid.setModel(&gridModel_);
    grid.setItemDelegate(new ShownTextDelegate(&grid));
    grid.setColumnWidth(dayColumn, dayWidth);
    grid.setColumnWidth(jobColumn, jobWidth);
    grid.setColumnWidth(hoursColumn, hoursWidth);
    grid.setColumnWidth(roundedColumn, hoursWidth);
    grid.setColumnWidth(monthColumn, monthWidth);
    // Beside the day, where it reads as a date; the description is the one that takes the room that is left.
    grid.horizontalHeader()->moveSection(monthColumn, dayColumn + 1);
}

void RepGen::RegisterHidden()
{
    auto sumData = std::make_unique<DataControl>(u"SumData"_s);
    sumData_ = sumData.get();
    RegisterControl(std::move(sumData), QLatin1String(QT_TRANSLATE_NOOP(
                                            "RepGen", "Fetches the sums from your time database for the grid. It is "
                                                      "not seen. It only reads and changes no data.")));
    auto printerDialog = std::make_unique<PrinterDialog>();
    printerDialog_ = printerDialog.get();
    RegisterControl(std::move(printerDialog),
                    QLatin1String(QT_TRANSLATE_NOOP(
                        "RepGen", "The window in which you choose the printer. It opens from the preview of the "
                                  "timesheet; the printer that you print on is suggested the next time.")));
}

// The grid has three fifths of the width, the chart the rest; below them are the totals and a line of notes.
void RepGen::SetUpAnchors()
{
    Anchor({ui_->SummaryGrid}, {.width = 0.6, .height = 1});
    Anchor({ui_->MSChart}, {.x = 0.6, .width = 0.4, .height = 1});
    Anchor({ui_->TotalsLabel}, {.y = 1, .width = 1});
    Anchor({ui_->SummingLabel, ui_->SavingLabel, ui_->EmptyLabel, ui_->ErrorLabel}, {.y = 1, .width = 0.6});
    Anchor({ui_->UnsavedLabel}, {.x = 0.6, .y = 1, .width = 0.4});
}

void RepGen::Connect()
{
    connect(ui_->UpdateButton, &QPushButton::clicked, this, &RepGen::UpdateButton_Click);
    connect(ui_->DailyButton, &QPushButton::clicked, this, &RepGen::DailyButton_Click);
    connect(ui_->PrintCommand, &QPushButton::clicked, this, &RepGen::PrintCommand_Click);
    connect(ui_->ClipCommand, &QPushButton::clicked, this, &RepGen::ClipCommand_Click);
    const std::pair<QPushButton *, QuickRange> ranges[] = {{ui_->Ranges_0, QuickRange::Today},
                                                           {ui_->Ranges_1, QuickRange::ThisWeek},
                                                           {ui_->Ranges_2, QuickRange::LastWeek},
                                                           {ui_->Ranges_3, QuickRange::ThisMonth},
                                                           {ui_->Ranges_4, QuickRange::LastMonth}};
    for (const auto &[button, range] : ranges)
        connect(button, &QPushButton::clicked, this, [this, range = range] { Ranges_Click(range); });
    connect(ui_->mnuSavePdf, &QAction::triggered, this, &RepGen::mnuSavePdf_Click);
    connect(ui_->mnuSaveCsv, &QAction::triggered, this, &RepGen::mnuSaveCsv_Click);
    connect(ui_->mnuSaveRows, &QAction::triggered, this, &RepGen::mnuSaveRows_Click);
    connect(ui_->MSChart, &ChartWidget::Resized, this, &RepGen::ShowBars);
    connect(&busyTimer_, &QTimer::timeout, this, [this] { SetBusy(true); });
}

void RepGen::Form_Load()
{
    LoadTexts();
    totalsPattern_ = ui_->TotalsLabel->text();
    unsavedPattern_ = ui_->UnsavedLabel->text();
    sumData_->DatabaseName = parts_.timeDbPath;
    roundingFragment_ = RoundingFragment(parts_.rounding);
    SetRepDates();
    ShowColumns(SummaryKind::PerJob);
    ShowTotals();
    ShowUnsaved();
    ShowNote(nullptr);
    EnableCommands();
    ui_->DTPickerFrom->setFocus();
}

void RepGen::Form_Unload()
{
    busyTimer_.stop();
    ShowColumns(SummaryKind::PerDay); // a hidden column has no width to be stored
    ui_->TotalsLabel->setText(totalsPattern_);
    ui_->UnsavedLabel->setText(unsavedPattern_);
    SaveTexts();
}

void RepGen::QueryUnload()
{
    if (reading_.IsRunning())
        SetBusy(true); // which says why
    else
        Unload();
}

bool RepGen::Form_KeyDown(QKeyEvent &event)
{
    if (event.key() != Qt::Key_Escape)
        return false;
    close();
    return true;
}

void RepGen::SetRepDates()
{
    for (QDateEdit *picker : {ui_->DTPickerFrom, ui_->DTPickerTo})
        picker->interpretText(); // what is being typed
    fromDate_ = ui_->DTPickerFrom->date();
    toDate_ = ui_->DTPickerTo->date();
}

void RepGen::Ranges_Click(QuickRange range)
{
    const DateRange dates = RangeOf(range, parts_.time.Now().date(), QLocale().firstDayOfWeek());
    ui_->DTPickerFrom->setDate(dates.from);
    ui_->DTPickerTo->setDate(dates.to);
    for (QDateEdit *picker : {ui_->DTPickerFrom, ui_->DTPickerTo})
        if (picker->hasFocus()) // what was selected may be but a part of a number now
            picker->setSelectedSection(picker->currentSection());
}

void RepGen::UpdateButton_Click()
{
    BeginSum(SummaryKind::PerJob);
}

void RepGen::DailyButton_Click()
{
    BeginSum(SummaryKind::PerDay);
}

void RepGen::BeginSum(SummaryKind kind)
{
    SetRepDates();
    const bool perDay = kind == SummaryKind::PerDay;
    const RepDates dates = SplitDates(fromDate_, toDate_);
    sumData_->RecordSource = perDay ? HoursPerDay(dates, roundingFragment_) : HoursPerJob(dates, roundingFragment_);
    ShowNote(nullptr);
    busyTimer_.start();
    const auto sum = std::make_shared<Summary>();
    summing_.Begin([sum, kind, from = fromDate_, to = toDate_, rounding = parts_.rounding](
                       dao::Database &timeDb) { *sum = ReadSummary(timeDb, kind, from, to, rounding); },
                   [this, sum](const std::optional<dao::Error> &error) {
                       TaskEnded(error);
                       if (error) {
                           ShowNote(ui_->ErrorLabel);
                           return;
                       }
                       summary_ = *sum;
                       ShowSummary();
                   });
}

void RepGen::TaskEnded(const std::optional<dao::Error> &error)
{
    if (!summing_.IsRunning() && !reading_.IsRunning()) {
        busyTimer_.stop();
        SetBusy(false);
    }
    if (error)
        qCWarning(log).noquote() << error->Text();
}

void RepGen::SetBusy(bool busy)
{
    if (busy == busy_)
        return;
    busy_ = busy;
    QWidget *focus = focusWidget();
    EnableCommands();
    if (busy) {
        focusBeforeBusy_ =
            focus && !focus->isEnabled() ? focus : nullptr; // a button loses the focus when it is disabled
        setCursor(Qt::BusyCursor);
        ShowNote(reading_.IsRunning() ? ui_->SavingLabel : ui_->SummingLabel);
    } else {
        if (focusBeforeBusy_)
            focusBeforeBusy_->setFocus();
        unsetCursor();
        ShowNote(nullptr);
    }
}

void RepGen::EnableCommands()
{
    const bool summed = summary_.kind != SummaryKind::None;
    ui_->UpdateButton->setEnabled(!busy_);
    ui_->DailyButton->setEnabled(!busy_);
    ui_->PrintCommand->setEnabled(!busy_ && summed);
    ui_->ClipCommand->setEnabled(!busy_ && summed);
    ui_->mnuSavePdf->setEnabled(!busy_ && summed);
    ui_->mnuSaveCsv->setEnabled(!busy_ && summed);
    ui_->mnuSaveRows->setEnabled(!busy_ && !reading_.IsRunning());
}

void RepGen::ShowSummary()
{
    const bool perDay = summary_.kind == SummaryKind::PerDay;
    std::vector<RowsModel::Row> cells;
    cells.reserve(static_cast<std::size_t>(summary_.rows.size()));
    for (const SummaryRow &row : summary_.rows)
        cells.push_back({perDay ? QVariant(row.day.day()) : QVariant(), row.jobID, HoursValue(row.hours),
                         HoursValue(row.rounded), row.jobName, perDay ? QVariant(row.day.month()) : QVariant()});
    hasThousandths_ = std::any_of(summary_.rows.cbegin(), summary_.rows.cend(),
                                  [](const SummaryRow &row) { return HasThousandths(row.hours); });
    ui_->SummaryGrid->clearSelection();
    gridModel_.SetRows(std::move(cells));
    ui_->SummaryGrid->scrollToTop();
    ShowColumns(summary_.kind);
    ShowTotals();
    ShowBars();
    ShowUnsaved();
    ShowNote(summary_.rows.isEmpty() ? ui_->EmptyLabel : nullptr);
    EnableCommands();
}

// The decimal points stand below each other: a blank as wide as a digit takes the place of a third decimal.
QString RepGen::HoursCell(const QVariant &cell) const
{
    if (cell.isNull())
        return {};
    const double hours = cell.toDouble();
    const bool padded = hasThousandths_ && !HasThousandths(hours);
    return ExactHoursText(hours, QLocale()) + (padded ? QString(figureSpace) : QString());
}

void RepGen::ShowColumns(SummaryKind kind)
{
    for (const int column : {dayColumn, monthColumn})
        ui_->SummaryGrid->setColumnHidden(column, kind != SummaryKind::PerDay);
}

void RepGen::ShowTotals()
{
    if (summary_.kind == SummaryKind::None) {
        ui_->TotalsLabel->clear();
        return;
    }
    const QLocale locale;
    const QString format = DateFormat(locale);
    const double hours = Shown(summary_.TotalHours());
    const double rounded = Shown(summary_.TotalRounded());
    const QString difference = ExactHoursText(rounded - hours, locale);
    const bool isMore = Shown(rounded - hours) > 0;
    ui_->TotalsLabel->setText(totalsPattern_.arg(
        ExactHoursText(hours, locale), ExactHoursText(rounded, locale), (isMore ? u"+"_s : QString()) + difference,
        locale.toString(summary_.from, format), locale.toString(summary_.to, format)));
}

void RepGen::ShowBars()
{
    using Layout = ChartWidget::Layout;
    const Layout layout = summary_.kind == SummaryKind::PerDay ? Layout::Columns : Layout::Rows;
    QList<ChartWidget::Bar> bars;
    for (const HoursBar &bar : BarsOf(summary_, ui_->MSChart->MostBars(layout), QLocale()))
        bars.append({bar.label, bar.tip, bar.hours, bar.isRest});
    ui_->MSChart->SetBars(std::move(bars), layout);
}

void RepGen::ShowUnsaved()
{
    const int unsaved = parts_.unsavedStemps();
    ui_->UnsavedLabel->setText(unsavedPattern_.arg(unsaved));
    ui_->UnsavedLabel->setVisible(unsaved > 0);
}

void RepGen::ShowRunTimeControls()
{
    ShowNote(note_);
    ui_->UnsavedLabel->setVisible(parts_.unsavedStemps() > 0);
}

void RepGen::ShowNote(const QWidget *note)
{
    note_ = note;
    for (QLabel *label : {ui_->SummingLabel, ui_->SavingLabel, ui_->EmptyLabel, ui_->ErrorLabel})
        label->setVisible(note && label == note);
}

void RepGen::PrintCommand_Click()
{
    output_.Print(
        summary_, printerDialog_->printerName,
        [this](const QString &printer) { printerDialog_->printerName = printer; });
}

void RepGen::ClipCommand_Click()
{
    output_.Copy(summary_);
}

void RepGen::mnuSavePdf_Click()
{
    output_.SavePdf(summary_);
}

void RepGen::mnuSaveCsv_Click()
{
    output_.SaveCsv(summary_);
}

void RepGen::mnuSaveRows_Click()
{
    QDate from = summary_.from;
    QDate to = summary_.to;
    if (summary_.kind == SummaryKind::None) {
        SetRepDates();
        from = fromDate_;
        to = toDate_;
    }
    output_.PickRowsFile(from, to, [this, from, to](const QString &path) { SaveRows(from, to, path); });
}

void RepGen::SaveRows(const QDate &from, const QDate &to, const QString &path)
{
    ShowNote(nullptr);
    busyTimer_.start();
    const auto content = std::make_shared<QByteArray>();
    reading_.Begin(
        [content, from, to](dao::Database &timeDb) { *content = TimeRowsCsv(ReadTimeRows(timeDb, from, to)); },
        [this, content, path](const std::optional<dao::Error> &error) {
            TaskEnded(error);
            EnableCommands();
            if (error)
                output_.TellNotSaved(path);
            else
                output_.SaveRows(path, *content);
        });
    EnableCommands(); // two reads for files would get into each other's way
}
