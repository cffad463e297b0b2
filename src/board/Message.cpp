#include "board/Message.h"

#include "board/Board.h"
#include "board/BoxLimit.h"
#include "board/MessageCells.h"
#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/forms/ControlTypes.h"
#include "platform/forms/GridControl.h"
#include "platform/forms/Prompts.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"
#include "platform/system/TimeSource.h"
#include "ui_Message.h"

#include <QCompleter>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.board")

const QString all = u"All"_s;

constexpr int whenColumn = 0; // of the history
constexpr int directionColumn = 1;
constexpr int nameColumn = 2;
constexpr int directionWidth = 64;
constexpr int nameWidth = 140;
constexpr int cellMargin = 14; // beside the text of a cell

QString TimeText(const QVariant &time)
{
    const QDateTime when = time.toDateTime();
    return QLocale().toString(when.date(), QLocale::ShortFormat) + when.toString(u" hh:mm");
}

// Of the widest time in the locale's way of writing.
int TimeWidth(const QFontMetrics &metrics)
{
    int widest = 0;
    for (int month = 1; month <= 12; ++month)
        widest = std::max(widest, metrics.horizontalAdvance(TimeText(QDate(2028, month, 28).startOfDay(Qt::UTC))));
    return widest + cellMargin;
}

QString ReadyFor(const QString &receiver)
{
    return Say("Ready for %1. It goes out when you close this window.").arg(receiver);
}

RowsModel::Row RowOf(const HistoryRow &row)
{
    const QString person = row.reached > 0 ? u"%1 (%2)"_s.arg(row.person).arg(row.reached) : row.person;
    return {row.time, row.received ? Say("From") : Say("To"), person, row.message};
}

} // namespace

Message::Message(FormServices &services, Prompts &prompts, dao::Database &localDB, const Board &board,
                 const TimeSource &time)
    : Form(QStringLiteral("Message"), services),
      ui_(std::make_unique<Ui::Message>()),
      prompts_(prompts),
      localDB_(localDB),
      mail_(localDB),
      board_(board),
      time_(time),
      buffer_(mail_, {QLatin1String(QT_TRANSLATE_NOOP("Message", "To")),
                      QLatin1String(QT_TRANSLATE_NOOP("Message", "Message"))}),
      history_(
          {QLatin1String(QT_TRANSLATE_NOOP("Message", "When")), QLatin1String(QT_TRANSLATE_NOOP("Message", "From/To")),
           QLatin1String(QT_TRANSLATE_NOOP("Message", "Name")), QLatin1String(QT_TRANSLATE_NOOP("Message", "Message"))})
{
    ui_->setupUi(this);
    SetUpGrids();
    SetUpAnchors();
    ui_->MessageTo->completer()->setCompletionMode(QCompleter::PopupCompletion); // in place, "Al" would become "All"
    ShowItemsSafely(*ui_->MessageTo);
    RegisterControls();
    static_cast<GridControl &>(*ControlOf(*ui_->HistoryGrid))
        .SetLeastWidth(whenColumn, TimeWidth(ui_->HistoryGrid->fontMetrics()));
    auto messageData = std::make_unique<DataControl>(QStringLiteral("MessageData"));
    messageData_ = messageData.get();
    messageData_->RecordSource = QStringLiteral("MessageBuffer");
    RegisterControl(std::move(messageData),
                    QLatin1String(QT_TRANSLATE_NOOP(
                        "Message", "Fetches the messages that wait to be sent from your own database for the grid, and "
                                   "stores there what you type in it. It is not seen. Messages that were sent or "
                                   "received are never changed by it.")));
    SetDefaultButton(ui_->OKButton);
    SetCancelButton(ui_->CancelButton);

    KeepWholeCharacters(*ui_->MessageText);
    connect(ui_->SendButton, &QPushButton::clicked, this, &Message::SendButton_Click);
    connect(ui_->OKButton, &QPushButton::clicked, this, &Message::OKButton_Click);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &Message::CancelButton_Click);
    connect(ui_->MessageText, &QLineEdit::textChanged, this, &Message::MessageText_Change);
    connect(
        ui_->MessageText, &QLineEdit::inputRejected, this,
        [this] { ShowResult(Say("The text is too long. What did not fit was left out; please check its end.")); });
    connect(ui_->MessageTo, &QComboBox::editTextChanged, this, [this] { ShowResult({}); });
    connect(&buffer_, &BufferModel::Stored, this, &Message::ShowStored);
    connect(&buffer_, &BufferModel::NotStored, this, [this](const QModelIndex &cell, const QString &text) {
        unstored_ = {cell, text};
        QMetaObject::invokeMethod(this, &Message::ShowUnstored, Qt::QueuedConnection); // its editor is still to close
    });
}

