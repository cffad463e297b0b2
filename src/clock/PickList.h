#pragma once

#include "clock/JobItemsModel.h"
#include "clock/JobLists.h"

#include <QObject>

class Control;
class QKeyEvent;
class QLineEdit;
class QListView;
class QMouseEvent;
struct ClockState;

// The search box `TextUtil` and the list `XList` that drops down under it. Nothing but a mouse click or Enter on an entry
// ever picks a job: moving the selection, by keys or by code, does not.
class PickList : public QObject
{
    Q_OBJECT

public:
    // `textUtilControl` is the adapter of `textUtil`.
    PickList(QLineEdit &textUtil, Control &textUtilControl, QListView &xList, JobLists &lists, const ClockState &clock);

    void FillXListBox(const JobList &list); // with the entries that match SearchText
    void Refresh();                         // fills it again with the list of the mode in use

    void ShowXList();
    void HideXList();
    bool IsListVisible() const;
    void PlaceXList(); // under the search box, down to the bottom of the window

    void ShowCurrentJob();          // puts it into the search box
    QString SelectedItem() const;   // of the visible list; empty when nothing is selected
    void ChooseList(ListMode mode); // a list menu was clicked

    // Keys while the search box or the list has the focus. True: consumed.
    bool TextUtil_KeyDown(const QKeyEvent &event);
    bool XList_KeyDown(const QKeyEvent &event);

    QString SearchText; // the search in force; empty: none

signals:
    void Picked(const QString &item);
    void TextUtilLeft();                       // by a double click: the focus goes to the clock's button
    void DeleteRequested(const QString &item); // the Delete key on an entry

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void TextUtil_Mouse(const QMouseEvent &event);
    void TextUtil_Change(const QString &text);
    void TextUtil_Click();
    void TextUtil_DblClick();
    void XList_Click();

    QLineEdit &textUtil_;
    Control &textUtilControl_;
    QListView &xList_;
    JobLists &lists_;
    const ClockState &clock_;
    JobItemsModel model_;
    bool pressed_ = false; // the mouse went down on the search box
};
