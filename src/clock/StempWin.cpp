#include "clock/StempWin.h"

#include "clock/Clock.h"
#include "clock/CreateJob.h"
#include "clock/DateText.h"
#include "clock/IOQuery.h"
#include "clock/Notes.h"
#include "platform/forms/ControlTypes.h"
#include "platform/forms/GridControl.h"
#include "platform/forms/Prompts.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"
#include "platform/system/TimeSource.h"
#include "settings/Options.h"
#include "startup/Identity.h"
#include "startup/JobDatabase.h"
#include "ui_StempWin.h"

#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScrollBar>

namespace {

constexpr QRgb green = 0xff008000;
constexpr QRgb red = 0xffc00000;

constexpr double leastWidth = 6280; // twips; the frame comes on top
constexpr double gridMargin = 280;  // twips: what the grid is narrower than the window
constexpr double gridBottom = 120;  // twips left free below the grid
constexpr double leastGridHeight = 500;

constexpr int jobColumn = 0; // of the grid
constexpr int inColumn = 1;
constexpr int outColumn = 2;
constexpr int jobWidth = 90;   // as designed, pixels
constexpr int cellMargin = 14; // beside the text of a cell

QString DateCell(const QVariant &cell)
{
    return cell.isNull() ? QString() : DateTimeText(cell.toDateTime(), QLocale());
}

// Of the widest date of the locale, which has the names of months and halves of the day in some.
int DateWidth(const QFontMetrics &metrics)
{
    int widest = 0;
    for (int month = 1; month <= 12; ++month) {
        const QDateTime time(QDate(2028, month, 28), QTime(22, 58, 58), Qt::UTC);
        widest = std::max(widest, metrics.horizontalAdvance(DateTimeText(time, QLocale())));
    }
    return widest + cellMargin;
}

QVariant DateCellValue(const std::optional<QDateTime> &time)
{
    return time ? QVariant(*time) : QVariant();
}

} // namespace

StempWin::StempWin(FormServices &services, Prompts &prompts, StempWinParts parts)
    : Form(QStringLiteral("StempWin"), services),
      services_(services),
      prompts_(prompts),
      parts_(parts),
      ui_(std::make_unique<Ui::StempWin>()),
      gridModel_({QLatin1String(QT_TRANSLATE_NOOP("StempWin", "Job")),
                  QLatin1String(QT_TRANSLATE_NOOP("StempWin", "Stemped In")),
                  QLatin1String(QT_TRANSLATE_NOOP("StempWin", "Stemped Out")),
                  QLatin1String(QT_TRANSLATE_NOOP("StempWin", "Description"))})
{
    iconIn_ = QIcon(QStringLiteral(":/icons/IconIn.svg"));
    iconOut_ = QIcon(QStringLiteral(":/icons/IconOut.svg"));
    iconAlert_ = QIcon(QStringLiteral(":/icons/IconAlert.svg"));
    ui_->setupUi(this);
    SetUpGrid();
    RegisterControls();
    auto stempList = std::make_unique<DataControl>(QStringLiteral("StempList"));
    stempList_ = stempList.get();
    RegisterControl(std::move(stempList),
                    QLatin1String(QT_TRANSLATE_NOOP(
                        "StempWin", "Fetches the rows of the last days from your time database for the grid. It is not "
                                    "seen. How many days it fetches is set in the settings; it changes no data.")));
    RegisterControl(
        std::make_unique<Control>(QStringLiteral("RefreshTimer"), std::nullopt, QStringLiteral("Timer")),
        QLatin1String(QT_TRANSLATE_NOOP("StempWin", "Counts the seconds between two looks at the company database. It "
                                                    "is not seen. How many seconds that are is set in the settings.")));
    RegisterControl(
        std::make_unique<Control>(QStringLiteral("BlinkTimer"), std::nullopt, QStringLiteral("Timer")),
        QLatin1String(QT_TRANSLATE_NOOP(
            "StempWin", "Lets the icons blink while a message waits to be read. It is not seen and changes no data.")));

    auto &grid = static_cast<GridControl &>(*ControlOf(*ui_->StempGrid));
    for (const int column : {inColumn, outColumn})
        grid.SetLeastWidth(column, DateWidth(ui_->StempGrid->fontMetrics()));

    pickList_ = std::make_unique<PickList>(*ui_->TextUtil, *ControlOf(*ui_->TextUtil), *ui_->XList, parts_.lists,
                                           parts_.clock.state);
    setMinimumWidth(qCeil(leastWidth / twipsPerPixel));

    SetUpSaving();
    Connect();
    ui_->mnuCreateJob->setEnabled(false);
}

