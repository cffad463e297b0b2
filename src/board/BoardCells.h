#pragma once

#include "platform/forms/ShownText.h"

// Draws the cells of a BoardModel. The current cell bears a frame, as the colours of the cells have a meaning. At the right end
// of a status stand, in quiet letters, the job where the text leaves room for it, and how many messages wait behind a yellow one.
class BoardCells : public ShownTextDelegate
{
    Q_OBJECT

public:
    using ShownTextDelegate::ShownTextDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    // A cell's tip goes before the grid's own. Where the latter was taken away, no tips are wanted.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
};
