#include "clock/Notes.h"

#include "clock/NoteText.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/forms/ControlTypes.h"
#include "platform/forms/Prompts.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"
#include "platform/system/TimeSource.h"
#include "ui_Notes.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QStyledItemDelegate>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.clock")

constexpr int jobColumn = 0; // of the grid
constexpr int jobWidth = 110;
constexpr qsizetype questionRoom = 300; // characters of a note
constexpr qsizetype cellRoom = 2000;    // characters; more than a row shows, and little enough to be laid out at once

// Shows the beginning of a note, from the top of its cell.
class NoteDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override
    {
        QString beginning = value.toString();
        if (beginning.size() > cellRoom)
            beginning = beginning.left(cellRoom) + u'…';
        return QStyledItemDelegate::displayText(ShownLines(beginning.replace("\r\n"_L1, "\n"_L1)), locale);
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = Qt::AlignTop | Qt::AlignLeft;
    }
};

RowsModel::Row RowOf(const Note &note)
{
    return {note.jobID, note.text};
}

} // namespace

Notes::Notes(FormServices &services, Prompts &prompts, dao::Database &localDB, const TimeSource &time,
             QString currentJobID)
    : Form(QStringLiteral("Notes"), services),
      ui_(std::make_unique<Ui::Notes>()),
      prompts_(prompts),
      localDB_(localDB),
      time_(time),
      currentJobID_(std::move(currentJobID)),
      notes_({QLatin1String(QT_TRANSLATE_NOOP("Notes", "JobID")), QLatin1String(QT_TRANSLATE_NOOP("Notes", "Note"))})
{
    ui_->setupUi(this);
    SetUpGrid();
    SetUpAnchors();
    RegisterControls();
    auto notesData = std::make_unique<DataControl>(QStringLiteral("NotesData"));
    notesData->DatabaseName = localDB_.Path();
    notesData->RecordSource = QStringLiteral("NotesList");
    RegisterControl(
        std::move(notesData),
        QLatin1String(QT_TRANSLATE_NOOP(
            "Notes", "Fetches the notes of all jobs from your own database for the grid, puts new ones there "
                     "and takes deleted ones out. It is not seen. It never changes a note that is stored.")));
    SetCancelButton(ui_->OKButton);
    ui_->WholeNote->viewport()->setBackgroundRole(QPalette::Window); // to look like what can't be typed in

    connect(ui_->SaveButton, &QPushButton::clicked, this, &Notes::SaveButton_Click);
    connect(ui_->OKButton, &QPushButton::clicked, this, &QWidget::close);
    connect(ui_->FindText, &QLineEdit::textChanged, this, &Notes::FindText_Change);
    connect(ui_->JobText, &QLineEdit::returnPressed, this, &Notes::ShowJob);
    connect(ui_->NotesGrid->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &Notes::ShowWholeNote);
}

Notes::~Notes() = default;

