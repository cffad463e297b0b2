#pragma once

#include <QAbstractTableModel>
#include <QStringList>

// A table whose columns have captions that can be set, as GridControl does for the text store.
class CaptionedModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit CaptionedModel(QStringList captions, QObject *parent = nullptr);

    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role = Qt::EditRole) override;

private:
    QStringList captions_;
};
