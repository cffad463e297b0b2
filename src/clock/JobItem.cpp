#include "clock/JobItem.h"

QString JobItemText(const QString &id, const QString &name)
{
    return id + QStringLiteral(" : ") + name;
}

JobItem SplitJobItem(const QString &item)
{
    const qsizetype colon = item.indexOf(u':');
    if (colon < 1)
        return {item, QString()};
    return {item.left(colon).trimmed(), item.mid(colon + 1).trimmed()};
}
