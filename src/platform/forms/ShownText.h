#pragma once

#include <QString>
#include <QStyledItemDelegate>

// A text that others have written, as it is painted: a mark stands in place of each character that nobody would see or that
// would turn the order of the others around, and what is longer than any place has room for is cut. For display only: keys,
// cells and what is stored keep the text as it is.
QString ShownText(const QString &text);
QString ShownLines(const QString &text); // the same, whole, with the line ends and tabs of a text that may have some

// Paints the texts of a view's cells so.
class ShownTextDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override;
};

class QComboBox;

// Lets the list of a box, and the one that completes what is typed in it, paint so.
void ShowItemsSafely(QComboBox &box);
