#include "clock/PickList.h"

#include "clock/Clock.h"
#include "platform/forms/Control.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>

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
    xList_.setUniformItemSizes(true);
    xList_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    xList_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // long texts are elided
    xList_.setVisible(false);
    xList_.installEventFilter(this);
    textUtil_.installEventFilter(this);
    // textEdited, not textChanged: a text that the program sets starts no search.
    connect(&textUtil_, &QLineEdit::textEdited, this, &PickList::TextUtil_Change);
    connect(&xList_, &QListView::clicked, this, &PickList::XList_Click);
}

void PickList::FillXListBox(const JobList &list)
{
    model_.Fill(list, SearchText);
}

void PickList::Refresh()
{
    if (lists_.Mode != ListMode::None)
        FillXListBox(lists_.Current());
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
        textUtil_.setFocus(); // else the toolkit hands the focus to whatever comes next
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
    textUtil_.setText(clock_.CurrentJob);
    textUtil_.setCursorPosition(0); // a long text shows its beginning
    textUtilControl_.SetToolTip({});
}

QString PickList::SelectedItem() const
{
    const QModelIndex index = xList_.currentIndex();
    return index.isValid() ? model_.Item(index.row()) : QString();
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
    xList_.setFocus();
    return true;
}

bool PickList::XList_KeyDown(const QKeyEvent &event)
{
    if (IsEnter(event.key())) {
        if (!SelectedItem().isEmpty()) // an empty item would stemp the person out
            XList_Click();
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
    if (watched == &xList_ && event->type() == QEvent::FocusIn && !xList_.currentIndex().isValid())
        xList_.setCurrentIndex(model_.index(0));
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
        Refresh();
        textUtilControl_.SetToolTip(QStringLiteral("Enter search characters here"));
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

void PickList::XList_Click()
{
    const QString item = SelectedItem();
    emit Picked(item);
    ShowCurrentJob();
    if (xList_.hasFocus())
        textUtil_.setFocus();
    xList_.setVisible(false);
}
