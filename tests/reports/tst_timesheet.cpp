#include "platform/dao/DateValue.h"
#include "reports/ChartBars.h"
#include "reports/Csv.h"
#include "reports/QuickRange.h"
#include "reports/Timesheet.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QLocale danish(QLocale::Danish, QLocale::Denmark);

Summary PerJob(QList<SummaryRow> rows)
{
    return {SummaryKind::PerJob, QDate(2026, 7, 1), QDate(2026, 7, 31), std::move(rows)};
}

Summary PerDay(QList<SummaryRow> rows)
{
    return {SummaryKind::PerDay, QDate(2026, 7, 1), QDate(2027, 12, 31), std::move(rows)};
}

QString Shown(const QList<HoursBar> &bars)
{
    QStringList texts;
    for (const HoursBar &bar : bars)
        texts.append(bar.label + u'=' + QString::number(bar.hours));
    return texts.join(u"; "_s);
}

} // namespace

// A summary as text, as a table for other programs and as bars.
class TestTimesheet : public QObject
{
    Q_OBJECT

private slots:
    void HoursAsText_data()
    {
        QTest::addColumn<double>("hours");
        QTest::addColumn<QString>("text");
        const double secondsOfDays = (46'000.5 + 4050. / 86'400 - 46'000.5) * 24; // 1 h 07 min 30 s, as dates give it
        QTest::newRow("half") << 1.125 << u"01.13"_s;
        QTest::newRow("half of dates") << secondsOfDays << u"01.13"_s;
        QTest::newRow("half that misses") << 1.0049999999 << u"01.01"_s;
        QTest::newRow("a second less") << 1.125 - 1. / 3600 << u"01.12"_s;
        QTest::newRow("negative") << -1.5 << u"-01.50"_s;
        QTest::newRow("negative nothing") << -0.004 << u"00.00"_s;
        QTest::newRow("up to ten") << 9.995 << u"10.00"_s;
    }
    void HoursAsText()
    {
        QFETCH(double, hours);
        QTEST(HoursText(hours), "text");
    }

    void CopyPerJob()
    {
        const Summary summary = PerJob({{{}, u"1001"_s, u"Fence,\tpainted\r\ntwice"_s, 7.5, 7.5},
                                        {{}, u"A-VERY-LONG-IDENTIFIER"_s, u"Long"_s, 1.125, 1.0},
                                        {{}, u"7"_s, u"Open"_s, std::nullopt, std::nullopt},
                                        {{}, QString(), u"Nothing"_s, 115.005, 115.0}});
        QCOMPARE(
            ClipboardText(summary, u"ABC"_s, danish),
            u"ABC\t01.07.2026\t31.07.2026\r\n"
            "\r\n"
            "1001                \t07.50\t07.50\tFence, painted  twice\r\n"
            "A-VERY-LONG-IDENTIFI\t01.13\t01.00\tLong\r\n"
            "7                  \t00.00\t00.00\tOpen\r\n"
            "                  \t115.01\t115.00\tNothing\r\n"
            "                    \t123.63\t123.50\r\n"_s); // the exact hours are 123.63, not the written ones' 123.64
    }

    void CopyPerDay()
    {
        const Summary summary = PerDay({{QDate(2026, 7, 3), u"1001"_s, u"Fence"_s, 7.5, 7.5},
                                        {QDate(2026, 7, 31), u"1002"_s, u"Gate"_s, 0.25, 0.25}});
        QCOMPARE(ClipboardText(summary, u"ABC"_s, danish), u"ABC\t01.07.2026\t31.12.2027\r\n"
                                                           "\r\n"
                                                           "03\t1001                \t07.50\t07.50\tFence\r\n"
                                                           "31\t1002                \t00.25\t00.25\tGate\r\n"
                                                           "  \t                    \t07.75\t07.75\r\n"_s);
    }

    void Paper()
    {
        const SummaryRow row{QDate(2026, 7, 3), u"7"_s, u"Fence"_s, 7.5, 7.5};
        const PrintedTimesheet perJob = TimesheetToPrint(PerJob({row}), u"ABC"_s, danish);
        QCOMPARE(perJob.header, (QStringList{u"ABC"_s, u"01.07.2026"_s, u"31.07.2026"_s}));
        QCOMPARE(perJob.rows.first(), (QStringList{u"7                   "_s, u"07.50"_s, u"07.50"_s, u"Fence"_s}));
        const PrintedTimesheet perDay = TimesheetToPrint(PerDay({row}), u"ABC"_s, danish);
        QCOMPARE(perDay.rows.first().first(), u"03"_s);
        for (const PrintedTimesheet &sheet : {perJob, perDay}) {
            QCOMPARE(sheet.totals.size(), sheet.rows.first().size());
            QCOMPARE(sheet.alignRight.size(), sheet.totals.size());
            for (qsizetype i = 0; i < sheet.totals.size(); ++i) // the numbers, and only they
                QCOMPARE(sheet.totals.at(i), sheet.alignRight.at(i) ? u"07.50"_s : QString());
        }
    }

    void Csv()
    {
        const double inexact = (46'000.5 + 4050. / 86'400 - 46'000.5) * 24;
        QCOMPARE(SummaryCsv(PerJob({{{}, u"1,\"2\""_s, u" sæt\r\nop"_s, inexact, 1.0},
                                    {{}, u"=1+1"_s, QString(), std::nullopt, std::nullopt},
                                    {{}, u"3"_s, u"C"_s, 1. / 3600, -0.0}})),
                 u"\uFEFFJobID,Hours,Rounded,JobName\r\n"
                 "\"1,\"\"2\"\"\",1.125,1,\" sæt\r\nop\"\r\n"
                 "=1+1,,,\r\n"
                 "3,0.0002777777777777778,0,C\r\n"_s.toUtf8());
        QCOMPARE(SummaryCsv(PerDay({{QDate(2026, 7, 3), u"1"_s, u"A"_s, 7.5, 7.5}})),
                 u"\uFEFFDay,JobID,Hours,Rounded,JobName\r\n2026-07-03,1,7.5,7.5,A\r\n"_s.toUtf8());
        QCOMPARE(TimeRowsCsv({{u"1"_s, u"A"_s, dao::WallTime(QDate(2026, 3, 29), QTime(2, 30)), std::nullopt}}),
                 u"\uFEFFJobID,JobName,StempInTime,StempOutTime\r\n1,A,2026-03-29T02:30:00,\r\n"_s.toUtf8());
    }

    void QuickRanges_data()
    {
        QTest::addColumn<QuickRange>("range");
        QTest::addColumn<QDate>("today");
        QTest::addColumn<Qt::DayOfWeek>("firstDay");
        QTest::addColumn<QDate>("from");
        QTest::addColumn<QDate>("to");
        const QDate newYear(2027, 1, 1); // a Friday
        QTest::newRow("week") << QuickRange::ThisWeek << newYear << Qt::Monday << QDate(2026, 12, 28)
                              << QDate(2027, 1, 3);
        QTest::newRow("its first day") << QuickRange::ThisWeek << QDate(2027, 1, 3) << Qt::Sunday << QDate(2027, 1, 3)
                                       << QDate(2027, 1, 9);
        QTest::newRow("last week") << QuickRange::LastWeek << newYear << Qt::Saturday << QDate(2026, 12, 19)
                                   << QDate(2026, 12, 25);
        QTest::newRow("shorter last month")
            << QuickRange::LastMonth << QDate(2027, 3, 31) << Qt::Monday << QDate(2027, 2, 1) << QDate(2027, 2, 28);
    }
    void QuickRanges()
    {
        QFETCH(QuickRange, range);
        QFETCH(QDate, today);
        QFETCH(Qt::DayOfWeek, firstDay);
        const DateRange found = RangeOf(range, today, firstDay);
        QTEST(found.from, "from");
        QTEST(found.to, "to");
    }

    void BarsPerJob()
    {
        const Summary summary = PerJob({{{}, u"B"_s, u"Gate"_s, 2.0, 2.0},
                                        {{}, u"a"_s, u"Old name"_s, 3.0, 3.0},
                                        {{}, u"A"_s, u"New name"_s, 4.0, 4.0},
                                        {{}, u"Open"_s, QString(), std::nullopt, std::nullopt},
                                        {{}, QString(), u"Unnumbered"_s, 5.5, 5.5},
                                        {{}, u"C"_s, u"Gate"_s, 1.0, 1.0}});
        QCOMPARE(Shown(BarsOf(summary, 4, danish)), u"a=7; Unnumbered=5.5; B=2; C=1"_s);
        QCOMPARE(Shown(BarsOf(summary, 3, danish)), u"a=7; Unnumbered=5.5; 2 others=3"_s);
        QCOMPARE(Shown(BarsOf(summary, 1, danish)), u"4 jobs=15.5"_s);
        QCOMPARE(BarsOf(summary, 4, danish).first().tip, u"a Old name: 7,00 hours"_s);
    }

    void BarsPerDay()
    {
        const QLocale english(QLocale::English, QLocale::UnitedKingdom); // weeks begin on Monday
        const auto day = [](const QDate &date, double hours) { return SummaryRow{date, u"1"_s, {}, hours, hours}; };
        const QDate thursday(2026, 7, 2);
        QList<SummaryRow> rows{day(thursday.addDays(-1), 0), day(thursday, 3), day(thursday, 4),
                               day(QDate(2026, 7, 5), 2)};
        QCOMPARE(Shown(BarsOf(PerDay(rows), 10, english)), u"Thu 2=7; Fri 3=0; Sat 4=0; Sun 5=2"_s);
        rows.append(day(QDate(2026, 7, 13), 1));
        QCOMPARE(Shown(BarsOf(PerDay(rows), 11, english)), u"1 Jul=9; 6 Jul=0; 13 Jul=1"_s);
        QVERIFY(BarsOf(PerDay(rows), 11, english).first().tip.startsWith(u"01/07/2026 – 05/07/2026: "_s)); // cut short
        QCOMPARE(BarsOf(PerDay(rows), 12, english).size(), 12);
        QCOMPARE(Shown(BarsOf(PerDay(rows), 2, english)), u"Jul=10"_s);
        rows.append(day(QDate(2027, 1, 1), 8));
        QCOMPARE(BarsOf(PerDay(rows), 7, english).last().label, u"Jan 2027"_s);
        QCOMPARE(Shown(BarsOf(PerDay(rows), 2, english)), u"2026=10; 2027=8"_s);
        QCOMPARE(BarsOf(PerDay(rows), 1, english).size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestTimesheet)
#include "tst_timesheet.moc"
