#pragma once

#include "platform/forms/ShownText.h"

// Shows names on one line; messages may take more.
class MessageCells : public ShownTextDelegate
{
    Q_OBJECT

public:
    MessageCells(int columnOfNames, QObject *parent) : ShownTextDelegate(parent), columnOfNames_(columnOfNames) {}

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    int columnOfNames_;
};

// Edits the cells of a BufferModel in one line. It is stored as it is shown: line breaks that were pasted are blanks.
class BufferCells : public MessageCells
{
    Q_OBJECT

public:
    explicit BufferCells(QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
};
