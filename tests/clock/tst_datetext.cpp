#include "clock/DateText.h"

#include "platform/dao/DateValue.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestDateText : public QObject
{
    Q_OBJECT

private slots:
    void EveryLocaleReadsItsOwnText();
    void ShowsSecondsAndTheWholeYear();
    void Reads_data();
    void Reads();
    void Refuses();
};

namespace {

const QDateTime now = dao::WallTime(QDate(2026, 3, 1), QTime(12, 0));

QString Iso(const QDateTime &time)
{
    return time.toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

} // namespace

void TestDateText::EveryLocaleReadsItsOwnText()
{
    QRandomGenerator random(7);
    QList<QDateTime> times = {dao::WallTime(QDate(2026, 3, 29), QTime(2, 30)), // an hour that summer time skips
                              dao::WallTime(QDate(2026, 1, 1), QTime(0, 0)),
                              dao::WallTime(QDate(2026, 12, 31), QTime(12, 0, 1)),
                              dao::WallTime(QDate(1999, 2, 3), QTime(23, 59, 59))};
    for (int i = 0; i < 20; ++i)
        times.append(dao::WallTime(QDate(2000, 1, 1), QTime(0, 0)).addSecs(random.bounded(1, 1'500'000'000)));

    QStringList wrong;
    const QList<QLocale> all =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    for (const QLocale &locale : all) {
        for (const QDateTime &time : std::as_const(times)) {
            const QString text = DateTimeText(time, locale);
            if (ReadDateTime(text, locale, now) != time) {
                wrong.append(locale.name() + u": "_s + text + u" for "_s + Iso(time));
                break;
            }
        }
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

void TestDateText::ShowsSecondsAndTheWholeYear()
{
    const QDateTime time = dao::WallTime(QDate(2026, 2, 1), QTime(15, 4, 5));
    QCOMPARE(DateTimeText(time, QLocale(u"da_DK"_s)), u"01.02.2026 15.04.05"_s);
    QCOMPARE(DateTimeText(time, QLocale(u"en_US"_s)), u"2/1/2026 3:04:05 PM"_s);
    QCOMPARE(DateTimeText(time, QLocale(u"de_DE"_s)), u"01.02.2026 15:04:05"_s);
}

void TestDateText::Reads_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("iso");

    const auto row = [](const char *name, const QString &locale, const QString &text, const QString &iso) {
        QTest::newRow(name) << locale << text << iso;
    };
    const QString da = u"da_DK"_s;
    const QString us = u"en_US"_s;
    row("bare, colon", da, u"8:30"_s, u"2026-03-01 08:30:00"_s);
    row("bare, dot", da, u" 8.30 "_s, u"2026-03-01 08:30:00"_s);
    row("bare, four digits", us, u"0830"_s, u"2026-03-01 08:30:00"_s);
    row("bare, three digits", da, u"830"_s, u"2026-03-01 08:30:00"_s);
    row("bare, afternoon", us, u"8:30 pm"_s, u"2026-03-01 20:30:00"_s);
    row("midnight as 12 AM", us, u"3/1/2026 12:15 AM"_s, u"2026-03-01 00:15:00"_s);
    row("narrow no-break blank", us, u"3/1/2026 3:15\u202fPM"_s, u"2026-03-01 15:15:00"_s);
    row("locale's own halves of the day", u"es_MX"_s, u"1/3/2026 3:15 p. m."_s, u"2026-03-01 15:15:00"_s);
    row("half of the day in front", u"ko_KR"_s, u"2026. 3. 1. 오후 3:15"_s, u"2026-03-01 15:15:00"_s);
    row("two-digit year", us, u"3/1/26 18:15"_s, u"2026-03-01 18:15:00"_s);
    row("two-digit year, century of 2000", da, u"1.3.70 18.15"_s, u"2070-03-01 18:15:00"_s);
    row("without leading zeros, hyphens", da, u"1-3-2026 8:30"_s, u"2026-03-01 08:30:00"_s);
    row("ISO with T", da, u"2026-03-01T08:30:15"_s, u"2026-03-01 08:30:15"_s);
    row("long, Danish", da, u"søndag den 1. marts 2026 08.30.15"_s, u"2026-03-01 08:30:15"_s);
    row("French hours", u"fr_CA"_s, u"2026-03-01 08 h 30"_s, u"2026-03-01 08:30:00"_s);
    row("C", u"C"_s, u"1 Mar 2026 08:30:15"_s, u"2026-03-01 08:30:15"_s);
}

void TestDateText::Reads()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    const std::optional<QDateTime> time = ReadDateTime(text, QLocale(locale), now);
    QVERIFY(time);
    QTEST(Iso(*time), "iso");
    QCOMPARE(time->timeSpec(), Qt::UTC);
}

void TestDateText::Refuses()
{
    for (const QString &text : {u""_s, u"abc"_s, u"8"_s, u"25:00"_s, u"8:75"_s, u"0875"_s, u"83015"_s, u"8:30 xm"_s,
                                u"13:30 PM"_s, u"1.3.2026"_s, u"2026-02-30"_s, u"2026-02-30 08:30"_s,
                                u"30.02.2026 08:30"_s, u"1.3.126 08:30"_s, u"1.3.2026 08:30 and more"_s})
        for (const QString &locale : {u"da_DK"_s, u"en_US"_s, u"C"_s})
            QVERIFY2(!ReadDateTime(text, QLocale(locale), now), qPrintable(text + u" in "_s + locale));
}

QTEST_GUILESS_MAIN(TestDateText)
#include "tst_datetext.moc"
