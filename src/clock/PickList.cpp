#include "clock/PickList.h"

#include "clock/Clock.h"
#include "platform/forms/Control.h"
#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>

#include <algorithm>

namespace {

bool IsEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

PickList::PickList(QLineEdit &textUtil, Control &textUtilControl, QListView &xList, JobLists &lists,
                   const ClockState &clock)
    : textUtil_(textUtil), textUtilControl_(textUtilControl), xList_(xList), lists_(lists), clock_(clock)
{
    xList_.setModel(&model_);
    xList_.setItemDelegate(new ShownTextDelegate(&xList_));
    xList_.setUniformItemSizes(true);
    xList_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    xList_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // long texts are elided
    xList_.setVisible(false);
    xList_.installEventFilter(this);
    textUtil_.installEventFilter(this);
    // textEdited, not textChanged: a text that the program sets starts no search.
    connect(&textUtil_, &QLineEdit::textEdited, this, &PickList::TextUtil_Change);
    // The entry under the pointer, which need not be the selected one.
    connect(&xList_, &QListView::clicked, this,
            [this](const QModelIndex &entry) { XList_Click(model_.Item(entry.row())); });
}

void PickList::FillXListBox(const JobList &list)
{
    model_.Fill(list, SearchText);
    xList_.scrollToTop(); // a view keeps its scroll place when its model is filled
    filledMode_ = lists_.Mode;
    filledSearch_ = SearchText;
}

void PickList::FillAnew()
{
    if (lists_.Mode != ListMode::None)
        FillXListBox(lists_.Current());
}

void PickList::Refresh()
{
    if (IsListVisible() && filledMode_ == lists_.Mode && filledSearch_ == SearchText)
        KeepPlaceAndRenew();
    else
        FillAnew();
}

void PickList::KeepPlaceAndRenew()
{
    QList<QPersistentModelIndex> inView; // from the top: the first may go
    for (QModelIndex entry = xList_.indexAt({0, 0});
         entry.isValid() && xList_.visualRect(entry).top() < xList_.viewport()->height();
         entry = entry.siblingAtRow(entry.row() + 1))
        inView.append(entry);
    model_.Renew(lists_.Current(), SearchText);
    const auto top = std::find_if(inView.cbegin(), inView.cend(), [](const auto &entry) { return entry.isValid(); });
    if (top != inView.cend())
        xList_.scrollTo(*top, QAbstractItemView::PositionAtTop);
}

void PickList::ShowXList()
{
    PlaceXList();
    xList_.setVisible(true);
    xList_.raise();
    const int row = model_.RowOf(clock_.CurrentJob);
    if (row < 0)
        return;
    xList_.setCurrentIndex(model_.index(row));
    xList_.scrollTo(model_.index(row), QAbstractItemView::PositionAtTop);
}

void PickList::HideXList()
{
    if (!IsListVisible())
        return;
    ShowCurrentJob();
    if (xList_.hasFocus())
        textUtil_.setFocus(); // else Qt hands the focus to whatever comes next
    xList_.setVisible(false);
}

bool PickList::IsListVisible() const
{
    return !xList_.isHidden();
}

void PickList::PlaceXList()
{
    const int top = textUtil_.geometry().bottom() + 1;
    xList_.setGeometry(textUtil_.x(), top, textUtil_.width(), xList_.parentWidget()->height() - top);
}

void PickList::ShowCurrentJob()
{
    shownJob_ = clock_.CurrentJob;
    textUtil_.setText(shownJob_);
    textUtil_.setCursorPosition(0); // a long text shows its beginning
    textUtilControl_.SetToolTip({});
}

void PickList::FollowCurrentJob()
{
    if (!IsListVisible() && textUtil_.text() == shownJob_)
        ShowCurrentJob();
}

// The selection, not the current index: that stays unseen where a click beside the entries has taken the highlight away.
QString PickList::SelectedItem() const
{
    const QModelIndexList selected = xList_.selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : model_.Item(selected.constFirst().row());
}

void PickList::SelectEntryInView()
{
    if (SelectedItem().isEmpty())
        xList_.setCurrentIndex(xList_.indexAt({0, 0}));
    else
        xList_.scrollTo(xList_.currentIndex());
}

void PickList::ChooseList(ListMode mode)
{
    const JobList &list = lists_.Of(mode);
    if (list.IsEmpty())
        return;
    if (lists_.Mode == mode && IsListVisible()) {
        HideXList();
        return;
    }
    if (lists_.Mode != mode) {
        lists_.Mode = mode;
        FillXListBox(list);
    }
    TextUtil_Click();
}

bool PickList::TextUtil_KeyDown(const QKeyEvent &event)
{
    const bool types = !event.text().isEmpty() && event.text().front().isPrint();
    if (types && textUtil_.text() == clock_.CurrentJob)
        textUtil_.selectAll(); // typing over the current job begins a new search
    const bool down = event.key() == Qt::Key_Down;
    if (!IsListVisible()) {
        if (!down && event.key() != Qt::Key_F4)
            return false;
        TextUtil_Click();
        return true;
    }
    if (!down && event.key() != Qt::Key_Up && !IsEnter(event.key()))
        return false;
    SelectEntryInView();
    xList_.setFocus();
    return true;
}

bool PickList::XList_KeyDown(const QKeyEvent &event)
{
    if (IsEnter(event.key())) {
        if (!SelectedItem().isEmpty()) // an empty item would stemp the person out
            XList_Click(SelectedItem());
        return true;
    }
    const bool isArrow = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
    if (isArrow && SelectedItem().isEmpty()) { // else the list would move on from an entry that is not highlighted
        SelectEntryInView();
        return true;
    }
    if (event.key() == Qt::Key_Delete) {
        if (!SelectedItem().isEmpty())
            emit DeleteRequested(SelectedItem());
        return true;
    }
    return false;
}

bool PickList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &xList_ && event->type() == QEvent::FocusIn) {
        // The focus that a press of the mouse brings comes before the press: nothing may move under the pointer.
        const Qt::FocusReason reason = static_cast<const QFocusEvent *>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
            SelectEntryInView();
    }
    const bool isMouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease
                         || event->type() == QEvent::MouseButtonDblClick;
    if (watched == &textUtil_ && isMouse)
        TextUtil_Mouse(static_cast<const QMouseEvent &>(*event));
    return QObject::eventFilter(watched, event);
}

