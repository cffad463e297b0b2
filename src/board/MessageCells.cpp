#include "board/MessageCells.h"

#include "board/BoxLimit.h"
#include "board/BufferModel.h"

void MessageCells::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    ShownTextDelegate::initStyleOption(option, index);
    option->features.setFlag(QStyleOptionViewItem::WrapText, index.column() != columnOfNames_);
}

BufferCells::BufferCells(QObject *parent) : MessageCells(BufferModel::toColumn, parent) {}

QWidget *BufferCells::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    if (index.column() == BufferModel::messageColumn)
        editor->setMaxLength(Poll::longestMessage);
    KeepWholeCharacters(*editor);
    return editor;
}

void BufferCells::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    if (const auto *line = qobject_cast<const QLineEdit *>(editor))
        model->setData(index, line->displayText());
}
