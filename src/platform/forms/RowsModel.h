#pragma once

#include "platform/forms/CaptionedModel.h"

#include <QStringList>
#include <QVariant>

#include <functional>
#include <map>
#include <vector>

// Rows of values for a grid to show. Numbers are right aligned.
class RowsModel : public CaptionedModel
{
    Q_OBJECT

public:
    using Row = std::vector<QVariant>; // may be shorter than the list of columns
    using Formatter = std::function<QString(const QVariant &)>;

    explicit RowsModel(QStringList captions, QObject *parent = nullptr);

    void SetFormatter(int column, Formatter formatter);
    // Views keep selection and scroll place while the number of rows stays the same, and see nothing when nothing changed.
    void SetRows(std::vector<Row> rows);

    int rowCount(const QModelIndex &parent = {}) const override;
    // Qt::EditRole: the value itself
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    std::vector<Row> rows_;
    std::map<int, Formatter> formatters_;
};
