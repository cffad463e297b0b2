#include "board/MessageBoard.h"
#include "support/AtWindow.h"
#include "support/RunningCopy.h"

#include <QCheckBox>
#include <QComboBox>
#include <QStyledItemDelegate>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

namespace {

// People who share a company file, each with a running copy in a folder of its own.
class Team
{
public:
    explicit Team(const QStringList &logins)
    {
        company.MakeJobs(companyFile);
        for (const QString &login : logins)
            folders[login] = std::make_unique<ProgramFolder>();
        for (const QString &login : logins)
            Start(login);
        Poll(logins); // so that each sees the others
    }
    RunningCopy &operator[](const QString &login) { return *copies.at(login); }

    void Start(const QString &login)
    {
        copies[login] = std::make_unique<RunningCopy>(*folders[login]);
        RunningCopy &copy = *copies[login];
        copy.system.login = login;
        const bool isNew = !folders[login]->Has(login.toUpper() + u".mdb"_s);
        copy.Start();
        if (isNew)
            copy.Accept(RunningCopy::TypePath(company.File(companyFile)));
    }
    void Stop(const QString &login) { copies.erase(login); }
    void Poll(const QStringList &logins)
    {
        for (const QString &login : logins)
            (*this)[login].Poll();
    }

    const ProgramFolder company;
    std::map<QString, std::unique_ptr<ProgramFolder>> folders;
    std::map<QString, std::unique_ptr<RunningCopy>> copies;
};

QTableView *Grid(RunningCopy &copy)
{
    return Child<QTableView>(copy.main.Desk()->Window(), "UserGrid");
}

// The board, "name=second column" for each row.
QStringList Shown(RunningCopy &copy)
{
    return ShownRows(*Grid(copy), u"="_s);
}

QString Words(RunningCopy &copy, int row)
{
    return Grid(copy)->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
}

// Clicks a name and sends what is typed in the window that opens.
void Send(RunningCopy &copy, int row, const QString &text, const char *button = "OKButton")
{
    ClickCell(*Grid(copy), row, 0);
    const QPointer<QWidget> message = ShownWindow(u"Message"_s);
    QVERIFY(message);
    Child<QLineEdit>(*message, "MessageText")->setText(text);
    Click(*message, button);
    if (message->isVisible())
        Click(*message, "OKButton");
    QTRY_VERIFY(!message);
}

// Whether the dialog opened.
bool SetStatus(RunningCopy &copy, int row, const QString &text)
{
    ClickCell(*Grid(copy), row, 1);
    const QPointer<QWidget> status = ShownWindow(u"Status"_s);
    if (!status)
        return false;
    Child<QComboBox>(*status, "StatusCombo")->setCurrentText(text);
    Click(*status, "SendButton");
    return QTest::qWaitFor([&] { return !status; });
}

QString Notice(RunningCopy &copy)
{
    return copy.main.Desk()->Window().Notice();
}

} // namespace

class TestBoardDesk : public QObject
{
    Q_OBJECT

private slots:
    void ShowsStatesAndStatuses()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        RunningCopy &bo = team[u"bo"_s];
        QTRY_VERIFY(anna.main.Desk()->Window().isVisible());
        QCOMPARE(Shown(anna), QStringList({u"ANNA="_s, u"BO="_s}));
        bo.main.Window()->StempIn(u"K-12 : Kolding"_s);
        QVERIFY(SetStatus(bo, 1, QString(100, u'x')));
        anna.Poll();
        QCOMPARE(anna.program.board.Rows()[1].state, -1);
        QCOMPARE(Shown(anna)[1], u"BO="_s + QString(80, u'x'));
        QCOMPARE(Words(anna, 1), u"BO, Stemped in since 09:00 on K-12 : Kolding"_s);
        bo.Accept([](QWidget &window) { Child<QCheckBox>(window, "ShowJobCheck")->click(); });
        anna.Poll();
        QCOMPARE(Words(anna, 1), u"BO, Stemped in"_s);

