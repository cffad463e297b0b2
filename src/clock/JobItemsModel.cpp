#include "clock/JobItemsModel.h"

#include "clock/JobList.h"

void JobItemsModel::Fill(const JobList &list, const QString &search)
{
    beginResetModel();
    items_ = list.Items();
    shown_ = list.Matches(search);
    endResetModel();
}

void JobItemsModel::Renew(const JobList &list, const QString &search)
{
    emit layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QStringList kept;
    for (const QModelIndex &at : before)
        kept.append(Item(at.row()));
    items_ = list.Items();
    shown_ = list.Matches(search);
    QModelIndexList after;
    for (const QString &item : std::as_const(kept))
        after.append(index(RowOf(item))); // none for an item that has gone
    changePersistentIndexList(before, after);
    emit layoutChanged();
}

QString JobItemsModel::Item(int row) const
{
    return row >= 0 && row < shown_.size() ? items_.at(shown_.at(row)) : QString();
}

int JobItemsModel::RowOf(const QString &item) const
{
    for (int row = 0; row < shown_.size(); ++row)
        if (items_.at(shown_.at(row)) == item)
            return row;
    return -1;
}

int JobItemsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant JobItemsModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::DisplayRole)
        return Item(index.row());
    return {};
}
