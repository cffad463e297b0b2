#include "reports/Printing.h"
#include "reports/SaveFile.h"
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

const QString manyWords =
    u"Rådgivning om årsregnskab, gennemgang af bilag og afstemning for Blåvand Håndværkerforening "_s;
const QString longWord = QString(120, u'Å');

QStringList Row(const QString &jobID, const QString &name)
{
    return {u"01"_s, jobID, u"100.25"_s, u"07.50"_s, name};
}

PrintedTimesheet Timesheet(int rows)
{
    PrintedTimesheet timesheet{{u"ÆRØ"_s, u"01-11-2026"_s, u"30-11-2026"_s}, {}, {}, {true, false, true, true, false}};
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

class TestTimesheetPages : public QObject
{
    Q_OBJECT

private slots:
    void init() { writer_.setPageSize(QPageSize(QPageSize::A4)); }

    void KeepsRowsWholeAndTheTotalsWithThem()
    {
        for (int count = 0; count <= 90; ++count) {
            const PrintedTimesheet timesheet = Timesheet(count);
            const TimesheetLayout layout = LayOut(timesheet, writer_);
            QList<QStringList> seen;
            for (const TimesheetLayout::Page &page : layout.pages) {
                QVERIFY(count == 0 || !page.first().cells[1].isEmpty()); // begins with a row, not with the rest of one
                QVERIFY((page.last().top + 2) * layout.lineHeight
                        < writer_.height()); // the number of the page is below
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
                QVERIFY((page.last().top + 2) * layout.lineHeight < writer_.height());
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

    void KeepsBlanksInsideAText()
    {
        PrintedTimesheet timesheet = Timesheet(0);
        timesheet.rows.append(Row(u" A  B               "_s, QString()));
        QCOMPARE(LayOut(timesheet, writer_).pages.first().first().cells[1], u" A  B"_s);
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
        QVERIFY(text.endsWith(u"100.25 07.50 Page %1 of %1"_s.arg(pages.size())));
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
    QTemporaryDir folder_;
    QBuffer buffer_;
    QPdfWriter writer_{&buffer_};
};

QTEST_MAIN(TestTimesheetPages)

#include "tst_timesheetpages.moc"
