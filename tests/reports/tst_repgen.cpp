#include "platform/dao/DateValue.h"
#include "platform/forms/ChartWidget.h"
#include "reports/Printing.h"
#include "reports/RepGen.h"
#include "support/AtWindow.h"
#include "support/RunningCopy.h"
#include "texts/Common.h"

#include <QClipboard>
#include <QDateEdit>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

namespace {

class NotedPrinting : public Printing
{
public:
    bool hasPrinter = true;
    QStringList header; // of the last preview
    QString suggested;

    bool HasPrinter() const override { return hasPrinter; }
    void Preview(QWidget *, const PrintedTimesheet &timesheet, const QString &, const QString &printerName,
                 const Printed &printed) override
    {
        header = timesheet.header;
        suggested = printerName;
        printed(u"Laser"_s);
    }
};

// The window on the screen, on a time database with three stemps in February and March.
struct Summing : AtWindow
{
    explicit Summing(FormServices *stored = nullptr)
    {
        folder.Copy(u"Blank.mdb"_s, timeFile);
        Add(u"A1"_s, QDate(2026, 2, 27), 90);
        Add(u"A1"_s, QDate(2026, 3, 2), 67);
        Add(u"B2"_s, QDate(2026, 3, 2), 30);
        OpenWith(stored ? *stored : texts);
    }

    void Add(const QString &job, const QDate &day, int minutes) const
    {
        const QDateTime in = dao::WallTime(day, QTime(8, 0));
        folder.Sql(timeFile, u"INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) VALUES (?, ?, ?, ?)"_s,
                   {job, u"Job %1"_s.arg(job), dao::ToDays(in), dao::ToDays(in.addSecs(60 * minutes))});
    }
    void OpenWith(FormServices &services)
    {
        form = std::make_unique<RepGen>(
            services, prompts, printing,
            RepGenParts{folder.File(timeFile), Rounding::Quarters, u"ANNA"_s, time, [this] { return unsaved; }});
        Open(*form);
        if (!QTest::qWaitForWindowActive(form.get()))
            throw std::logic_error("no window");
    }
    void SetDates(const QDate &from, const QDate &to) const
    {
        Find<QDateEdit>("DTPickerFrom")->setDate(from);
        Find<QDateEdit>("DTPickerTo")->setDate(to);
    }
    void SaveAs(const QString &name) { prompts.file = folder.File(name); }
    QByteArray Saved() const { return folder.Content(QFileInfo(prompts.file).fileName()); }
    // What the grid shows, once the totals say that it is of these dates.
    QStringList Rows(const QDate &from, const QDate &to) const
    {
        const QString format = Find<QDateEdit>("DTPickerTo")->displayFormat();
        const QString dates = u"From %1 to %2"_s.arg(from.toString(format), to.toString(format));
        const bool summed = QTest::qWaitFor([&] { return Text("TotalsLabel").endsWith(dates); });
        return summed ? ShownRows(*Find<QTableView>("SummaryGrid")) : QStringList(u"no sums of these dates"_s);
    }
    NotedPrinting printing;
    int unsaved = 0;
    std::unique_ptr<RepGen> form;
};

const QDate today(2026, 3, 2); // a Monday
const QDate march1(2026, 3, 1);
const QDate february1(2026, 2, 1);
const QDate february28(2026, 2, 28);

} // namespace