void StempWin::SetUpGrid()
{
    gridModel_.SetFormatter(inColumn, DateCell);
    gridModel_.SetFormatter(outColumn, DateCell);
    ui_->StempGrid->setModel(&gridModel_);
    ui_->StempGrid->setItemDelegate(new ShownTextDelegate(ui_->StempGrid));
    ui_->StempGrid->setColumnWidth(jobColumn, jobWidth);
    ui_->StempGrid->setColumnWidth(inColumn, DateWidth(ui_->StempGrid->fontMetrics()));
    ui_->StempGrid->setColumnWidth(outColumn, DateWidth(ui_->StempGrid->fontMetrics()));
}

void StempWin::Connect()
{
    connect(pickList_.get(), &PickList::Picked, this, &StempWin::StempIn);
    connect(pickList_.get(), &PickList::TextUtilLeft, ui_->InOutButton, qOverload<>(&QWidget::setFocus));
    connect(pickList_.get(), &PickList::DeleteRequested, this, &StempWin::DeleteJob);
    connect(ui_->InOutButton, &QPushButton::clicked, this, &StempWin::InOutButton_Click);
    connect(
        ui_->mnuRecent, &QAction::triggered, this, [this] { pickList_->ChooseList(ListMode::Recent); });
    connect(
        ui_->mnuPersonal, &QAction::triggered, this, [this] { pickList_->ChooseList(ListMode::Personal); });
    connect(ui_->mnuFull, &QAction::triggered, this, [this] { pickList_->ChooseList(ListMode::Company); });
    // The menu bar would show the entry as pressed for as long as its window is up.
    for (const QAction *entry : {ui_->mnuSummary, ui_->mnuNotes, ui_->mnuCreateJob, ui_->mnuAdmin})
        connect(entry, &QAction::triggered, ui_->MenuBar, [this] { ui_->MenuBar->setActiveAction(nullptr); });
    connect(ui_->mnuSummary, &QAction::triggered, this, &StempWin::SummaryChosen);
    connect(ui_->mnuNotes, &QAction::triggered, this, &StempWin::mnuNotes_Click);
    connect(ui_->mnuCreateJob, &QAction::triggered, this, &StempWin::mnuCreateJob_Click);
    connect(ui_->mnuAdmin, &QAction::triggered, this, &StempWin::AdminChosen);
    connect(&parts_.jobDatabase, &JobDatabase::JobListFilled, this, &StempWin::JobListFilled);
}

StempWin::~StempWin() = default;

void StempWin::Form_Load()
{
    LoadTexts();
    unsavedHeight_ = ui_->UnsavedLabel->height();
    unsavedText_ = ui_->UnsavedLabel->text();
    pickList_->ShowCurrentJob(); // sets its text and tip again
    stempList_->RecordSource = RollBackQuery(DaysToShow(parts_.options.DaysInGrid));
    RefreshGrid();
    StempOutLook();
    Enterprise_Init();
    pickList_->SearchText.clear();
}

void StempWin::QueryUnload()
{
    if (outQuery_) // asks already
        return;
    emit Leaving();
    if (parts_.clock.state.IsStempedIn)
        ShowOutQuery(OutQueryAt::Closing, [this] { SaveAndUnload(); });
    else
        SaveAndUnload();
}

void StempWin::Form_Unload()
{
    emit Leaving();
    saveTimer_.stop();
    parts_.timeTable.Flush();
    emit UnloadOthers();
    parts_.jobDatabase.Set_OFF();
    ui_->UnsavedLabel->hide(); // as it is to be stored
    ui_->UnsavedLabel->setText(unsavedText_);
    PlaceUnsavedLabel();
    SaveTexts();
}

void StempWin::EndSession()
{
    if (outQuery_)
        outQuery_->Abandon();
    if (createJob_)
        createJob_->Unload();
    if (notes_)
        notes_->Unload();
    Unload();
}

void StempWin::StempInLook()
{
    parts_.clock.state.IsStempedIn = true;
    ui_->InOutButton->setText(Say("Stemp &OUT"));
    SetBackColor(green);
    setWindowIcon(iconIn_);
    setWindowTitle(ShownText(parts_.clock.state.CurrentJob));
}

void StempWin::StempOutLook()
{
    parts_.clock.state.IsStempedIn = false;
    ui_->InOutButton->setText(Say("Stemp &IN"));
    SetBackColor(red);
    setWindowIcon(iconOut_);
    setWindowTitle(Say("%1 Out").arg(parts_.identity.UserInitials));
}

