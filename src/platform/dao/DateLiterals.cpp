#include "platform/dao/DateLiterals.h"

#include "platform/dao/DateValue.h"

#include <QRegularExpression>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace dao {

namespace {

// Quoted texts and names match as a whole, so that nothing inside them is taken for a date.
const QRegularExpression &QuotedOrDate()
{
    static const QRegularExpression expression(
        uR"('[^']*'|"[^"]*"|\[[^\]]*\]|#(\d+)/(\d+)/(\d+)(?: (\d+):(\d+):(\d+))?#)"_s);
    return expression;
}

QString DaysText(const QRegularExpressionMatch &literal)
{
    const auto number = [&literal](int group) { return literal.capturedView(group).toInt(); };
    const QDate date(number(3), number(1), number(2));
    const QTime time(number(4), number(5), number(6)); // midnight where there is none
    if (!date.isValid() || !time.isValid())
        return u"(NULL)"_s;
    constexpr int digitsOfADouble = 17;
    // In parentheses, as the minus of an early date could meet another and begin a comment.
    return u'(' % QString::number(ToDays(WallTime(date, time)), 'g', digitsOfADouble) % u')';
}

} // namespace

QString TranslateDateLiterals(const QString &sql)
{
    QString translated;
    qsizetype copied = 0;
    auto matches = QuotedOrDate().globalMatch(sql);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (!match.hasCaptured(1))
            continue;
        translated += QStringView(sql).mid(copied, match.capturedStart() - copied) % DaysText(match);
        copied = match.capturedEnd();
    }
    return translated + QStringView(sql).mid(copied);
}

} // namespace dao