class TestRepGen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void SumsByItsButtons()
    {
        Summing summing;
        QTest::keyClick(summing.form->focusWidget(), Qt::Key_Return);
        QCOMPARE(summing.Rows(today, today), QStringList({u"A1 1.117 1.00 Job A1"_s, u"B2 0.50\u2007 0.50 Job B2"_s}));
        QVERIFY(summing.Text("TotalsLabel").startsWith(u"Hours: 1.617    Rounded: 1.50    Difference: -0.117 "_s));
        QCOMPARE(summing.Find<ChartWidget>("MSChart")->Bars().size(), 2);

        summing.unsaved = 3;
        summing.SetDates(february1, today);
        summing.Press("DailyButton");
        QCOMPARE(summing.Rows(february1, today),
                 QStringList({u"27 A1 1.50\u2007 1.50 Job A1 02"_s, u"02 A1 1.117 1.00 Job A1 03"_s,
                              u"02 B2 0.50\u2007 0.50 Job B2 03"_s}));
        auto *grid = summing.Find<QTableView>("SummaryGrid");
        grid->selectRow(2);
        grid->selectionModel()->select(grid->model()->index(0, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QTest::keySequence(grid, QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 u"27\t02\tA1\t1.50\t1.50\tJob A1\r\n02\t03\tB2\t0.50\t0.50\tJob B2\r\n"_s);
        QVERIFY(summing.Shows("UnsavedLabel") && summing.Text("UnsavedLabel").endsWith(u" 3"_s));

        summing.SetDates(march1, march1);
        summing.Press("UpdateButton");
        QCOMPARE(summing.Rows(march1, march1), QStringList());
        QVERIFY(summing.Text("TotalsLabel").contains(u"Hours: 0.00    Rounded: 0.00    Difference: 0.00 "_s));
        QVERIFY(summing.Shows("EmptyLabel") && !summing.Shows("SummingLabel"));
        QTest::keyClick(summing.form->focusWidget(), Qt::Key_Escape);
        QVERIFY(!summing.form->isVisible() && !summing.form->IsLoaded());
    }

    void PutsOutWhatWasSummedLast()
    {
        Summing summing;
        summing.Press("Ranges_4"); // last month
        summing.Press("UpdateButton");
        QCOMPARE(summing.Rows(february1, february28), QStringList(u"A1 1.50 1.50 Job A1"_s));
        summing.SetDates(today, today);
        summing.Press("ClipCommand");
        const QString copied = QGuiApplication::clipboard()->text();
        QVERIFY2(copied.startsWith(u"ANNA\t1 Feb 2026\t28 Feb 2026\r\n"_s), qPrintable(copied));
        QVERIFY(copied.contains(u"\t01.50\t01.50\tJob A1\r\n"_s));

        for (const QString &printer : {u""_s, u"Laser"_s}) { // what was printed on is suggested next
            summing.Press("PrintCommand");
            QCOMPARE(summing.printing.header, QStringList({u"ANNA"_s, u"1 Feb 2026"_s, u"28 Feb 2026"_s}));
            QCOMPARE(summing.printing.suggested, printer);
        }

        summing.SaveAs(u"sums.csv"_s);
        summing.Choose("mnuSaveCsv");
        QVERIFY(summing.prompts.suggested.endsWith(u"/ANNA 2026-02-01 to 2026-02-28.csv"_s));
        QVERIFY(summing.Saved().contains("A1,1.5,1.5,Job A1"));
        summing.SaveAs(u"rows.csv"_s);
        summing.Choose("mnuSaveRows");
        QVERIFY(summing.prompts.suggested.endsWith(u"/ANNA 2026-02-01 to 2026-02-28 rows.csv"_s));
        QTRY_VERIFY(summing.Saved().contains("A1,Job A1,2026-02-27T08:00:00,2026-02-27T09:30:00"));
        QVERIFY(!summing.Saved().contains("2026-03"));

        summing.printing.hasPrinter = false;
        summing.SaveAs(u"no such folder/sheet.pdf"_s);
        summing.Press("PrintCommand");
        QCOMPARE(summing.prompts.messages.size(), 5); // two pickers, the question, a picker, the failure
        QVERIFY(summing.prompts.messages.last().contains(u"sheet.pdf"_s));
        summing.SaveAs(u"sheet.pdf"_s);
        summing.Choose("mnuSavePdf");
        QVERIFY(summing.Saved().startsWith("%PDF"));
    }

    void KeepsDatesWidthsAndPrinter()
    {
        const ProgramFolder folder;
        folder.MakePersonal();
        dao::Database localDB = dao::Database::OpenDatabase(folder.File(personalFile));
        TextState state;
        AnsweredPrompts prompts;
        Common store(localDB, state, prompts);
        Summing summing(&store);
        QCOMPARE(summing.Find<QDateEdit>("DTPickerFrom")->date(), today);
        QCOMPARE(summing.Find<QDateEdit>("DTPickerTo")->date(), today);
        summing.SetDates(february1, february28);
        summing.Find<QTableView>("SummaryGrid")->setColumnWidth(0, 77); // not shown for jobs
        summing.Press("UpdateButton");
        QCOMPARE(summing.Rows(february1, february28).size(), 1);
        summing.Press("PrintCommand");
        summing.form->close();

        summing.time.Advance(86400);
        summing.OpenWith(store);
        QCOMPARE(summing.Find<QDateEdit>("DTPickerFrom")->date(), february1);
        QCOMPARE(summing.Find<QDateEdit>("DTPickerTo")->date(), february28);
        QCOMPARE(summing.Text("TotalsLabel"), QString());
        summing.Press("DailyButton");
        QCOMPARE(summing.Rows(february1, february28).size(), 1);
        QCOMPARE(summing.Find<QTableView>("SummaryGrid")->columnWidth(0), 77);
        summing.Press("PrintCommand");
        QCOMPARE(summing.printing.suggested, u"Laser"_s);
    }

    void StaysAliveWhileTheFileIsLocked()
    {
        Summing summing;
        auto *update = summing.Find<QPushButton>("UpdateButton");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"ANNA\\.mdb"_s));
        {
            const Holder other(summing.folder.File(timeFile));
            update->setFocus();
            summing.Press("UpdateButton");
            QTRY_VERIFY(summing.Shows("SummingLabel"));
            QVERIFY(!update->isEnabled() && summing.form->cursor().shape() == Qt::BusyCursor);
            QTRY_VERIFY_WITH_TIMEOUT(summing.Shows("ErrorLabel"), 30000);
            QVERIFY(!summing.Shows("SummingLabel") && update->hasFocus());
            QVERIFY(summing.form->cursor().shape() != Qt::BusyCursor);
        }
        summing.Press("UpdateButton");
        QCOMPARE(summing.Rows(today, today).size(), 2);
        QVERIFY(!summing.Shows("ErrorLabel") && summing.prompts.messages.isEmpty());
        summing.Press("UpdateButton");
        summing.form->close(); // under way
        QVERIFY(!summing.form->IsLoaded());
        summing.form.reset();
    }

    void DropsNoFileThatWasNamed()
    {
        Summing summing;
        summing.SaveAs(u"rows.csv"_s);
        {
            const Holder other(summing.folder.File(timeFile));
            summing.Choose("mnuSaveRows");
            QVERIFY(!summing.form->close());
            QVERIFY(summing.form->IsLoaded() && summing.Shows("SavingLabel"));
        }
        QTRY_VERIFY_WITH_TIMEOUT(summing.Saved().contains("A1,Job A1,2026-03-02T08:00:00,"), 30000);
        QTRY_VERIFY(!summing.Shows("SavingLabel"));

        summing.folder.Write(timeFile, QByteArray(5000, 'x'));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"ANNA\\.mdb"_s));
        summing.Choose("mnuSaveRows");
        QTRY_COMPARE(summing.prompts.messages.size(), 3); // two pickers, the failure
        QVERIFY(summing.prompts.messages.last().contains(u"rows.csv"_s) && !summing.Shows("ErrorLabel"));
        QVERIFY(summing.form->close());
    }

    void EndsWithTheSession()
    {
        const ProgramFolder folder;
        RunningCopy copy(folder);
        QVERIFY(copy.Start());
        copy.prompts.file = folder.File(u"rows.csv"_s);
        copy.prompts.whileAsking = [&] { copy.main.EndSession(); };
        copy.Choose("mnuSummary");
        Child<QAction>(*ShownWindow(u"RepGen"_s), "mnuSaveRows")->trigger();
        QVERIFY(copy.main.HasEnded());
        QVERIFY(!folder.Has(u"rows.csv"_s));
    }
};

QTEST_MAIN(TestRepGen)
#include "tst_repgen.moc"