void StempWin::ShowAlertIcon(bool on)
{
    if (on)
        setWindowIcon(iconAlert_);
    else
        setWindowIcon(parts_.clock.state.IsStempedIn ? iconIn_ : iconOut_);
}

void StempWin::ShowRunTimeTexts()
{
    parts_.clock.state.IsStempedIn ? StempInLook() : StempOutLook();
    ShowUnsaved();
}

void StempWin::StempIn(const QString &item)
{
    const bool wasIn = parts_.clock.state.IsStempedIn;
    if (parts_.clock.StempIn(item, pickList_->SearchText)) {
        pickList_->SearchText.clear();
        StempInLook();
        EnableOwnLists();
        AfterStemp();
        parts_.jobDatabase.Set_In(WorkToShow(parts_.clock.state, parts_.options));
        emit Stemped();
    } else {
        if (wasIn) {
            StempOutLook();
            AfterStemp();
            parts_.jobDatabase.Set_Out();
            emit Stemped();
        }
        pickList_->Refresh();
    }
}

void StempWin::StempOut()
{
    parts_.clock.StempOut();
    StempOutLook();
    AfterStemp();
    parts_.jobDatabase.Set_Out();
    emit Stemped();
}

void StempWin::StempOutAt(const QDateTime &time)
{
    parts_.clock.StempOutAt(time);
    StempOutLook();
    AfterStemp();
    parts_.jobDatabase.Set_Out();
    emit Stemped();
}

void StempWin::AfterStemp()
{
    pickList_->FollowCurrentJob();
    RefreshGrid();
    ShowNewestRow();
    ShowUnsaved();
}

void StempWin::InOutButton_Click()
{
    if (!IsLoaded()) // its access key presses it for a while, in which the session may end
        return;
    if (parts_.clock.state.IsStempedIn) {
        StempOut();
        pickList_->Refresh();
    } else if (!pickList_->IsListVisible()) {
        const QString text = ui_->TextUtil->text();
        StempIn(text == parts_.clock.state.CurrentJob ? text : BlanksForControls(text));
        if (parts_.clock.state.IsStempedIn)
            pickList_->ShowCurrentJob();
    } else {
        StempIn(pickList_->SelectedItem());
        pickList_->Refresh();
        if (parts_.clock.state.IsStempedIn)
            pickList_->HideXList();
    }
}

void StempWin::ShowOutQuery(OutQueryAt at, std::function<void()> then)
{
    outQuery_ = std::make_unique<IOQuery>(services_, prompts_, parts_.time, parts_.clock.state, at);
    outQuery_->setWindowIcon(windowIcon());
    connect(outQuery_.get(), &IOQuery::StempInLook, this, &StempWin::StempInLook);
    connect(outQuery_.get(), &IOQuery::StempOutAt, this, &StempWin::StempOutAt);
    connect(outQuery_.get(), &Form::Closed, this, [this, then = std::move(then)] {
        const bool stays = outQuery_->StaysOpen();
        outQuery_.reset();
        if (stays)
            emit Staying();
        else
            then();
    });
    outQuery_->OpenModal(this);
}

void StempWin::mnuNotes_Click()
{
    notes_ = std::make_unique<Notes>(services_, prompts_, parts_.localDB, parts_.time, parts_.clock.state.CurrentJobID);
    notes_->setWindowIcon(windowIcon());
    connect(notes_.get(), &Form::Closed, this, [this] { notes_.reset(); });
    notes_->OpenModal(this);
}

void StempWin::mnuCreateJob_Click()
{
    createJob_ = std::make_unique<CreateJob>(services_, prompts_, parts_.jobDatabase, parts_.lists);
    createJob_->setWindowIcon(windowIcon());
    connect(createJob_.get(), &Form::Closed, this, [this] { createJob_.reset(); });
    createJob_->OpenModal(this);
}

void StempWin::FillRecentList()
{
    parts_.clock.FillRecentList(parts_.timeTable.Rows(stempList_->RecordSource));
    pickList_->FollowCurrentJob(); // the walk through the rows may have left another one
    EnableOwnLists();
}

void StempWin::EnableOwnLists()
{
    ui_->mnuRecent->setEnabled(!parts_.lists.RecentList.IsEmpty());
    ui_->mnuPersonal->setEnabled(!parts_.lists.PersonalList.IsEmpty());
}

void StempWin::FillJobList()
{
    parts_.jobDatabase.FillJobList();
}

