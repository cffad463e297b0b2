#include "platform/forms/RowsModel.h"

#include <utility>

namespace {

bool IsNumber(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

} // namespace

RowsModel::RowsModel(QStringList captions, QObject *parent) : CaptionedModel(std::move(captions), parent) {}

void RowsModel::SetFormatter(int column, Formatter formatter)
{
    formatters_[column] = std::move(formatter);
}

void RowsModel::SetRows(std::vector<Row> rows)
{
    if (rows.size() != rows_.size()) {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
        return;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] != rows_[i]) {
            rows_[i] = std::move(rows[i]);
            const int row = static_cast<int>(i);
            emit dataChanged(index(row, 0), index(row, columnCount() - 1));
        }
    }
}

int RowsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RowsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row &row = rows_[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    const QVariant value = column < row.size() ? row[column] : QVariant();
    switch (role) {
    case Qt::DisplayRole: {
        const auto formatter = formatters_.find(index.column());
        return formatter == formatters_.end() ? value : formatter->second(value);
    }
    case Qt::EditRole:
        return value;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | (IsNumber(value) ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}
