#pragma once

#include "board/Mail.h"
#include "platform/forms/CaptionedModel.h"

#include <QList>
#include <QStringList>

// The rows of the outbox for a grid to show and to edit, with an empty one after them for a new row. What is typed is stored
// at once. A row is known by its id: one that has gone meanwhile, because a poll has sent it, is added anew when it is edited.
class BufferModel : public CaptionedModel
{
    Q_OBJECT

public:
    static constexpr int toColumn = 0;
    static constexpr int messageColumn = 1;

    BufferModel(Mail &mail, QStringList captions, QObject *parent = nullptr); // `mail` outlives this

    void Read();          // resets the views if a row came or went; throws dao::Error
    void Delete(int row); // of the empty row: nothing; throws dao::Error

    qint64 IdOf(int row) const; // 0: the empty row
    int RowOf(qint64 id) const; // the empty row when there is no such id

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    void Stored(const BufferRow &row);
    void NotStored(const QModelIndex &cell, const QString &text); // the database could not be written

private:
    void Store(BufferRow &row);

    Mail &mail_;
    QList<BufferRow> rows_;
};
