#include "reports/Timesheet.h"

#include "platform/system/Say.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype jobWidth = 20;

// How many blanks follow a job's id before it is cut: a job without an id fills 18 places of the copy and 19 of the cell for
// paper. Only the copy shows them: a page leaves out the blanks at the end of a cell.
constexpr qsizetype blanksInCopy = 18;
constexpr qsizetype blanksOnPaper = 19;

QString WithoutBreaks(QString text)
{
    return text.replace(u'\t', u' ').replace(u'\r', u' ').replace(u'\n', u' ');
}

QString JobColumn(const QString &jobID, qsizetype blanks)
{
    QString column = WithoutBreaks(jobID) + QString(blanks, u' ');
    column.truncate(jobWidth);
    if (column.back().isHighSurrogate()) // half a character
        column.back() = u' ';
    return column;
}

QString DayText(const QDate &day)
{
    return QString::number(day.day()).rightJustified(2, u'0');
}

QStringList Header(const Summary &summary, const QString &user, const QLocale &locale)
{
    const QString format = DateFormat(locale);
    return {WithoutBreaks(user), locale.toString(summary.from, format), locale.toString(summary.to, format)};
}

QStringList Cells(const SummaryRow &row, SummaryKind kind, qsizetype blanks)
{
    QStringList cells{JobColumn(row.jobID, blanks), HoursText(row.hours), HoursText(row.rounded),
                      WithoutBreaks(row.jobName)};
    if (kind == SummaryKind::PerDay)
        cells.prepend(DayText(row.day));
    return cells;
}

// Whole seconds may be half of a decimal: halves away from zero, in a number that misses the half by no floating error.
double Decimals(double hours, int scale)
{
    return std::round(std::round(ExactHours(hours) * 1e6) * scale / 1e6);
}

QString Foot(Rounding rounding)
{
    QString unit = Say("quarter of an hour");
    if (rounding != Rounding::Quarters)
        unit = rounding == Rounding::HalfHours ? Say("half hour") : Say("whole hour");
    return Say("Hours are exact sums. Rounded is the sum of each line to the nearest %1, halves to the even one; the "
               "rounded total adds the rounded lines.")
        .arg(unit);
}

} // namespace

QString DateFormat(const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    return format.contains(u"yyyy"_s) ? format : format.replace(u"yy"_s, u"yyyy"_s);
}

QString ExactHoursText(double hours, const QLocale &locale)
{
    const double thousandths = Decimals(hours, 1000);
    const bool roundsAtTwo = std::abs(ExactHours(hours) - Decimals(hours, 100) / 100) > 1e-6;
    return locale.toString(thousandths / 1000 + 0.0, 'f', roundsAtTwo ? 3 : 2); // never -0
}

QString HoursText(const std::optional<double> &hours)
{
    const double hundredths = Decimals(hours.value_or(0), 100);
    const QString text = QString::number(std::abs(hundredths) / 100, 'f', 2).rightJustified(5, u'0');
    return hundredths < 0 ? QString(u'-' + text) : text;
}

QString ClipboardText(const Summary &summary, const QString &user, const QLocale &locale)
{
    if (summary.kind == SummaryKind::None)
        return {};
    QString text;
    const auto addLine = [&text](const QStringList &fields) { text += fields.join(u'\t') + u"\r\n"_s; };

    addLine(Header(summary, user, locale));
    addLine({});
    for (const SummaryRow &row : summary.rows)
        addLine(Cells(row, summary.kind, blanksInCopy));
    QStringList totals{QString(jobWidth, u' '), HoursText(summary.TotalHours()), HoursText(summary.TotalRounded())};
    if (summary.kind == SummaryKind::PerDay)
        totals.prepend(u"  "_s);
    addLine(totals);
    return text;
}

PrintedTimesheet TimesheetToPrint(const Summary &summary, const QString &user, const QLocale &locale)
{
    if (summary.kind == SummaryKind::None)
        return {};
    PrintedTimesheet sheet;
    sheet.header = Header(summary, user, locale);
    sheet.rows.reserve(summary.rows.size());
    for (const SummaryRow &row : summary.rows)
        sheet.rows.append(Cells(row, summary.kind, blanksOnPaper));
    sheet.totals = {QString(), HoursText(summary.TotalHours()), HoursText(summary.TotalRounded()), QString()};
    sheet.alignRight = {false, true, true, false};
    sheet.foot = Foot(summary.rounding);
    if (summary.kind == SummaryKind::PerDay) {
        sheet.totals.prepend(QString());
        sheet.alignRight.prepend(false);
    }
    return sheet;
}
