#pragma once

#include <QAbstractListModel>
#include <QList>

class JobList;

// The entries of the pick list: those items of a job list that match the search, in the list's order.
class JobItemsModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    // The entries are those of the list as it is now.
    void Fill(const JobList &list, const QString &search);
    // The same, but indexes stay on their items: those of a view's selection, of its scroll place, of a press of the mouse.
    void Renew(const JobList &list, const QString &search);

    QString Item(int row) const;          // empty when there is no such row
    int RowOf(const QString &item) const; // exact; -1 when it is not shown

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QStringList items_; // shares the list's texts
    QList<int> shown_;
};