void StempWin::JobListFilled()
{
    if (parts_.lists.Mode == ListMode::Company)
        pickList_->Refresh();
}

void StempWin::DeleteJob(const QString &item)
{
    if (parts_.lists.Mode != ListMode::Company || !parts_.options.AdminMode)
        return;
    const auto tell = [this, item](bool written) {
        if (!written)
            prompts_.MsgBox(this, Say("The job\n%1\ncould not be deleted, because the job list is locked, "
                                      "write-protected or not there. Please try again.")
                                      .arg(ShownText(item)));
    };
    prompts_.AskYesNo(this, Say("Do you want to DELETE %1 ?").arg(ShownText(item)), [this, item, tell](bool yes) {
        if (yes)
            parts_.jobDatabase.DeleteJob(this, item, tell);
    });
}

void StempWin::ShowCurrentJob()
{
    pickList_->ShowCurrentJob();
}

void StempWin::ShowNewestRow()
{
    ui_->StempGrid->scrollToBottom();
}

void StempWin::RefreshGrid()
{
    std::vector<RowsModel::Row> cells;
    for (const TimeRow &row : parts_.timeTable.Rows(stempList_->RecordSource))
        cells.push_back({row.jobID, DateCellValue(row.stempInTime), DateCellValue(row.stempOutTime), row.jobName});
    gridModel_.SetRows(std::move(cells));
}

void StempWin::Enterprise_Init()
{
    const JobDatabase &jobs = parts_.jobDatabase;
    ShowNotice(QString(jobs.OwnFileTrouble).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    FillJobList();
    ShowRunTimeTexts();
    if (jobs.CompanyJobs) {
        ui_->mnuFull->setEnabled(true);
        if (parts_.options.AdminMode) // taken back only by a restart
            ui_->mnuCreateJob->setEnabled(true);
    } else {
        // Who has no company database keeps a company list of his own in the local copy.
        const QString &configured = parts_.options.EnterpriseMDBText;
        ui_->mnuFull->setEnabled(jobs.LocalJobs);
        ui_->mnuCreateJob->setEnabled(configured.isEmpty() || configured == QDir::toNativeSeparators(jobs.CompanyPath));
    }
    emit EnterpriseReady();
}

void StempWin::Form_Resize()
{
    // The frame, the title bar and the menu lie outside the surface, so they are not taken off here.
    const int top = ui_->StempGrid->y();
    const double height = (Surface()->height() - top) * twipsPerPixel - gridBottom;
    // The search box goes on ending where the grid does, unless it was moved or resized away from there.
    const bool aligned = ui_->TextUtil->geometry().right() == ui_->StempGrid->geometry().right();
    const QScrollBar *bar = ui_->StempGrid->verticalScrollBar();
    const bool newestShown = bar->value() == bar->maximum();
    ui_->StempGrid->resize(qRound(Surface()->width() - gridMargin / twipsPerPixel),
                           height > leastGridHeight ? qRound(height / twipsPerPixel) : ui_->StempGrid->height());
    if (aligned)
        ui_->TextUtil->resize(ui_->StempGrid->geometry().right() + 1 - ui_->TextUtil->x(), ui_->TextUtil->height());
    PlaceUnsavedLabel();
    if (newestShown)
        ShowNewestRow();
    if (pickList_->IsListVisible())
        pickList_->PlaceXList();
}

bool StempWin::Form_KeyDown(QKeyEvent &event)
{
    const QWidget *active = focusWidget();
    if (qobject_cast<const QMenuBar *>(active))
        return false;
    if (event.key() == Qt::Key_Escape) {
        pickList_->HideXList();
        return true;
    }
    if (active == ui_->StempGrid)
        return false;
    if (active == ui_->TextUtil)
        return pickList_->TextUtil_KeyDown(event);
    if (active == ui_->XList)
        return pickList_->XList_KeyDown(event);
    return true; // typing anywhere else goes nowhere
}

void StempWin::showEvent(QShowEvent *event)
{
    Form::showEvent(event);
    if (!event->spontaneous())
        ShowNewestRow();
}

bool StempWin::eventFilter(QObject *watched, QEvent *event)
{
    // The form sees the events of the whole program, also while it is being set up.
    if (pickList_ && watched == ui_->InOutButton && event->type() == QEvent::MouseButtonDblClick)
        return true; // a double click is one stemp: its second press would stemp out again
    if (!pickList_ || (watched != ui_->StempGrid && watched != ui_->StempGrid->viewport()))
        return Form::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::FocusIn)
        pickList_->HideXList();
    return Form::eventFilter(watched, event);
}