        QVERIFY(!SetStatus(anna, 1, u"not mine"_s));
        anna.program.options.CanSetOthersStatus = true;
        QVERIFY(SetStatus(anna, 1, u"back at 3"_s));
        bo.Poll();
        QCOMPARE(Shown(bo)[1], u"BO=back at 3"_s);
        team.Stop(u"bo"_s);
        anna.Poll();
        QCOMPARE(anna.program.board.Rows()[1].state, 1);
    }

    void DeliversToOneAndToAll()
    {
        Team team({u"anna"_s, u"bo"_s, u"eva"_s});
        RunningCopy &anna = team[u"anna"_s];
        RunningCopy &bo = team[u"bo"_s];
        Send(anna, 1, u"one"_s);
        Send(anna, 0, u"two"_s, "SendButton"); // one's own name: to all; OK after Send sends nothing more
        team.Poll({u"bo"_s, u"eva"_s});
        QCOMPARE(Shown(bo), QStringList({u"ANNA=Mon 09:00 - one"_s, u"BO="_s, u"EVA="_s}));
        QCOMPARE(Shown(team[u"eva"_s])[0], u"ANNA=Mon 09:00 - two"_s);
        QCOMPARE(Shown(anna), QStringList({u"ANNA="_s, u"BO="_s, u"EVA="_s}));

        team.Stop(u"bo"_s); // not clicked away
        team.Start(u"bo"_s);
        RunningCopy &again = team[u"bo"_s];
        QCOMPARE(Shown(again)[0], u"ANNA=Mon 09:00 - one"_s);
        QVERIFY(again.program.board.Alert);
        ClickCell(*Grid(again), 0, 1);
        QCOMPARE(Shown(again)[0], u"ANNA=Mon 09:00 - two"_s);
        ClickCell(*Grid(again), 0, 1);
        QCOMPARE(Shown(again)[0], u"ANNA="_s);
        QVERIFY(!again.program.board.Alert);
        team.Poll({u"bo"_s, u"anna"_s, u"bo"_s, u"anna"_s});
        const QString left = u"SELECT (SELECT count(*) FROM BO), count(*) FROM \":Receipts\""_s;
        QCOMPARE(team.company.Rows(companyFile, left), u"0 0"_s);
    }

    void AsksBeforeItDeletes()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        const auto press = [&](int row) {
            Grid(anna)->setCurrentIndex(Grid(anna)->model()->index(row, 0));
            QTest::keyClick(Grid(anna), Qt::Key_Delete);
        };
        press(0); // nobody deletes oneself
        anna.prompts.yes = false;
        press(1);
        QCOMPARE(anna.prompts.messages, QStringList(u"Are you sure you want to DELETE user :BO"_s));
        QCOMPARE(Shown(anna).size(), 2);
        anna.prompts.yes = true;
        press(1);
        QCOMPARE(Shown(anna), QStringList(u"ANNA="_s));
    }

    void SaysThatItIsNotCurrent()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        QCOMPARE(Notice(anna), QString());
        team.company.Sql(companyFile, u"ALTER TABLE Users RENAME TO Away"_s);
        anna.time.Advance(60);
        anna.Poll();
        QVERIFY(Notice(anna).startsWith(u"Not current since"_s));
        Send(anna, 1, u"later"_s);
        team.company.Sql(companyFile, u"ALTER TABLE Away RENAME TO Users"_s);
        team.Poll({u"anna"_s, u"bo"_s});
        QCOMPARE(Notice(anna), QString());
        QCOMPARE(Shown(team[u"bo"_s])[0], u"ANNA=Mon 09:01 - later"_s);
        QVERIFY(anna.prompts.messages.isEmpty());
    }

    void KeepsStateAndStatusUntilTheyCanBeWritten()
    {
        Team team({u"anna"_s});
        const QString company = team.company.File(companyFile);
        const QString away = team.company.File(u"away.mdb"_s);
        {
            const Holder other(company);
            QVERIFY(SetStatus(team[u"anna"_s], 0, u"lunch"_s));
            QVERIFY(Notice(team[u"anna"_s]).contains(u"status of ANNA waits"_s));
        }
        team[u"anna"_s].Poll();
        QCOMPARE(Notice(team[u"anna"_s]), QString());
        QCOMPARE(team.company.Rows(companyFile, u"SELECT Comment FROM Users"_s), u"lunch"_s);

        team.Stop(u"anna"_s);
        QVERIFY(QFile::rename(company, away));
        team.Start(u"anna"_s); // the copy of the file on this machine stands in for it
        QTRY_COMPARE(Shown(team[u"anna"_s]), QStringList(u"ANNA="_s));
        RunningCopy &again = team[u"anna"_s];
        QVERIFY(!again.Find<QAction>("mnuCreateJob")->isEnabled());
        again.main.Window()->StempIn(u"A : a"_s);
        QVERIFY(SetStatus(again, 0, u"back"_s));
        QVERIFY(QFile::rename(away, company));
        again.program.jobDatabase.LookForConfigured();
        QCOMPARE(team.company.Rows(companyFile, u"SELECT State, Comment FROM Users"_s), u"-1 back"_s);
        QVERIFY(again.program.jobDatabase.EnterpriseOn && again.prompts.messages.isEmpty());
    }

    void SaysThatItCannotWriteAndCatchesUp()
    {
        Team team({u"anna"_s, u"bo"_s});
        team.Stop(u"bo"_s);
        Holder reader(team.company.File(companyFile), Holder::Reading); // as on a drive without locks
        team.Start(u"bo"_s);
        RunningCopy &bo = team[u"bo"_s];
        QTRY_COMPARE(bo.prompts.messages.size(), 1);
        QVERIFY(bo.prompts.messages[0].contains(u"can be read, but not written"_s));
        QVERIFY(!Notice(bo).isEmpty());
        QCOMPARE(Shown(bo), QStringList({u"ANNA="_s, u"BO="_s}));
        bo.main.Window()->StempIn(u"K-12 : Kolding"_s);
        reader.LetGo();
        bo.Poll();
        QCOMPARE(Notice(bo), QString());
        QCOMPARE(team.company.Rows(companyFile, u"SELECT State FROM Users WHERE User = 'BO'"_s), u"-1"_s);
        QCOMPARE(bo.prompts.messages.size(), 1);
    }

    void KeepsWhatIsTypedWhenTheProgramEnds()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        ClickCell(*Grid(anna), 1, 0);
        Child<QLineEdit>(*ShownWindow(u"Message"_s), "MessageText")->setText(u"half a mess"_s);
        anna.Close();
        QVERIFY(anna.main.HasEnded());
        const ProgramFolder &folder = *team.folders[u"anna"_s];
        QCOMPARE(folder.Rows(personalFile, u"SELECT Message FROM MessageBuffer"_s), u"half a mess"_s);
    }

    void PollsAgainForWhatCameMeanwhile()
    {
        Team team({u"anna"_s});
        RunningCopy anna(*team.folders[u"anna"_s], SettableTime().Now(), CompanyLink::Mode::Thread);
        team.Stop(u"anna"_s);
        anna.system.login = u"anna"_s;
        anna.Start();
        JobDatabase &jobs = anna.program.jobDatabase;
        QTRY_VERIFY(!jobs.IsPolling());
        team.company.Sql(companyFile, u"INSERT INTO Users (User) VALUES ('BO')"_s);
        team.company.Sql(companyFile, u"CREATE TABLE BO (\"From\", Message)"_s);
        Holder writer(team.company.File(companyFile));
        anna.Poll(); // waits for the file
        Mail(anna.program.LocalDB).Queue({u"BO"_s}, u"hi"_s);
        anna.Poll();
        writer.LetGo();
        QTRY_COMPARE(team.company.Rows(companyFile, u"SELECT Message FROM BO"_s), u"hi"_s);
    }

    void MarksWhatIsNotSeen()
    {
        Team team({u"anna"_s});
        RunningCopy &anna = team[u"anna"_s];
        const QString evil = u"A\u202eEVIL\u0007"_s;
        team.company.Sql(companyFile, u"UPDATE Users SET Comment = ?"_s, {evil});
        team.company.Sql(companyFile, u"INSERT INTO Users (User) VALUES (?)"_s, {evil.repeated(1000)});
        anna.Poll();
        const QTableView &grid = *Grid(anna);
        const auto *cells = qobject_cast<QStyledItemDelegate *>(grid.itemDelegate());
        const QModelIndex status =
            grid.model()->index(0, 1).data() == evil ? grid.model()->index(0, 1) : grid.model()->index(1, 1);
        const QString marked = u"A\ufffdEVIL\ufffd"_s;
        QCOMPARE(status.data(), evil);
        QCOMPARE(cells->displayText(status.data(), {}), marked);
        QVERIFY(status.data(Qt::ToolTipRole).toString().contains(marked));
        QModelIndex name = status.siblingAtRow(1 - status.row()).siblingAtColumn(0);
        QVERIFY(name.data() == evil.repeated(1000) && cells->displayText(name.data(), {}).size() < 1100);
        QVERIFY(!name.data(Qt::ToolTipRole).toString().contains(u'\u202e'));
    }

    void BringsTheBoardAndTheRowOfANewMessageInSight()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        RunningCopy &bo = team[u"bo"_s];
        MessageBoard &board = bo.main.Desk()->Window();
        QTRY_VERIFY(board.isVisible() && board.IsSettled());
        const Geometry place = board.StoredGeometry();
        team.company.Sql(companyFile, u"WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 49) "
                                      "INSERT INTO Users (User) SELECT 'B' || i FROM n"_s);
        team.Poll({u"anna"_s, u"bo"_s});
        Send(anna, 41, u"one"_s);
        Grid(bo)->scrollToBottom();
        board.close();
        QVERIFY(board.isMinimized());
        bo.Poll();
        QTRY_VERIFY(!board.isMinimized() && board.IsSettled());
        QCOMPARE(board.StoredGeometry(), place);
        QVERIFY(Grid(bo)->rect().contains(Grid(bo)->visualRect(Grid(bo)->model()->index(0, 1))));
        board.showMinimized();
        bo.Poll();
        QVERIFY(board.isMinimized()); // it is not new any more
        Send(anna, 41, u"two"_s);
        bo.Poll();
        QVERIFY(!board.isMinimized()); // though it waits behind the first
        QCOMPARE(Grid(bo)->model()->index(0, 1).data(BoardModel::WaitingRole).toInt(), 1);
        board.showMinimized();
        bo.program.options.PopUpMessages = false;
        ClickCell(*Grid(bo), 0, 1);
        QVERIFY(board.isMinimized());
    }
};

QTEST_MAIN(TestBoardDesk)

#include "tst_boarddesk.moc"
