#include "platform/forms/CaptionedModel.h"

#include <utility>

CaptionedModel::CaptionedModel(QStringList captions, QObject *parent)
    : QAbstractTableModel(parent), captions_(std::move(captions))
{
}

int CaptionedModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(captions_.size());
}

QVariant CaptionedModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::EditRole))
        return QAbstractTableModel::headerData(section, orientation, role);
    return captions_.value(section);
}

bool CaptionedModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value, int role)
{
    if (orientation != Qt::Horizontal || section < 0 || section >= captions_.size() || role != Qt::EditRole)
        return false;
    captions_[section] = value.toString();
    emit headerDataChanged(orientation, section, section);
    return true;
}