void PickList::TextUtil_Mouse(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton)
        return;
    // A click is a press and its release without text being selected; the release that ends a double click is none.
    if (event.type() == QEvent::MouseButtonPress) {
        pressed_ = true;
    } else if (event.type() == QEvent::MouseButtonDblClick) {
        pressed_ = false;
        TextUtil_DblClick();
    } else if (pressed_) {
        pressed_ = false;
        if (!textUtil_.hasSelectedText())
            TextUtil_Click();
    }
}

void PickList::TextUtil_Change(const QString &text)
{
    if (text == SearchText || (text == clock_.CurrentJob && !text.isEmpty()))
        return;
    // Of a whole item, typed or pasted, only the id is searched.
    const qsizetype separator = text.indexOf(QLatin1String(" :"));
    SearchText = separator >= 0 ? text.left(separator) : text;
    Refresh();
}

void PickList::TextUtil_Click()
{
    if (textUtil_.text() == clock_.CurrentJob) {
        SearchText.clear();
        textUtil_.clear();
        FillAnew();
        textUtilControl_.SetToolTip(Say("Enter search characters here"));
    }
    ShowXList();
    textUtil_.setFocus();
}

void PickList::TextUtil_DblClick()
{
    const QString text = textUtil_.text();
    if (text != SearchText && !text.isEmpty() && !IsListVisible())
        return;
    ShowCurrentJob();
    xList_.setVisible(false);
    emit TextUtilLeft();
}

void PickList::XList_Click(const QString &item)
{
    emit Picked(item);
    ShowCurrentJob();
    if (xList_.hasFocus())
        textUtil_.setFocus();
    xList_.setVisible(false);
}
