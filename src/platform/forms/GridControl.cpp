#include "platform/forms/GridControl.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableWidget>

#include <algorithm>
#include <set>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

// Without the breaks that would make several cells or lines of it, and the blanks that only align it.
QString CellText(const QModelIndex &cell)
{
    QString text = cell.data().toString();
    text.replace("\r\n"_L1, " "_L1);
    for (QChar &letter : text)
        if (letter == u'\t' || letter == u'\r' || letter == u'\n')
            letter = u' ';
    while (text.endsWith(u'\u2007')) // a blank as wide as a digit
        text.chop(1);
    return text;
}

QString RowText(const QTableView &view, int row)
{
    QStringList cells;
    const QHeaderView *header = view.horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (!view.isColumnHidden(column))
            cells.append(CellText(view.model()->index(row, column)));
    }
    return cells.join(u'\t');
}

void CopyRows(const QTableView &view)
{
    std::set<int> rows;
    for (const QModelIndex &cell : view.selectionModel()->selectedIndexes())
        rows.insert(cell.row());
    if (const QModelIndex current = view.currentIndex(); rows.empty() && current.isValid())
        rows.insert(current.row());
    QString text;
    for (const int row : rows)
        text += RowText(view, row) + u"\r\n"_s;
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}

class CopyKey : public QObject
{
public:
    explicit CopyKey(QTableView &view) : QObject(&view), view_(view) { view.installEventFilter(this); }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy))
            return false;
        if (view_.selectionModel())
            CopyRows(view_);
        return true;
    }

private:
    QTableView &view_;
};

} // namespace

GridControl::GridControl(ControlId id, QTableView &view) : WidgetControl(std::move(id), view), view_(view)
{
    new CopyKey(view); // which owns it
}

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
            view_.setColumnWidth(column, std::max(qRound(*twips / twipsPerPixel), leastWidths_[column]));
        widths_[static_cast<std::size_t>(column)] = Width{*twips, view_.columnWidth(column)};
    }
}

void GridControl::SetLeastWidth(int column, int pixels)
{
    leastWidths_[column] = pixels;
    if (!view_.isColumnHidden(column))
        view_.setColumnWidth(column, std::max(view_.columnWidth(column), pixels));
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
