#include "board/MessageBoard.h"

#include "board/BoardCells.h"
#include "ui_MessageBoard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

MessageBoard::MessageBoard(FormServices &services)
    : Form(u"MessageBoard"_s, services),
      ui_(std::make_unique<Ui::MessageBoard>()),
      model_({QLatin1String(QT_TRANSLATE_NOOP("MessageBoard", "User")),
              QLatin1String(QT_TRANSLATE_NOOP("MessageBoard", "Status and Messages"))}),
      iconYell_(u":/icons/IconYell.svg"_s),
      iconYellNot_(u":/icons/IconYellNot.svg"_s)
{
    ui_->setupUi(this);
    SetUpGrid();
    // The clock opens in the middle of the screen. What is designed leaves room for the frame.
    const QRect room = screen()->availableGeometry();
    const QPoint corner = room.bottomRight() - QPoint(width() + 40, height() + 60);
    move(std::max(corner.x(), room.left()), std::max(corner.y(), room.top()));
    RegisterControls();
    setAttribute(Qt::WA_AlwaysShowToolTips); // it is glanced at while another window has the keyboard focus
}

MessageBoard::~MessageBoard() = default;

void MessageBoard::SetUpGrid()
{
    QTableView &grid = *ui_->UserGrid;
    grid.setModel(&model_);
    grid.setItemDelegate(new BoardCells(&grid));
    grid.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grid.horizontalHeader()->setSectionsClickable(true);
    grid.horizontalHeader()->setHighlightSections(false);
    connect(
        &grid, &QTableView::clicked, this,
        [this](const QModelIndex &cell) { emit UserGridClicked(cell.row(), cell.column()); });
    connect(grid.horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { emit UserGridClicked(-1, column); });
}

void MessageBoard::Form_Load()
{
    LoadTexts();
    ShowAlertIcon(false);
    ui_->UserGrid->setFocus();
}

void MessageBoard::Form_Unload()
{
    Arrange(NormalSize());
    SaveTexts();
}

void MessageBoard::Form_Resize()
{
    Arrange(Surface()->size());
}

// A form tells of its normal state only, but the grid is to fill the window in any.
void MessageBoard::resizeEvent(QResizeEvent *event)
{
    Form::resizeEvent(event);
    if (IsLoaded())
        Form_Resize();
}

// What the grid does not take there goes on to the surface.
bool MessageBoard::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if ((isPress || event->type() == QEvent::MouseMove) && watched == ui_->UserGrid->viewport()) {
        const QPoint at = static_cast<QMouseEvent *>(event)->position().toPoint();
        if (isPress)
            isPressedBelowRows_ = !ui_->UserGrid->indexAt(at).isValid();
        if (isPressedBelowRows_) {
            event->ignore();
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void MessageBoard::Arrange(QSize surface)
{
    ui_->UserGrid->setGeometry(QRect(QPoint(), surface));
}

void MessageBoard::ShowRows(const std::vector<Board::Row> &rows, const QDateTime &now)
{
    QTableView &grid = *ui_->UserGrid;
    const int row = grid.currentIndex().row();
    const int column = grid.currentIndex().column();
    const QString name = grid.currentIndex().siblingAtColumn(BoardModel::nameColumn).data().toString();
    const int scrolled = grid.verticalScrollBar()->value();
    model_.SetRows(rows, now);
    if (grid.currentIndex().isValid() || rows.empty())
        return;
    // It was reset. Instead of a user who has gone, the one who has come to that place is taken.
    const int found = model_.RowOf(name);
    const int current = found >= 0 ? found : std::clamp(row, 0, model_.rowCount() - 1);
    grid.setCurrentIndex(model_.index(current, std::max(column, BoardModel::nameColumn)));
    grid.verticalScrollBar()->setValue(scrolled);
}

void MessageBoard::ScrollTo(int row)
{
    ui_->UserGrid->scrollTo(model_.index(row, BoardModel::nameColumn));
}

void MessageBoard::ShowAlertIcon(bool yellow)
{
    setWindowIcon(yellow ? iconYell_ : iconYellNot_);
}

void MessageBoard::PopUp(bool restore)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    if (restore && isMinimized()) { // restored by the desktop, it would get the keyboard focus
        hide();
        destroy(); // a native window that is hidden would take the focus as soon as its state changes
        setWindowState(windowState() & ~Qt::WindowMinimized);
    }
    if (!isVisible())
        show();
    if (QWidget *question = QApplication::activeModalWidget())
        question->raise(); // a new window comes up above it on some systems
    else if (restore)
        raise();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

bool MessageBoard::Form_KeyDown(QKeyEvent &event)
{
    const QModelIndex cell = ui_->UserGrid->currentIndex();
    if (focusWidget() != ui_->UserGrid || !cell.isValid() || (event.modifiers() & ~Qt::KeypadModifier))
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event.isAutoRepeat())
            emit UserGridClicked(cell.row(), cell.column());
        return true;
    case Qt::Key_Delete: {
        const Board::Row &row = model_.Rows()[static_cast<std::size_t>(cell.row())];
        if (cell.column() == BoardModel::nameColumn && row.isUser)
            emit DeletePressed(row.name);
        return true;
    }
    default:
        return false;
    }
}

void MessageBoard::QueryUnload()
{
    showMinimized();
}
