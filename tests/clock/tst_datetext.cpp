#include "clock/DateText.h"

#include "platform/dao/DateValue.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime now = dao::WallTime(QDate(2026, 3, 1), QTime(12, 0));

} // namespace

class TestDateText : public QObject
{
    Q_OBJECT

private slots:
    void EveryLocaleReadsItsOwnText()
    {
        QRandomGenerator random(7);
        QList<QDateTime> times = {dao::WallTime({2026, 3, 29}, {2, 30}), // an hour that summer time skips
                                  dao::WallTime({2026, 1, 1}, {0, 0}), dao::WallTime({2026, 12, 31}, {12, 0, 1}),
                                  dao::WallTime({1999, 2, 3}, {23, 59, 59})};
        for (int i = 0; i < 20; ++i)
            times.append(dao::WallTime({2000, 1, 1}, {0, 0}).addSecs(random.bounded(1, 1'500'000'000)));
        for (const QLocale &locale :
             QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory))
            for (const QDateTime &time : std::as_const(times)) {
                const QString text = DateTimeText(time, locale);
                QVERIFY2(ReadDateTime(text, locale, now) == time, qPrintable(locale.name() + u": "_s + text));
            }
    }

    void ShowsSecondsAndTheWholeYear()
    {
        const QDateTime time = dao::WallTime(QDate(2026, 2, 1), QTime(15, 4, 5));
        QCOMPARE(DateTimeText(time, QLocale(u"da_DK"_s)), u"01.02.2026 15.04.05"_s);
        QCOMPARE(DateTimeText(time, QLocale(u"en_US"_s)), u"2/1/2026 3:04:05 PM"_s);
        QCOMPARE(DateTimeText(time, QLocale(u"de_DE"_s)), u"01.02.2026 15:04:05"_s);
    }

    void Reads()
    {
        const QString da = u"da_DK"_s;
        const QString us = u"en_US"_s;
        const QStringList cases[] = {
            {da, u" 8.30 "_s, u"2026-03-01 08:30:00"_s}, // bare
            {us, u"0830"_s, u"2026-03-01 08:30:00"_s},
            {da, u"830"_s, u"2026-03-01 08:30:00"_s},
            {us, u"8:30 pm"_s, u"2026-03-01 20:30:00"_s},
            {us, u"3/1/2026 12:15 AM"_s, u"2026-03-01 00:15:00"_s},             // midnight
            {us, u"3/1/2026 3:15\u202fPM"_s, u"2026-03-01 15:15:00"_s},         // a narrow no-break blank
            {u"es_MX"_s, u"1/3/2026 3:15 p. m."_s, u"2026-03-01 15:15:00"_s},   // halves of the day of its own
            {u"ko_KR"_s, u"2026. 3. 1. 오후 3:15"_s, u"2026-03-01 15:15:00"_s}, // in front
            {us, u"3/1/26 18:15"_s, u"2026-03-01 18:15:00"_s},
            {da, u"1.3.70 18.15"_s, u"2070-03-01 18:15:00"_s}, // the century of 2000
            {da, u"1-3-2026 8:30"_s, u"2026-03-01 08:30:00"_s},
            {da, u"2026-03-01T08:30:15"_s, u"2026-03-01 08:30:15"_s},
            {da, u"søndag den 1. marts 2026 08.30.15"_s, u"2026-03-01 08:30:15"_s},
            {u"fr_CA"_s, u"2026-03-01 08 h 30"_s, u"2026-03-01 08:30:00"_s},
            {u"C"_s, u"1 Mar 2026 08:30:15"_s, u"2026-03-01 08:30:15"_s},
        };
        for (const QStringList &each : cases) {
            const std::optional<QDateTime> time = ReadDateTime(each[1], QLocale(each[0]), now);
            QVERIFY2(time && time->timeSpec() == Qt::UTC, qPrintable(each[1]));
            QCOMPARE(time->toString(u"yyyy-MM-dd HH:mm:ss"_s), each[2]);
        }
    }

    void Refuses()
    {
        for (const QString &text : {u""_s, u"abc"_s, u"8"_s, u"25:00"_s, u"8:75"_s, u"0875"_s, u"83015"_s, u"8:30 xm"_s,
                                    u"13:30 PM"_s, u"1.3.2026"_s, u"2026-02-30"_s, u"2026-02-30 08:30"_s,
                                    u"30.02.2026 08:30"_s, u"1.3.126 08:30"_s, u"1.3.2026 08:30 and more"_s})
            for (const QString &locale : {u"da_DK"_s, u"en_US"_s, u"C"_s})
                QVERIFY2(!ReadDateTime(text, QLocale(locale), now), qPrintable(text + u" in "_s + locale));
    }
};

QTEST_GUILESS_MAIN(TestDateText)
#include "tst_datetext.moc"
