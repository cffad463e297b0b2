#include "clock/DateText.h"

#include "platform/dao/DateValue.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

// Plain digits and ordinary blanks; without the invisible marks that steer the writing direction.
QString Plain(const QString &text)
{
    QString plain;
    for (const char32_t character : text.toUcs4()) {
        const int digit = QChar::digitValue(character);
        if (digit >= 0)
            plain += QChar(u'0' + digit);
        else if (QChar::category(character) != QChar::Other_Format)
            plain += QChar::fromUcs4(character);
    }
    return plain.simplified();
}

QString DateFormat(const QLocale &locale)
{
    static const QRegularExpression twoDigitYear(u"(?<!y)yy(?!y)"_s);
    return locale.dateFormat(QLocale::ShortFormat).replace(twoDigitYear, u"yyyy"_s);
}

// Put together anew from what is the locale's own in its short format: the hour, the mark between the numbers, and the
// halves of the day with their place. What else a locale writes around them ("kl.", "Uhr") has no place in a column.
QString TimeFormat(const QLocale &locale, bool withSeconds = true)
{
    const QString format = locale.timeFormat(QLocale::ShortFormat);
    const bool leadingZero = format.contains(u"hh"_s, Qt::CaseInsensitive);
    const QString separator = format.contains(u".m"_s) ? u"."_s : u":"_s;
    const qsizetype half = format.indexOf(u"AP"_s, 0, Qt::CaseInsensitive);

    QString hour = half < 0 ? u"H"_s : u"h"_s;
    if (leadingZero)
        hour += hour;
    const QString clock = hour + separator + u"mm"_s + (withSeconds ? separator + u"ss"_s : QString());
    if (half < 0)
        return clock;
    return half < format.indexOf(u'h') ? u"AP "_s + clock : clock + u" AP"_s;
}

bool SameHalf(const QString &typed, const QString &half)
{
    const auto bare = [](const QString &text) { return Plain(text).remove(u'.').remove(u' '); };
    return !bare(half).isEmpty() && bare(typed).compare(bare(half), Qt::CaseInsensitive) == 0;
}

// `mark` stands before or after the numbers. Nothing when it is no half of the day.
std::optional<int> HourOfHalf(int hour, const QString &mark, const QLocale &locale)
{
    if (mark.isEmpty())
        return hour;
    const bool morning = SameHalf(mark, locale.amText()) || SameHalf(mark, u"AM"_s);
    const bool afternoon = SameHalf(mark, locale.pmText()) || SameHalf(mark, u"PM"_s);
    if (morning == afternoon || hour > 12)
        return std::nullopt;
    return hour % 12 + (afternoon ? 12 : 0);
}

std::optional<QTime> ReadTime(const QString &text, const QLocale &locale)
{
    static const QRegularExpression separated(uR"(^(\D*?) ?(\d{1,2})(?:[:.]| ?h ?)(\d{2})(?:[:.](\d{2}))? ?(\D*)$)"_s);
    static const QRegularExpression together(u"^()(\\d{1,2})(\\d{2})()()$"_s);

    for (const QRegularExpression &pattern : {separated, together}) {
        const QRegularExpressionMatch match = pattern.match(text);
        const std::optional<int> hour =
            match.hasMatch() ? HourOfHalf(match.captured(2).toInt(), match.captured(1) + match.captured(5), locale)
                             : std::nullopt;
        if (hour) {
            const QTime time(*hour, match.captured(3).toInt(), match.captured(4).toInt());
            return time.isValid() ? std::optional(time) : std::nullopt;
        }
    }

    // Formats with words in them; a wall clock has no zone.
    static const QRegularExpression zone(u"[, ]*[(\\[]?\\bt\\b[)\\]]? *"_s);
    for (const QLocale::FormatType type : {QLocale::ShortFormat, QLocale::LongFormat}) {
        const QTime time = locale.toTime(text, Plain(locale.timeFormat(type).remove(zone)));
        if (time.isValid())
            return time;
    }
    return std::nullopt;
}

// Three numbers in the locale's order, with whatever marks people put between them.
std::optional<QDate> ReadNumericDate(const QString &text, const QLocale &locale)
{
    static const QRegularExpression numbers(uR"(^(\d{4}|\d{1,2})[-./ ]{1,2}(\d{1,2})[-./ ]{1,2}(\d{4}|\d{1,2})\.?$)"_s);
    const QRegularExpressionMatch match = numbers.match(text);
    if (!match.hasMatch())
        return std::nullopt;

    int first = match.captured(1).toInt();
    const int second = match.captured(2).toInt();
    int third = match.captured(3).toInt();
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    const bool yearFirst =
        match.capturedLength(1) == 4 || (match.capturedLength(3) < 4 && format.indexOf(u'y') < format.indexOf(u'd'));
    if (!yearFirst)
        std::swap(first, third); // year and, mostly, day
    const int year = first < 100 ? 2000 + first : first;
    const bool dayBeforeMonth = format.indexOf(u'd') < format.indexOf(u'M');
    const QDate date = yearFirst || dayBeforeMonth ? QDate(year, second, third) : QDate(year, third, second);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QDate> ReadDate(const QString &text, const QLocale &locale)
{
    if (const std::optional<QDate> date = ReadNumericDate(text, locale))
        return date;
    for (const QString &format : {DateFormat(locale), locale.dateFormat(QLocale::LongFormat)}) { // with names in them
        const QDate date = locale.toDate(text, Plain(format));
        if (date.isValid())
            return date;
    }
    return std::nullopt;
}

} // namespace

QString DateTimeText(const QDateTime &time, const QLocale &locale)
{
    return locale.toString(time.date(), DateFormat(locale)) + u' ' + locale.toString(time.time(), TimeFormat(locale));
}

QString BriefTimeText(const QDateTime &time, const QDate &today, const QLocale &locale)
{
    const QString clock = locale.toString(time.time(), TimeFormat(locale, false));
    if (time.date() == today)
        return clock;
    const bool monthFirst = locale.dateFormat(QLocale::ShortFormat).startsWith(u'M');
    QString format = monthFirst ? u"MMM d"_s : u"d MMM"_s;
    if (time.date().year() != today.year())
        format += u" yyyy"_s;
    return locale.toString(time.date(), format) + u' ' + clock;
}

std::optional<QDateTime> ReadDateTime(const QString &text, const QLocale &locale, const QDateTime &now)
{
    static const QRegularExpression isoMark(u"(?<=^\\d{4}-\\d{2}-\\d{2})T"_s);
    const QString plain = Plain(text).replace(isoMark, u" "_s);

    if (const std::optional<QTime> time = ReadTime(plain, locale))
        return dao::WallTime(now.date(), *time);
    // Dates and times may both have blanks within.
    for (qsizetype blank = plain.indexOf(u' '); blank >= 0; blank = plain.indexOf(u' ', blank + 1)) {
        const std::optional<QDate> date = ReadDate(plain.left(blank), locale);
        const std::optional<QTime> time = date ? ReadTime(plain.mid(blank + 1), locale) : std::nullopt;
        if (time)
            return dao::WallTime(*date, *time);
    }
    return std::nullopt;
}
