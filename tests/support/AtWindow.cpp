#include "support/AtWindow.h"

#include <QApplication>
#include <QTableView>

QWidget *ShownWindow(const QString &name)
{
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == name)
            return widget;
    return nullptr;
}

void Click(const QWidget &window, const char *button)
{
    QTest::mouseClick(Child<QPushButton>(window, button), Qt::LeftButton);
}

void ClickCell(const QAbstractItemView &view, int row, int column)
{
    const QRect cell = view.visualRect(view.model()->index(row, column));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cell.center());
}

void TypeInto(QLineEdit *box, const QString &text)
{
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
}

QStringList ShownRows(const QAbstractItemView &view, const QString &between)
{
    const auto *table = qobject_cast<const QTableView *>(&view);
    const QAbstractItemModel *model = view.model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            if (!table || !table->isColumnHidden(column))
                cells.append(model->index(row, column).data().toString());
        rows.append(cells.join(between));
    }
    return rows;
}
