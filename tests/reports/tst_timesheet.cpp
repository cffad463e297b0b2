#include "platform/dao/DateValue.h"
#include "reports/ChartBars.h"
#include "reports/Csv.h"
#include "reports/Printing.h"
#include "reports/QuickRange.h"
#include "reports/SaveFile.h"
#include "reports/Timesheet.h"
#include "reports/TimesheetPages.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>

#include <sys/resource.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

const QLocale danish(QLocale::Danish, QLocale::Denmark);

Summary PerJob(QList<SummaryRow> rows)
{
    return {SummaryKind::PerJob, QDate(2026, 7, 1), QDate(2026, 7, 31), Rounding::Quarters, std::move(rows)};
}

Summary PerDay(QList<SummaryRow> rows)
{
    return {SummaryKind::PerDay, QDate(2026, 7, 1), QDate(2027, 12, 31), Rounding::HalfHours, std::move(rows)};
}

QString Shown(const QList<HoursBar> &bars)
{
    QStringList texts;
    for (const HoursBar &bar : bars)
        texts.append(bar.label + u'=' + QString::number(bar.hours));
    return texts.join(u"; "_s);
}

const QString manyWords =
    u"Rådgivning om årsregnskab, gennemgang af bilag og afstemning for Blåvand Håndværkerforening "_s;
const QString longWord = QString(120, u'Å');

QStringList Row(const QString &jobID, const QString &name)
{
    return {u"01"_s, jobID, u"100.25"_s, u"07.50"_s, name};
}

PrintedTimesheet Timesheet(int rows)
{
    PrintedTimesheet timesheet{
        {u"ÆRØ"_s, u"01-11-2026"_s, u"30-11-2026"_s}, {}, {}, {true, false, true, true, false}, u"Rounded somehow."_s};
    const QStringList names{u"Møde"_s, manyWords, QString(), longWord};
    for (int i = 0; i < rows; ++i)
        timesheet.rows.append(Row(u"JOB%1T"_s.arg(i), names[i % names.size()]));
    timesheet.totals = Row(QString(), QString());
    timesheet.totals[0].clear();
    return timesheet;
}

QString Output(const QString &command)
{
    QProcess process;
    process.startCommand(command);
    return process.waitForFinished() ? QString::fromUtf8(process.readAllStandardOutput()) : process.errorString();
}

} // namespace