void Notes::SetUpGrid()
{
    found_.setSourceModel(&notes_);
    found_.setFilterRole(Qt::EditRole);
    found_.setFilterKeyColumn(-1);
    found_.setFilterCaseSensitivity(Qt::CaseInsensitive);
    ui_->NotesGrid->setModel(&found_);
    ui_->NotesGrid->setItemDelegate(new NoteDelegate(ui_->NotesGrid));
    ui_->NotesGrid->setColumnWidth(jobColumn, jobWidth);
    ui_->NotesGrid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void Notes::SetUpAnchors()
{
    Anchor({ui_->FindText}, {.width = 1});
    Anchor({ui_->NotesGrid}, {.width = 1, .height = 2.0 / 3});
    Anchor({ui_->WholeNote}, {.y = 2.0 / 3, .width = 1, .height = 1.0 / 3});
    Anchor({ui_->JobLabel, ui_->JobText, ui_->NoteLabel}, {.y = 1});
    Anchor({ui_->NoteText, ui_->StatusLabel}, {.y = 1, .width = 1});
    Anchor({ui_->SaveButton, ui_->OKButton}, {.x = 1, .y = 1});
}

void Notes::Form_Load()
{
    LoadTexts();
    ClearBoxes();
    ui_->NoteText->setFocus();
}

void Notes::Form_Unload()
{
    Save(); // what is left at the end of the session
    ClearBoxes();
    SaveTexts();
}

// Notes are kept in their own table alone, not with the texts of the window.
void Notes::ClearBoxes()
{
    ui_->FindText->clear();
    ui_->WholeNote->clear();
    ui_->JobText->clear();
    ui_->NoteText->clear();
    ui_->StatusLabel->clear();
}

void Notes::showEvent(QShowEvent *event)
{
    Form::showEvent(event);
    if (!event->spontaneous())
        Activate();
}

void Notes::Activate()
{
    ui_->NotesGrid->verticalHeader()->setDefaultSectionSize(ui_->NoteText->height());
    ui_->JobText->setText(currentJobID_);
    const bool isRead = ReadAll();
    ShowJob();
    if (!isRead)
        ui_->StatusLabel->setText(Say("Your notes could not be read."));
}

void Notes::QueryUnload()
{
    if (NewNote().isEmpty())
        return Unload();
    enum Answer { save, discard, goBack };
    prompts_.AskChoice(this, Say("The new note is not saved yet."),
                       {{Say("&Save it"), Say("&Discard it"), Say("&Back to the note")}, save, goBack},
                       [this](int answer) {
                           if (answer == save)
                               SaveButton_Click();
                           else if (answer == discard)
                               ui_->NoteText->clear();
                           if (NewNote().isEmpty())
                               Unload();
                           else
                               ui_->NoteText->setFocus();
                       });
}

void Notes::AskToDelete()
{
    const QModelIndex chosen = found_.mapToSource(ui_->NotesGrid->currentIndex());
    if (!chosen.isValid())
        return;
    QString beginning = chosen.siblingAtColumn(jobColumn + 1).data(Qt::EditRole).toString();
    if (beginning.size() > questionRoom)
        beginning = beginning.left(questionRoom) + u'…';
    prompts_.AskYesNo(this, Say("Do you want to DELETE this note ?\n\n%1").arg(ShownLines(beginning)),
                      [this, id = ids_.at(static_cast<std::size_t>(chosen.row()))](bool yes) {
                          if (yes)
                              Delete(id);
                      });
}

void Notes::Delete(qint64 id)
{
    try {
        DeleteNote(localDB_, id);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        ui_->StatusLabel->setText(
            Say("The note was not deleted, because your database could not be written. Please try again."));
        return;
    }
    const int row = ui_->NotesGrid->currentIndex().row();
    ReadAll();
    GoTo(found_.index(std::min(row, found_.rowCount() - 1), 0));
    ShowWholeNote(); // also when none is left
    ui_->StatusLabel->clear();
}

bool Notes::Form_KeyDown(QKeyEvent &event)
{
    const QWidget *focus = focusWidget();
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (focus == ui_->NoteText && isEnter && event.modifiers().testFlag(Qt::ControlModifier)) {
        SaveButton_Click();
        return true;
    }
    if (focus == ui_->NotesGrid && event.key() == Qt::Key_Delete && event.modifiers() == Qt::NoModifier) {
        AskToDelete();
        return true;
    }
    if (focus == ui_->FindText && event.key() == Qt::Key_Escape && !ui_->FindText->text().isEmpty()) {
        ui_->FindText->clear();
        return true;
    }
    return false;
}

bool Notes::ReadAll()
{
    try {
        std::vector<RowsModel::Row> rows;
        std::vector<qint64> ids;
        for (const Note &note : ReadNotes(localDB_)) {
            rows.push_back(RowOf(note));
            ids.push_back(note.id);
        }
        ids_ = std::move(ids);
        notes_.SetRows(std::move(rows));
        return true;
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        return false;
    }
}

QString Notes::NewNote() const
{
    return ui_->NoteText->toPlainText().trimmed();
}

void Notes::SaveButton_Click()
{
    const bool isNew = !NewNote().isEmpty();
    if (!Save())
        ui_->StatusLabel->setText(
            Say("The note was not stored, because your database could not be written. Please try again."));
    else if (isNew)
        GoTo(found_.index(found_.rowCount() - 1, 0));
    ui_->NoteText->setFocus();
}

bool Notes::Save()
{
    const QString text = NewNote();
    if (text.isEmpty())
        return true;
    const Note note{ui_->JobText->text().trimmed(), DatedNote(text, time_.Now().date())};
    try {
        AddNote(localDB_, note);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        return false;
    }
    ui_->NoteText->clear();
    ui_->FindText->clear();
    ui_->StatusLabel->clear();
    ReadAll();
    return true;
}

void Notes::ShowJob()
{
    ui_->FindText->clear();
    const QString job = ui_->JobText->text().trimmed();
    const QModelIndex ofJob = FirstNoteOfJob(job);
    GoTo(ofJob.isValid() ? ofJob : found_.index(found_.rowCount() - 1, 0));
    ui_->StatusLabel->setText(!ofJob.isValid() && !job.isEmpty() ? Say("There is no note on this job yet.")
                                                                 : QString());
}

// The database says which job is the same, as it does for the sums.
QModelIndex Notes::FirstNoteOfJob(const QString &job) const
{
    try {
        const auto first = FirstNoteOn(localDB_, job);
        const auto row = first ? std::find(ids_.begin(), ids_.end(), *first) : ids_.end();
        if (row != ids_.end())
            return found_.mapFromSource(notes_.index(static_cast<int>(row - ids_.begin()), 0));
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
    }
    return {};
}

void Notes::FindText_Change()
{
    found_.setFilterFixedString(ui_->FindText->text());
    ui_->NotesGrid->doItemsLayout(); // else it can't be scrolled yet to a row that has come back
    if (const QModelIndex current = ui_->NotesGrid->currentIndex(); current.isValid())
        ui_->NotesGrid->scrollTo(current);
    else
        GoTo(found_.index(0, 0));
    ShowWholeNote();
    const bool nothing = found_.rowCount() == 0 && !ui_->FindText->text().isEmpty();
    ui_->StatusLabel->setText(nothing ? Say("No note contains this text.") : QString());
}

void Notes::GoTo(const QModelIndex &note)
{
    ui_->NotesGrid->setCurrentIndex(note);
    ui_->NotesGrid->scrollTo(note, QAbstractItemView::PositionAtTop);
}

void Notes::ShowWholeNote()
{
    const QModelIndex current = ui_->NotesGrid->currentIndex();
    ui_->WholeNote->setPlainText(current.siblingAtColumn(jobColumn + 1).data(Qt::EditRole).toString());
    ui_->WholeNote->find(ui_->FindText->text());
}

void Notes::resizeEvent(QResizeEvent *event)
{
    QTableView *grid = ui_->NotesGrid;
    const bool currentInView = grid->viewport()->rect().intersects(grid->visualRect(grid->currentIndex()));
    Form::resizeEvent(event);
    if (currentInView)
        grid->scrollTo(grid->currentIndex());
}
