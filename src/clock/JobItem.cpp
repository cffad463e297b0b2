#include "clock/JobItem.h"

#include <algorithm>

QString JobItemText(const QString &id, const QString &name)
{
    return id + QStringLiteral(" : ") + name;
}

QString BlanksForControls(QString typed)
{
    const auto isControl = [](QChar letter) {
        return letter.category() == QChar::Other_Control || letter.category() == QChar::Separator_Line
               || letter.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(typed.begin(), typed.end(), isControl, u' ');
    return typed;
}

JobItem SplitJobItem(const QString &item)
{
    const qsizetype colon = item.indexOf(u':');
    if (colon < 1)
        return {item, QString()};
    return {item.left(colon).trimmed(), item.mid(colon + 1).trimmed()};
}
