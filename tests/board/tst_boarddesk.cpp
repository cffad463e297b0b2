#include "board/MessageBoard.h"
#include "support/RunningCopy.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString companyFile = u"company.mdb"_s;

// People who share a company file, each with a running copy in a folder of its own.
class Team
{
public:
    explicit Team(const QStringList &logins)
    {
        company.Copy(u"Blank Jobs.mdb"_s, companyFile);
        for (const QString &login : logins)
            folders[login] = std::make_unique<ProgramFolder>();
        for (const QString &login : logins)
            Start(login);
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
    return copy.main.Desk()->Window().findChild<QTableView *>(u"UserGrid"_s);
}

// The board, "name=second column" for each row.
QStringList Shown(RunningCopy &copy)
{
    const QAbstractItemModel *model = Grid(copy)->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(model->index(row, 0).data().toString() + u'=' + model->index(row, 1).data().toString());
    return rows;
}

void Click(RunningCopy &copy, int row, int column)
{
    const QTableView *grid = Grid(copy);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualRect(grid->model()->index(row, column)).center());
}

// Clicks a name and sends what is typed in the window that opens.
void Send(RunningCopy &copy, int row, const QString &text, const char *button = "OKButton")
{
    WhenShown window(u"Message"_s, [&](QWidget &shown) {
        shown.findChild<QLineEdit *>(u"MessageText"_s)->setText(text);
        QTest::mouseClick(shown.findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
        QTest::mouseClick(shown.findChild<QPushButton *>(u"OKButton"_s), Qt::LeftButton);
    });
    Click(copy, row, 0);
    QVERIFY(window.done);
}

// Whether the dialog opened.
bool SetStatus(RunningCopy &copy, int row, const QString &text)
{
    WhenShown window(u"Status"_s, [&](QWidget &shown) {
        shown.findChild<QComboBox *>(u"StatusCombo"_s)->setCurrentText(text);
        QTest::mouseClick(shown.findChild<QPushButton *>(u"SendButton"_s), Qt::LeftButton);
    });
    Click(copy, row, 1);
    return window.done;
}

QString Notice(RunningCopy &copy)
{
    const QLabel *label = copy.main.Desk()->Window().findChild<QLabel *>(u"NoticeLabel"_s);
    return label->isHidden() ? QString() : label->text();
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
        anna.Poll();
        QCOMPARE(Shown(anna), QStringList({u"ANNA="_s, u"BO="_s}));
        bo.main.Window()->StempIn(u"K-12 : Kolding"_s);
        QVERIFY(SetStatus(bo, 1, QString(100, u'x')));
        anna.Poll();
        QCOMPARE(anna.program.board.Rows()[1].state, -1);
        QCOMPARE(Shown(anna)[1], u"BO="_s + QString(80, u'x'));

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
        anna.Poll();
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
        Click(again, 0, 1);
        QCOMPARE(Shown(again)[0], u"ANNA=Mon 09:00 - two"_s);
        Click(again, 0, 1);
        QCOMPARE(Shown(again)[0], u"ANNA="_s);
        QVERIFY(!again.program.board.Alert);
        team.Poll({u"bo"_s, u"anna"_s, u"bo"_s, u"anna"_s});
        QCOMPARE(team.company.Sql(companyFile, u"SELECT (SELECT count(*) FROM BO), (SELECT count(*) FROM EVA), "
                                               "(SELECT count(*) FROM \":Receipts\")"_s),
                 QList<QVariantList>({{0, 1, 0}}));
    }

    void AsksBeforeItDeletes()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        anna.Poll();
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
        anna.Poll();
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

    // The copy of the file on this machine stands in for it then.
    void TakesNoStatusThatNobodyWouldSee()
    {
        Team team({u"anna"_s});
        team.Stop(u"anna"_s);
        QVERIFY(QFile::rename(team.company.File(companyFile), team.company.File(u"away.mdb"_s)));
        team.Start(u"anna"_s);
        RunningCopy &anna = team[u"anna"_s];
        QTRY_COMPARE(Shown(anna), QStringList(u"ANNA="_s));
        anna.prompts.messages.clear();
        SetStatus(anna, 0, u"lunch"_s);
        QCOMPARE(anna.prompts.messages.size(), 1);
        QVERIFY(anna.prompts.messages[0].startsWith(u"The company database is not there"_s));
    }

    void SaysThatItCannotWriteAndCatchesUp()
    {
        Team team({u"anna"_s, u"bo"_s});
        team.Stop(u"bo"_s);
        dao::Database reader = dao::Database::OpenDatabase(team.company.File(companyFile));
        reader.Execute(u"BEGIN"_s, {}, u"a test"_s);
        reader.Select(u"SELECT * FROM Users"_s, {},
                      u"a test"_s); // from now on no commit gets through, as on a drive without locks
        team.Start(u"bo"_s);
        RunningCopy &bo = team[u"bo"_s];
        QTRY_COMPARE(bo.prompts.messages.size(), 1);
        QVERIFY(bo.prompts.messages[0].contains(u"can be read, but not written"_s));
        QVERIFY(!Notice(bo).isEmpty());
        QCOMPARE(Shown(bo), QStringList({u"ANNA="_s, u"BO="_s}));
        bo.main.Window()->StempIn(u"K-12 : Kolding"_s);
        reader.Close();
        bo.Poll();
        QCOMPARE(Notice(bo), QString());
        QCOMPARE(team.company.Sql(companyFile, u"SELECT State FROM Users WHERE User = 'BO'"_s),
                 QList<QVariantList>({{-1}}));
        QCOMPARE(bo.prompts.messages.size(), 1);
    }

    void KeepsWhatIsTypedWhenTheProgramEnds()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        anna.Poll();
        WhenShown window(u"Message"_s, [&](QWidget &shown) {
            shown.findChild<QLineEdit *>(u"MessageText"_s)->setText(u"half a mess"_s);
            anna.Close();
        });
        Click(anna, 1, 0);
        QVERIFY(anna.main.HasEnded());
        QCOMPARE(team.folders[u"anna"_s]->Sql(u"ANNA Stemp.mdb"_s, u"SELECT Message FROM MessageBuffer"_s),
                 QList<QVariantList>({{u"half a mess"_s}}));
    }

    void BringsAMinimisedBoardBackForANewMessageOnly()
    {
        Team team({u"anna"_s, u"bo"_s});
        RunningCopy &anna = team[u"anna"_s];
        RunningCopy &bo = team[u"bo"_s];
        QWidget &board = bo.main.Desk()->Window();
        QTRY_VERIFY(board.isVisible());
        anna.Poll();
        Send(anna, 1, u"one"_s);
        board.showMinimized();
        bo.Poll();
        QVERIFY(!board.isMinimized());
        board.showMinimized();
        bo.Poll();
        QVERIFY(board.isMinimized()); // it is not new any more
        Send(anna, 1, u"two"_s);
        bo.Poll();
        QVERIFY(board.isMinimized()); // waits for the first
        bo.program.options.PopUpMessages = false;
        Click(bo, 0, 1);
        QVERIFY(board.isMinimized());
    }
};

QTEST_MAIN(TestBoardDesk)

#include "tst_boarddesk.moc"