// A summary as text, as a table for other programs, as bars and on paper.
class TestTimesheet : public QObject
{
    Q_OBJECT

private slots:
    void HoursAsText()
    {
        const double inexactHalf = (46'000.5 + 4050. / 86'400 - 46'000.5) * 24; // 1 h 07 min 30 s, as dates give it
        for (const auto &[hours, text] : {std::pair(1.125, u"01.13"_s),
                                          {inexactHalf, u"01.13"_s},
                                          {1.0049999999, u"01.01"_s},
                                          {1.125 - 1. / 3600, u"01.12"_s}, // a second less
                                          {-1.5, u"-01.50"_s},
                                          {-0.004, u"00.00"_s},
                                          {9.995, u"10.00"_s}})
            QCOMPARE(HoursText(hours), text);
        for (const auto &[hours, text] : {std::pair(1.125, u"1,125"_s),
                                          {inexactHalf, u"1,125"_s},
                                          {7.75 + 2e-6, u"7,75"_s}, // what many rows add up to
                                          {2. / 3, u"0,667"_s},
                                          {-0.0001, u"0,000"_s}})
            QCOMPARE(ExactHoursText(hours, danish), text);
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
        const PrintedTimesheet sheet = TimesheetToPrint(summary, u"ABC"_s, QLocale(QLocale::English));
        QCOMPARE(sheet.header.at(2), u"12/31/2027"_s);
        QVERIFY(sheet.foot.contains(u"half hour"_s));
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

    void QuickRanges()
    {
        const QDate newYear(2027, 1, 1); // a Friday
        for (const auto &[range, today, firstDay, from, to] :
             {std::tuple(QuickRange::ThisWeek, newYear, Qt::Monday, QDate(2026, 12, 28), QDate(2027, 1, 3)),
              {QuickRange::ThisWeek, QDate(2027, 1, 3), Qt::Sunday, QDate(2027, 1, 3), QDate(2027, 1, 9)}, // its first
              {QuickRange::LastWeek, newYear, Qt::Saturday, QDate(2026, 12, 19), QDate(2026, 12, 25)},
              {QuickRange::LastMonth, QDate(2027, 3, 31), Qt::Monday, QDate(2027, 2, 1), QDate(2027, 2, 28)}}) {
            const DateRange found = RangeOf(range, today, firstDay);
            QCOMPARE(found.from, from);
            QCOMPARE(found.to, to);
        }
    }

    void BarsPerJob()
    {
        const Summary summary = PerJob({{{}, u"B"_s, u"Gate"_s, 2.0, 2.0},
                                        {{}, u"a"_s, u"Old name"_s, 3.0, 3.0},
                                        {{}, u"A"_s, u"New name"_s, 4.0, 4.0},
                                        {{}, u"Open"_s, QString(), std::nullopt, std::nullopt},
                                        {{}, QString(), u"Unnumbered"_s, 5.5, 5.5},
                                        {{}, u"C"_s, u"Gate"_s, 2.0 + 1e-9, 2.0}}); // as long as the other gate
        QCOMPARE(Shown(BarsOf(summary, 5, danish)), u"Unnumbered=5.5; A=4; a=3; B=2; C=2"_s);
        QCOMPARE(Shown(BarsOf(summary, 4, danish)), u"Unnumbered=5.5; A=4; a=3; 2 others=4"_s);
        QCOMPARE(Shown(BarsOf(summary, 1, danish)), u"5 jobs=16.5"_s);
        QCOMPARE(BarsOf(summary, 5, danish).at(2).tip, u"a Old name: 3,00 hours"_s);
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

    void init() { writer_.setPageSize(QPageSize(QPageSize::A4)); }

    void KeepsRowsWholeAndTheTotalsWithThem()
    {
        for (int count = 0; count <= 90; ++count) {
            const PrintedTimesheet timesheet = Timesheet(count);
            const TimesheetLayout layout = LayOut(timesheet, writer_);
            QList<QStringList> seen;
            for (const TimesheetLayout::Page &page : layout.pages) {
                QVERIFY(count == 0 || !page.first().cells[1].isEmpty()); // begins with a row, not with the rest of one
                QVERIFY(HasRoomForItsNumber(layout, page));
                for (const TimesheetLayout::Line &line : page)
                    if (!line.cells[2].isEmpty())
                        seen.append(line.cells);
                    else
                        seen.last()[4] += line.cells[4];
            }
            QVERIFY(count == 0 || layout.pages.last().size() > 1);
            QCOMPARE(seen.takeLast(), timesheet.totals);
            QCOMPARE(seen.size(), count);
            for (int i = 0; i < count; ++i) {
                QCOMPARE(seen[i][1], timesheet.rows[i][1]);
                QCOMPARE(seen[i][4].remove(u' '), QString(timesheet.rows[i][4]).remove(u' '));
            }
        }
    }

    void CutsARowThatIsHigherThanAPage()
    {
        writer_.setPageSize(QPageSize(QPageSize::A5));
        for (int words = 1000; words < 1300; words += 4) { // however little is left for the last page
            PrintedTimesheet timesheet = Timesheet(2);
            timesheet.rows.append(Row(u"JOB"_s, u"word "_s.repeated(words)));
            const TimesheetLayout layout = LayOut(timesheet, writer_);
            qsizetype found = 0;
            for (const TimesheetLayout::Page &page : layout.pages) {
                QVERIFY(HasRoomForItsNumber(layout, page));
                for (const TimesheetLayout::Line &line : page)
                    found += line.cells[4].count(u"word"_s);
            }
            QCOMPARE(found, words);
            QVERIFY(layout.pages.size() > 2);
            QVERIFY(layout.pages.last().size() > 1);
        }
    }

    void KeepsTextInItsColumn()
    {
        PrintedTimesheet timesheet = Timesheet(4);
        timesheet.rows.append(Row(QString(20, u'W'), manyWords));
        writer_.setPageSize(QPageSize(QPageSize::A6));
        const TimesheetLayout layout = LayOut(timesheet, writer_);
        const QFontMetricsF metrics(layout.font, &writer_);
        for (qsizetype i = 0; i < layout.columns.size(); ++i) {
            const TimesheetLayout::Column &column = layout.columns[i];
            if (i > 0)
                QVERIFY(column.left > layout.columns[i - 1].left + layout.columns[i - 1].width);
            for (const TimesheetLayout::Page &page : layout.pages)
                for (const TimesheetLayout::Line &line : page)
                    QVERIFY(metrics.horizontalAdvance(line.cells[i]) <= column.width + 1);
        }
    }

    void WritesPdf()
    {
        const QString path = folder_.filePath(u"Timesheet.pdf"_s);
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QVERIFY(WriteTimesheetPdf(path, Timesheet(120), u"Timesheet ÆRØ"_s));
        QLocale::setDefault(QLocale::c());
#ifdef Q_OS_WIN
        QSKIP("there is no pdftotext here to read it with");
#endif
        const QString info = Output(u"pdfinfo \"%1\""_s.arg(path));
        QVERIFY2(info.contains(u"Timesheet ÆRØ"_s) && info.contains(u"(letter)"_s), qPrintable(info));
        QStringList pages = Output(u"pdftotext -layout \"%1\" -"_s.arg(path)).split(u'\f');
        QVERIFY(pages.takeLast().isEmpty());
        QVERIFY(pages.size() > 2);
        for (qsizetype i = 0; i < pages.size(); ++i) {
            QVERIFY(pages[i].simplified().startsWith(u"ÆRØ 01-11-2026 30-11-2026 "_s));
            QVERIFY(pages[i].simplified().endsWith(u" Page %1 of %2"_s.arg(i + 1).arg(pages.size())));
        }
        const QString text = pages.join(u'\n').simplified();
        qsizetype from = 0;
        for (int i = 0; i < 120; ++i) {
            from = text.indexOf(u"01 JOB%1T 100.25 07.50"_s.arg(i), from);
            QVERIFY2(from >= 0, qPrintable(u"JOB%1T"_s.arg(i)));
        }
        QVERIFY(text.endsWith(u"100.25 07.50 Rounded somehow. Page %1 of %1"_s.arg(pages.size())));
    }

    void AFullDiskLeavesTheOlderFile()
    {
#ifndef Q_OS_UNIX
        QSKIP("needs a limit on the size of files");
#else
        const QString path = folder_.filePath(u"older.csv"_s);
        QVERIFY(SaveFile(path, "older"));
        std::signal(SIGXFSZ, SIG_IGN); // a limit on the size of files is met as a full disk is
        rlimit unlimited{};
        getrlimit(RLIMIT_FSIZE, &unlimited);
        const rlimit small{100, unlimited.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"could not be written"_s));
        const bool isSaved = SaveFile(path, QByteArray(700, 'a')); // less than is buffered
        setrlimit(RLIMIT_FSIZE, &unlimited);
        QVERIFY(!isSaved);
        QCOMPARE(QFileInfo(path).size(), 5);
#endif
    }

private:
    bool HasRoomForItsNumber(const TimesheetLayout &layout, const TimesheetLayout::Page &page) const
    {
        const double foot = static_cast<double>(layout.foot.size()) + 1;
        return (page.last().top + 1 + foot) * layout.lineHeight < writer_.height();
    }

    QTemporaryDir folder_;
    QBuffer buffer_;
    QPdfWriter writer_{&buffer_};
};

QTEST_MAIN(TestTimesheet)
#include "tst_timesheet.moc"
