#include "board/BufferModel.h"

#include "platform/dao/Error.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(log, "stemp.board")

bool AreSameRows(const QList<BufferRow> &a, const QList<BufferRow> &b)
{
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(),
        [](const BufferRow &one, const BufferRow &other) { return one.id == other.id; });
}

} // namespace

BufferModel::BufferModel(Mail &mail, QStringList captions, QObject *parent)
    : CaptionedModel(std::move(captions), parent), mail_(mail)
{
}

void BufferModel::Read()
{
    QList<BufferRow> rows = mail_.Buffer();
    if (rows == rows_)
        return;
    const bool same = AreSameRows(rows, rows_);
    if (!same)
        beginResetModel();
    rows_ = std::move(rows);
    if (same)
        emit dataChanged(index(0, toColumn), index(static_cast<int>(rows_.size()) - 1, messageColumn));
    else
        endResetModel();
}

void BufferModel::Delete(int row)
{
    if (row < 0 || row >= rows_.size())
        return;
    mail_.DeleteBufferRow(IdOf(row));
    beginRemoveRows({}, row, row);
    rows_.removeAt(row);
    endRemoveRows();
}

qint64 BufferModel::IdOf(int row) const
{
    return rows_.value(row).id;
}

int BufferModel::RowOf(qint64 id) const
{
    const auto found = std::find_if(rows_.begin(), rows_.end(), [id](const BufferRow &row) { return row.id == id; });
    return static_cast<int>(found - rows_.begin());
}

int BufferModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size()) + 1;
}

QVariant BufferModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    const BufferRow row = rows_.value(index.row());
    return index.column() == toColumn ? row.to : row.message;
}

bool BufferModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::EditRole)
        return false;
    const bool isTo = index.column() == toColumn;
    const QString text = isTo ? value.toString().trimmed().toUpper() : value.toString().trimmed();
    BufferRow row = rows_.value(index.row());
    QString &field = isTo ? row.to : row.message;
    if (text == field)
        return true;
    field = text;
    try {
        Store(row);
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << error.Text();
        emit NotStored(index, text);
        return false;
    }
    if (index.row() < rows_.size()) {
        rows_[index.row()] = row;
    } else { // the empty row has become this one
        beginInsertRows({}, index.row() + 1, index.row() + 1);
        rows_.append(row);
        endInsertRows();
    }
    emit dataChanged(index, index);
    emit Stored(row);
    return true;
}

void BufferModel::Store(BufferRow &row)
{
    const QList<BufferRow> stored = row.id == 0 ? QList<BufferRow>() : mail_.Buffer();
    const bool isThere =
        std::any_of(stored.begin(), stored.end(), [&row](const BufferRow &other) { return other.id == row.id; });
    if (isThere)
        mail_.ChangeBufferRow(row);
    else
        row.id = mail_.AddBufferRow(row.to, row.message);
}

Qt::ItemFlags BufferModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = CaptionedModel::flags(index);
    return index.isValid() ? usual | Qt::ItemIsEditable : usual;
}
