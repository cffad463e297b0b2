#include "platform/forms/GridControl.h"

#include <QHeaderView>
#include <QTableWidget>

#include <utility>

GridControl::GridControl(ControlId id, QTableView &view) : WidgetControl(std::move(id), view), view_(view) {}

std::optional<QString> GridControl::Caption() const
{
    QString captions;
    for (int column = 0; column < Columns(); ++column)
        captions += view_.model()->headerData(column, Qt::Horizontal).toString() + u'|';
    return captions;
}

void GridControl::SetCaption(const QString &text)
{
    const QStringList captions = PiecesOf(text, u'|');
    auto *table = qobject_cast<QTableWidget *>(&view_);
    for (int column = 0; column < Columns() && column < captions.size(); ++column) {
        if (table && !table->horizontalHeaderItem(column))
            table->setHorizontalHeaderItem(column, new QTableWidgetItem);
        view_.model()->setHeaderData(column, Qt::Horizontal, captions.at(column));
    }
}

std::optional<QString> GridControl::Value() const
{
    QString widths;
    for (int column = 0; column < Columns(); ++column) {
        const auto at = static_cast<std::size_t>(column);
        const int pixels = view_.columnWidth(column);
        const bool asSet = at < widths_.size() && widths_[at] && (widths_[at]->pixels == pixels || IsStretched(column));
        widths += NumberText(asSet ? widths_[at]->twips : pixels * twipsPerPixel) + u';';
    }
    return widths;
}

void GridControl::SetValue(const QString &text)
{
    const QStringList pieces = PiecesOf(text, u';');
    widths_.assign(static_cast<std::size_t>(Columns()), std::nullopt);
    for (int column = 0; column < Columns() && column < pieces.size(); ++column) {
        const auto twips = NumberIn(pieces.at(column));
        if (!twips || *twips < 0)
            continue;
        view_.setColumnHidden(column, *twips == 0);
        if (*twips > 0)
            view_.setColumnWidth(column, qRound(*twips / twipsPerPixel));
        widths_[static_cast<std::size_t>(column)] = Width{*twips, view_.columnWidth(column)};
    }
}

int GridControl::Columns() const
{
    return view_.model() ? view_.model()->columnCount() : 0;
}

// It takes what the others leave, which no person set.
bool GridControl::IsStretched(int column) const
{
    const QHeaderView *header = view_.horizontalHeader();
    return header->stretchLastSection() && header->visualIndex(column) == header->count() - 1;
}
