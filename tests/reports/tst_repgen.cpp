#include "platform/dao/DateValue.h"
#include "platform/forms/ChartWidget.h"
#include "platform/forms/ControlTypes.h"
#include "reports/Printing.h"
#include "reports/RepGen.h"
#include "support/NoTexts.h"
#include "support/RunningCopy.h"
#include "texts/Common.h"

#include <QAction>
#include <QClipboard>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString timeFile = u"ANNA.mdb"_s;

class NotedPrinting : public Printing
{
public:
    bool hasPrinter = true;
    QStringList header; // of the last preview
    QString suggested;

    bool HasPrinter() const override { return hasPrinter; }
    void Preview(QWidget *, const PrintedTimesheet &timesheet, const QString &, QString &printerName) override
    {
        header = timesheet.header;
        suggested = std::exchange(printerName, u"Laser"_s);
    }
};

// The window on the screen, on a time database with three stemps in February and March.
struct Summing
{
    explicit Summing(FormServices *stored = nullptr)
    {
        folder.Copy(u"Blank.mdb"_s, timeFile);
        Add(u"A1"_s, QDate(2026, 2, 27), 90);
        Add(u"A1"_s, QDate(2026, 3, 2), 67);
        Add(u"B2"_s, QDate(2026, 3, 2), 30);
        Open(stored ? *stored : texts);
    }

    void Add(const QString &job, const QDate &day, int minutes) const
    {
        const QDateTime in = dao::WallTime(day, QTime(8, 0));
        folder.Sql(timeFile, u"INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) VALUES (?, ?, ?, ?)"_s,
                   {job, u"Job %1"_s.arg(job), dao::ToDays(in), dao::ToDays(in.addSecs(60 * minutes))});
    }
    void Open(FormServices &services)
    {
        form = std::make_unique<RepGen>(
            services, prompts, printing,
            RepGenParts{folder.File(timeFile), Rounding::Quarters, u"ANNA"_s, time, [this] { return unsaved; }});
        form->Load();
        form->show();
        opened = QTest::qWaitForWindowActive(form.get());
    }
    template <class T> T *Find(const char *name) const { return form->findChild<T *>(QLatin1String(name)); }
    void Press(const char *button) const { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    void Choose(const char *menu) const { Find<QAction>(menu)->trigger(); }
    QString Text(const char *label) const { return Find<QLabel>(label)->text(); }
    bool Shows(const char *label) const { return Find<QLabel>(label)->isVisible(); }
    void SetDates(const QDate &from, const QDate &to) const
    {
        Find<QDateEdit>("DTPickerFrom")->setDate(from);
        Find<QDateEdit>("DTPickerTo")->setDate(to);
    }
    // What the grid shows, once the totals say that it is of these dates.
    QStringList Rows(const QDate &from, const QDate &to) const
    {
        const QString format = Find<QDateEdit>("DTPickerTo")->displayFormat();
        const QString dates = u"From %1 to %2"_s.arg(from.toString(format), to.toString(format));
        const bool summed = QTest::qWaitFor([&] { return Text("TotalsLabel").endsWith(dates); });
        const auto *grid = Find<QTableView>("SummaryGrid");
        QStringList rows;
        for (int row = 0; summed && row < grid->model()->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < grid->model()->columnCount(); ++column)
                if (!grid->isColumnHidden(column))
                    cells.append(grid->model()->index(row, column).data().toString());
            rows.append(cells.join(u' '));
        }
        return summed ? rows : QStringList(u"no sums of these dates"_s);
    }
    const DataControl &SumData() const
    {
        const auto found = std::find_if(form->Controls().begin(), form->Controls().end(),
                                        [](const auto &control) { return control->Name() == u"SumData"_s; });
        return static_cast<const DataControl &>(**found);
    }

    const ProgramFolder folder;
    SettableTime time;
    AnsweredPrompts prompts;
    NotedPrinting printing;
    NoTexts texts;
    int unsaved = 0;
    std::unique_ptr<RepGen> form;
    bool opened = false;
};

const QDate today(2026, 3, 2); // a Monday
const QDate march1(2026, 3, 1);
const QDate february1(2026, 2, 1);
const QDate february28(2026, 2, 28);

QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestRepGen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void SumsByItsButtons()
    {
        Summing summing;
        QVERIFY(summing.opened);
        QTest::keyClick(summing.form->focusWidget(), Qt::Key_Return);
        QCOMPARE(summing.Rows(today, today), QStringList({u"A1 1.12 1.00 Job A1"_s, u"B2 0.50 0.50 Job B2"_s}));
        QVERIFY(summing.Text("TotalsLabel").startsWith(u"Hours: 1.62    Rounded: 1.50    Difference: -0.12 "_s));
        QCOMPARE(summing.Find<ChartWidget>("MSChart")->Bars().size(), 2);
        QCOMPARE(summing.SumData().DatabaseName, summing.folder.File(timeFile));
        QVERIFY(summing.SumData().RecordSource.contains(u"#3/2/2026 23:59:59#"_s));

        summing.unsaved = 3;
        summing.SetDates(february1, today);
        summing.Press("DailyButton");
        QCOMPARE(summing.Rows(february1, today),
                 QStringList(
                     {u"27 A1 1.50 1.50 Job A1 02"_s, u"02 A1 1.12 1.00 Job A1 03"_s, u"02 B2 0.50 0.50 Job B2 03"_s}));
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
        QVERIFY(summing.opened);
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

        summing.prompts.file = summing.folder.File(u"sums.csv"_s);
        summing.Choose("mnuSaveCsv");
        QVERIFY(summing.prompts.suggested.endsWith(u"/ANNA 2026-02-01 to 2026-02-28.csv"_s));
        QVERIFY(Content(summing.prompts.file).contains("A1,1.5,1.5,Job A1"));
        summing.prompts.file = summing.folder.File(u"rows.csv"_s);
        summing.Choose("mnuSaveRows");
        QVERIFY(summing.prompts.suggested.endsWith(u"/ANNA 2026-02-01 to 2026-02-28 rows.csv"_s));
        QTRY_VERIFY(Content(summing.prompts.file).contains("A1,Job A1,2026-02-27T08:00:00,2026-02-27T09:30:00"));
        QVERIFY(!Content(summing.prompts.file).contains("2026-03"));

        summing.printing.hasPrinter = false;
        summing.prompts.file = summing.folder.File(u"no such folder/sheet.pdf"_s);
        summing.Press("PrintCommand");
        QCOMPARE(summing.prompts.messages.size(), 5); // two pickers, the question, a picker, the failure
        QVERIFY(summing.prompts.messages.last().contains(u"sheet.pdf"_s));
        summing.prompts.file = summing.folder.File(u"sheet.pdf"_s);
        summing.Choose("mnuSavePdf");
        QVERIFY(Content(summing.prompts.file).startsWith("%PDF"));
    }

    void DoesNothingBeforeASum()
    {
        Summing summing;
        QVERIFY(summing.opened);
        QGuiApplication::clipboard()->setText(u"kept"_s);
        for (const char *button : {"PrintCommand", "ClipCommand"}) {
            summing.Find<QPushButton>(button)->setEnabled(true); // it is not the look alone
            summing.Press(button);
        }
        summing.Choose("mnuSavePdf");
        summing.Choose("mnuSaveCsv");
        QCOMPARE(QGuiApplication::clipboard()->text(), u"kept"_s);
        QVERIFY(summing.printing.header.isEmpty() && summing.prompts.messages.isEmpty());
        summing.prompts.file = summing.folder.File(u"rows.csv"_s);
        summing.Choose("mnuSaveRows"); // those of the dates shown
        QTRY_COMPARE(Content(summing.prompts.file).count("2026-03-02T08:00:00"), 2);
    }

    void KeepsDatesWidthsAndPrinter()
    {
        const ProgramFolder folder;
        folder.Copy(u"blank Stemp.mdb"_s, u"ANNA Stemp.mdb"_s);
        dao::Database localDB = dao::Database::OpenDatabase(folder.File(u"ANNA Stemp.mdb"_s));
        TextState state;
        AnsweredPrompts prompts;
        Common store(localDB, state, prompts);
        Summing summing(&store);
        QVERIFY(summing.opened);
        QCOMPARE(summing.Find<QDateEdit>("DTPickerFrom")->date(), today);
        QCOMPARE(summing.Find<QDateEdit>("DTPickerTo")->date(), today);
        summing.SetDates(february1, february28);
        summing.Find<QTableView>("SummaryGrid")->setColumnWidth(0, 77); // not shown for jobs
        summing.Press("UpdateButton");
        QCOMPARE(summing.Rows(february1, february28).size(), 1);
        summing.Press("PrintCommand");
        summing.form->close();

        summing.time.Advance(86400);
        summing.Open(store);
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
        QVERIFY(summing.opened);
        auto *update = summing.Find<QPushButton>("UpdateButton");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"ANNA\\.mdb"_s));
        {
            dao::Database other = dao::Database::OpenDatabase(summing.folder.File(timeFile));
            other.Execute(u"BEGIN EXCLUSIVE"_s, {}, u"holding the file"_s);
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
        QVERIFY(summing.opened);
        summing.prompts.file = summing.folder.File(u"rows.csv"_s);
        {
            dao::Database other = dao::Database::OpenDatabase(summing.folder.File(timeFile));
            other.Execute(u"BEGIN EXCLUSIVE"_s, {}, u"holding the file"_s);
            summing.Choose("mnuSaveRows");
            QVERIFY(!summing.form->close());
            QVERIFY(summing.form->IsLoaded() && summing.Shows("SavingLabel"));
        }
        QTRY_VERIFY_WITH_TIMEOUT(Content(summing.prompts.file).contains("A1,Job A1,2026-03-02T08:00:00,"), 30000);
        QTRY_VERIFY(!summing.Shows("SavingLabel"));

        QFile damaged(summing.folder.File(timeFile));
        QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write(QByteArray(5000, 'x')) && damaged.flush());
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
        WhenShown window(u"RepGen"_s, [](QWidget &form) { form.findChild<QAction *>(u"mnuSaveRows"_s)->trigger(); });
        copy.Find<QAction>(u"mnuSummary"_s)->trigger();
        QVERIFY(window.done);
        QVERIFY(copy.main.HasEnded());
        QVERIFY(!folder.Has(u"rows.csv"_s));
    }
};

QTEST_MAIN(TestRepGen)
#include "tst_repgen.moc"