Message::~Message() = default;

void Message::SetUpGrids()
{
    auto *delegate = new BufferCells(ui_->MessageGrid);
    connect(delegate, &QAbstractItemDelegate::closeEditor, this, &Message::Refresh, Qt::QueuedConnection);
    ui_->MessageGrid->setModel(&buffer_);
    ui_->MessageGrid->setItemDelegate(delegate);
    ui_->MessageGrid->setColumnWidth(BufferModel::toColumn, nameWidth);
    history_.SetFormatter(whenColumn, TimeText);
    ui_->HistoryGrid->setModel(&history_);
    ui_->HistoryGrid->setColumnWidth(whenColumn, TimeWidth(ui_->HistoryGrid->fontMetrics()));
    ui_->HistoryGrid->setColumnWidth(directionColumn, directionWidth);
    ui_->HistoryGrid->setColumnWidth(nameColumn, nameWidth);
    ui_->HistoryGrid->setItemDelegate(new MessageCells(nameColumn, ui_->HistoryGrid));
    for (QTableView *grid : {ui_->MessageGrid, ui_->HistoryGrid})
        grid->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void Message::SetUpAnchors()
{
    Anchor({ui_->MessageText, ui_->RoomLabel, ui_->StatusLabel, ui_->OutboxLabel}, {.width = 1});
    Anchor({ui_->SendButton, ui_->OKButton, ui_->CancelButton}, {.x = 1});
    Anchor({ui_->MessageGrid}, {.width = 1, .height = 1.0 / 3});
    Anchor({ui_->HistoryLabel}, {.y = 1.0 / 3, .width = 1});
    Anchor({ui_->HistoryGrid}, {.y = 1.0 / 3, .width = 1, .height = 2.0 / 3});
}

void Message::Form_Load()
{
    LoadTexts();
    ClearBoxes();
    messageData_->DatabaseName = localDB_.Path();
    Refresh();
}

void Message::Form_Unload()
{
    EndEditing();
    if (IsUnsent()) { // the program ends
        try {
            mail_.AddBufferRow({}, Typed().text);
        } catch (const dao::Error &error) {
            qCWarning(log).noquote() << error.Text();
        }
    }
    messageData_->DatabaseName.clear();
    unstored_.reset();
    ClearBoxes();
    SaveTexts();
}

// Messages and whom they go to are not kept with the texts of the window.
void Message::ClearBoxes()
{
    ui_->MessageTo->clearEditText();
    ui_->MessageText->clear();
    ui_->RoomLabel->clear();
    ui_->StatusLabel->clear();
}

void Message::Begin(const QString &recipient)
{
    const qsizetype prefix = ComposedMessage({}, time_.Now()).size();
    ui_->MessageText->setMaxLength(static_cast<int>(Poll::longestMessage - prefix));
    ui_->MessageTo->setEditText(recipient);
    ui_->MessageText->clear();
    MessageText_Change();
    lastSent_ = {};
}

void Message::showEvent(QShowEvent *event)
{
    Form::showEvent(event);
    if (!event->spontaneous())
        Form_Activate();
}

void Message::Form_Activate()
{
    ui_->MessageText->setFocus();
    ui_->MessageGrid->scrollToBottom();
    ui_->HistoryGrid->scrollToTop();
}

bool Message::Form_KeyDown(QKeyEvent &event)
{
    if (event.key() != Qt::Key_Delete || focusWidget() != ui_->MessageGrid)
        return false;
    DeleteRow();
    return true;
}

void Message::QueryUnload()
{
    if (!EndEditing())
        return;
    if (!IsUnsent())
        return Unload();
    prompts_.AskChoice(this, Say("The message is not sent yet."), {{Say("&Back to the message"), Say("&Discard it")}},
                       [this](int answer) { answer == 0 ? ui_->MessageText->setFocus() : CancelButton_Click(); });
}

void Message::SendButton_Click()
{
    if (!EndEditing())
        return;
    if (Typed().text.isEmpty()) {
        ShowResult(Say("Type a message first."));
        ui_->MessageText->setFocus();
    } else if (SendMessage()) {
        ui_->MessageText->setFocus();
        ui_->MessageText->selectAll(); // what is typed next takes its place
    }
}

void Message::OKButton_Click()
{
    if (!EndEditing() || (IsUnsent() && !SendMessage()))
        return;
    ui_->MessageText->clear();
    Unload();
}

void Message::CancelButton_Click()
{
    ui_->MessageText->clear();
    Unload();
}

void Message::MessageText_Change()
{
    const QLineEdit &box = *ui_->MessageText;
    ui_->RoomLabel->setText(Say("Characters left: %1").arg(box.maxLength() - box.text().size()));
}

bool Message::SendMessage()
{
    const Letter letter = Typed();
    const QStringList recipients = board_.RecipientsOf(letter.recipient);
    if (recipients.isEmpty()) {
        ShowResult(Refusal(letter.recipient));
        ui_->MessageTo->setFocus();
        return false;
    }
    try {
        mail_.Queue(recipients, ComposedMessage(letter.text, time_.Now()));
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        ShowResult(Say("The message was not sent, because your database could not be written. Please try again."));
        return false;
    }
    lastSent_ = letter;
    Refresh();
    ui_->MessageGrid->scrollToBottom();
    ShowResult(ReadyFor(recipients.size() == 1 ? recipients.first() : Say("%1 colleagues").arg(recipients.size())));
    return true;
}

// The text is taken as it is shown: line breaks that were pasted are blanks.
Message::Letter Message::Typed() const
{
    const QString to = ui_->MessageTo->currentText().trimmed().toUpper();
    return {to == u"USER" ? all.toUpper() : to, ui_->MessageText->displayText().trimmed()};
}

bool Message::IsUnsent() const
{
    const Letter letter = Typed();
    return !letter.text.isEmpty() && letter != lastSent_;
}

QString Message::Refusal(const QString &recipient) const
{
    if (recipient.isEmpty())
        return Say("Choose first whom the message is for.");
    if (recipient == all.toUpper())
        return Say("There is nobody else on the board yet.");
    if (board_.IsOwn(recipient))
        return Say("A message to yourself can't be sent. Choose a colleague, or All.");
    return Say("%1 is not on the board. Choose a name from the list.").arg(recipient);
}

void Message::FillMessageTo()
{
    QStringList names{all};
    for (const Board::Row &row : board_.Rows())
        if (row.isUser)
            names.append(row.name);
    QStringList listed;
    for (int i = 0; i < ui_->MessageTo->count(); ++i)
        listed.append(ui_->MessageTo->itemText(i));
    if (names == listed)
        return;
    const QString typed = ui_->MessageTo->currentText();
    ui_->MessageTo->clear();
    ui_->MessageTo->addItems(names);
    ui_->MessageTo->setEditText(typed);
}

void Message::Refresh()
{
    if (!IsLoaded())
        return;
    FillMessageTo();
    if (CellEditor())
        return; // comes back when that ends
    QTableView &grid = *ui_->MessageGrid;
    const QModelIndex current = grid.currentIndex();
    const qint64 id = buffer_.IdOf(current.row());
    try {
        buffer_.Read();
        std::vector<RowsModel::Row> rows;
        for (const HistoryRow &row : mail_.History())
            rows.push_back(RowOf(row));
        history_.SetRows(std::move(rows));
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        ShowResult(Say("Your messages could not be read."));
    }
    if (current.isValid() != grid.currentIndex().isValid()) // the views were reset
        grid.setCurrentIndex(buffer_.index(buffer_.RowOf(id), current.column()));
}

QWidget *Message::CellEditor() const
{
    return ui_->MessageGrid->indexWidget(ui_->MessageGrid->currentIndex());
}

bool Message::EndEditing()
{
    if (QWidget *editor = CellEditor()) {
        emit ui_->MessageGrid->itemDelegate()->commitData(editor);
        emit ui_->MessageGrid->itemDelegate()->closeEditor(editor);
    }
    return !unstored_;
}

void Message::DeleteRow()
{
    try {
        buffer_.Delete(ui_->MessageGrid->currentIndex().row());
        ShowResult({});
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        ShowResult(Say("The message was not deleted, because your database could not be written. Please try again."));
    }
}

void Message::ShowStored(const BufferRow &row)
{
    const bool isReady = !row.to.isEmpty() && !row.message.isEmpty();
    if (!isReady)
        ShowResult({});
    else if (!board_.UserNames.contains(row.to))
        ShowResult(Say("%1 is not on the board. The message waits until that name is there.").arg(row.to));
    else
        ShowResult(ReadyFor(row.to));
}

void Message::ShowUnstored()
{
    const std::optional<UnstoredCell> unstored = std::exchange(unstored_, std::nullopt);
    if (!IsLoaded() || !unstored || !unstored->cell.isValid())
        return;
    ShowResult(Say("The row was not stored, because your database could not be written. Please try again."));
    QTableView &grid = *ui_->MessageGrid;
    grid.setFocus();
    grid.setCurrentIndex(unstored->cell);
    grid.edit(unstored->cell);
    if (auto *editor = qobject_cast<QLineEdit *>(grid.indexWidget(unstored->cell)))
        editor->setText(unstored->text);
}

void Message::ShowResult(const QString &text)
{
    ui_->StatusLabel->setText(ShownText(text)); // it may name a person
}
