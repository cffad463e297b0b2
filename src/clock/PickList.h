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

    // With the entries that match SearchText. The list then stands at its top, and nothing is selected.
    void FillXListBox(const JobList &list);
    // Brings it in line with the list of the mode in use. While that and the search stay the same, the selection and what is
    // shown stay on their entries.
    void Refresh();

    void ShowXList();
    void HideXList();
    bool IsListVisible() const;
    void PlaceXList(); // under the search box, down to the bottom of the window

    void ShowCurrentJob();          // puts it into the search box
    void FollowCurrentJob();        // does so where the search box shows the one before
    QString SelectedItem() const;   // what is highlighted in the list; empty when nothing is
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
    void XList_Click(const QString &item);

    void FillAnew(); // with the list of the mode in use
    void KeepPlaceAndRenew();
    void SelectEntryInView(); // for the keys: the one that is selected, else the first that is seen

    QLineEdit &textUtil_;
    Control &textUtilControl_;
    QListView &xList_;
    JobLists &lists_;
    const ClockState &clock_;
    JobItemsModel model_;
    bool pressed_ = false; // the mouse went down on the search box
    ListMode filledMode_ = ListMode::None;
    QString filledSearch_;
    QString shownJob_; // that the search box was given last
};
