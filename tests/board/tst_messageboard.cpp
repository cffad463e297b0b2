#include "board/Board.h"
#include "board/Message.h"
#include "board/MessageBoard.h"
#include "board/PersonalStatus.h"
#include "board/Status.h"
#include "platform/dao/Database.h"
#include "support/AtWindow.h"

#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime now = SettableTime().Now();

const std::vector<Board::Row> people{{u"ANNA"_s, -1, u"here"_s, now, {}, true, {}},
                                     {u"Bjørn"_s, 0, {}, now, {}, true, {}},
                                     {u"GONE"_s, 0, {}, {}, UnreadMessage{u"1"_s, u"GONE"_s, u"bye"_s}, false, {}}};

struct ShownBoard : AtWindow
{
    explicit ShownBoard(const std::vector<Board::Row> &rows = people)
    {
        Open(form);
        form.ShowRows(rows, now);
    }

    MessageBoard form{texts};
    QTableView &grid{*form.findChild<QTableView *>(u"UserGrid"_s)};
};

// Anna's own database and her colleagues; the window, open to write to one of them.
struct Desk : AtWindow
{
    explicit Desk(const QString &recipient = {}, const QString &message = {})
    {
        folder.MakePersonal();
        localDB = dao::Database::OpenDatabase(folder.File(personalFile), std::chrono::milliseconds(1));
        board.UserNames = QStringList{u"ANNA"_s, u"BO"_s, u"\u00c5SE"_s};
        board.OwnName = u"Anna"_s;
        Show(recipient);
        TextBox()->setText(message);
    }

    void Show(const QString &recipient)
    {
        Use(form);
        form.Load();
        form.Begin(recipient);
        form.show();
    }
    QLineEdit *TextBox() const { return Box("MessageText"); }
    QTableView *Grid() const { return Find<QTableView>("MessageGrid"); }
    bool SaysSomething() const { return !Text("StatusLabel").isEmpty(); }
    QLineEdit *Edit(int row, int column) const
    {
        Grid()->setCurrentIndex(Grid()->model()->index(row, column));
        Grid()->edit(Grid()->currentIndex());
        return Editor();
    }
    QLineEdit *Editor() const { return qobject_cast<QLineEdit *>(Grid()->indexWidget(Grid()->currentIndex())); }
    QString Sent(const QString &text) const { return ComposedMessage(text, time.Now()); }
    QStringList Outbox()
    {
        return localDB.Texts(u"SELECT ifnull(\"To\", '') || '|' || Message FROM MessageBuffer ORDER BY Id"_s, {});
    }

    dao::Database localDB;
    Board board;
    Message form{texts, prompts, localDB, board, time};
};

} // namespace

// The board, and the windows that open from it.
class TestMessageBoard : public QObject
{
    Q_OBJECT

private slots:
    void TipsTellInWordsAndWithoutMarkup()
    {
        BoardModel model({u"User"_s, u"Status"_s});
        const auto words = [&model](int state, int seconds) {
            model.SetRows({{u"a <b>"_s, state, u"<i>x"_s, now, {}, true, {}}}, now.addSecs(seconds));
            return model.index(0, 0).data(Qt::AccessibleTextRole).toString();
        };
        const QString since = u", Nothing heard since "_s + QLocale().toString(now, QLocale::ShortFormat);
        QCOMPARE(words(-1, 180), u"a <b>, Stemped in"_s);
        QCOMPARE(words(0, 181), u"a <b>, Stemped out"_s + since);
        QCOMPARE(words(1, 181), u"a <b>, Program closed"_s);
        const QString tip = model.index(0, 0).data(Qt::ToolTipRole).toString();
        QVERIFY(tip.contains(u"a &lt;b&gt;<br"_s) && tip.contains(u"&lt;i&gt;x"_s));
    }

    void TheCurrentCellStaysOnItsUser()
    {
        std::vector<Board::Row> rows;
        for (int i = 100; i < 150; ++i)
            rows.push_back({QString::number(i), 0, {}, {}, {}, true, {}});
        ShownBoard board(rows);
        board.grid.setCurrentIndex(board.grid.model()->index(40, 0));
        board.grid.verticalScrollBar()->setValue(10); // the person looks elsewhere
        rows.erase(rows.begin());
        board.form.ShowRows(rows, now);
        QCOMPARE(board.grid.currentIndex().data(), u"140"_s);
        QCOMPARE(board.grid.verticalScrollBar()->value(), 10);
    }

    void ClicksAndKeys()
    {
        ShownBoard board;
        QStringList seen;
        const auto click = [&seen](int row, int column) { seen.append(u"%1,%2"_s.arg(row).arg(column)); };
        connect(&board.form, &MessageBoard::UserGridClicked, this, click);
        connect(&board.form, &MessageBoard::DeletePressed, this, [&seen](const QString &name) { seen.append(name); });
        for (const auto &[row, column] : {std::pair{2, 0}, {1, 1}, {1, 0}}) {
            ClickCell(board.grid, row, column);
            QTest::keyClick(board.form.focusWidget(), Qt::Key_Delete);
        }
        QTest::keyClick(board.form.focusWidget(), Qt::Key_Return);
        QTest::mouseClick(board.grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, {40, 5});
        QCOMPARE(seen.join(u' '), u"2,0 1,1 1,0 Bjørn 1,0 -1,0"_s);
    }

    void Sends_data()
    {
        QTest::addColumn<QStringList>("recipients"); // none: refused
        QTest::newRow(" \u00c5se ") << QStringList{u"\u00c5SE"_s};
        for (const char *everybody : {"all", "User"})
            QTest::newRow(everybody) << QStringList{u"BO"_s, u"\u00c5SE"_s};
        for (const char *refused : {"anna", "Carl", " "})
            QTest::newRow(refused) << QStringList();
    }
    void Sends()
    {
        QFETCH(QStringList, recipients);
        Desk desk(QString::fromUtf8(QTest::currentDataTag()), u" tea? \n now "_s);
        QStringList expected;
        for (const QString &recipient : recipients)
            expected.append(recipient + u'|' + desk.Sent(u"tea?   now"_s));
        desk.Press("SendButton");
        QCOMPARE(desk.Outbox(), expected);
        QVERIFY(desk.form.IsLoaded() && desk.SaysSomething() && !desk.TextBox()->text().isEmpty());
        desk.Press("OKButton"); // sends nothing more, and stays when nothing was sent
        QCOMPARE(desk.Outbox(), expected);
        QCOMPARE(desk.form.IsLoaded(), recipients.isEmpty());
        desk.form.hide();
        desk.Show(QString::fromUtf8(QTest::currentDataTag()));
        QTest::keyClicks(desk.form.focusWidget(), u"tea?   now"_s); // the empty box
        QTest::keyClick(desk.TextBox(), Qt::Key_Return);
        QCOMPARE(desk.Outbox(), expected + expected);
    }

    void AnAccessKeyEndsACompletion()
    {
        Desk desk(u"Bo"_s);
        auto *box = desk.Find<QComboBox>("MessageTo");
        box->setFocus();
        box->lineEdit()->selectAll();
        QTest::keyClicks(box, u"a"_s);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(desk.form.windowHandle(), Qt::Key_M, Qt::AltModifier); // "&Message"
        QVERIFY(!QApplication::activePopupWidget());
        QTest::keyClicks(desk.form.focusWidget(), u"tea"_s);
        QCOMPARE(box->currentText() + u'|' + desk.TextBox()->text(), u"a|tea"_s);
    }

    void TellsOfWhatDoesNotFit()
    {
        Desk desk(u"Bo"_s);
        const QString fits(Poll::longestMessage - desk.Sent({}).size() - 1, u'x');
        QGuiApplication::clipboard()->setText(fits + u"\U0001F600 and more"_s);
        QTest::keyClick(desk.TextBox(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(desk.SaysSomething());
        desk.Press("OKButton");
        QCOMPARE(desk.Outbox(), QStringList(u"BO|"_s + desk.Sent(fits))); // no half character
    }

    void KeepsWhatCantBeStored()
    {
        Desk desk(u"Bo"_s, u"tea"_s);
        Holder other(desk.localDB.Path());
        desk.Press("OKButton");
        desk.Edit(0, 1)->setText(u"in the grid"_s);
        desk.Press("OKButton");
        QTRY_VERIFY(desk.Editor()); // for another try
        other.LetGo();
        QVERIFY(!desk.form.close() && desk.prompts.messages.size() == 1); // and back
        desk.form.Unload();                                               // the session ends
        QCOMPARE(desk.Outbox(), QStringList({u"|in the grid"_s, u"|tea"_s}));
    }

    void EditsTheOutbox()
    {
        Desk desk(u"Bo"_s);
        Mail mail(desk.localDB);
        mail.Queue({u"BO"_s, u"\u00c5SE"_s}, u"tea"_s);
        desk.form.Refresh();
        desk.Edit(2, 1)->setText(u"later"_s); // in the empty row
        QTest::keyClick(desk.Editor(), Qt::Key_Return);
        QTRY_COMPARE(desk.Outbox().value(2), u"|later"_s);
        QTest::keyClick(desk.Edit(2, 1), Qt::Key_Escape); // neither key is for a button
        desk.Edit(1, 0)->setText(u"carl"_s);              // while this row and the one before it are sent
        for (int row = 0; row < 2; ++row)
            mail.DeleteBufferRow(mail.Buffer().first().id);
        desk.form.Refresh();
        QTest::keyClick(desk.Editor(), Qt::Key_Return);
        QTRY_COMPARE(desk.Grid()->model()->rowCount(), 3);
        QCOMPARE(desk.Outbox(), QStringList({u"|later"_s, u"CARL|tea"_s}));
        QTest::keyClick(desk.Grid(), Qt::Key_Delete);
        QCOMPARE(desk.Outbox(), QStringList(u"|later"_s));
    }

    void SetsTheStatus()
    {
        Desk desk;
        AddPersonalStatus(desk.localDB, u"Lunch"_s);
        Status form(desk.texts, desk.localDB, u"Bo"_s, u"here"_s);
        auto *box = form.findChild<QComboBox *>();
        AtWindow at;
        at.Open(form);
        QTest::keyClicks(box, u"lunch"_s); // in place of the comment
        at.Press("SaveButton");
        QCOMPARE(ReadPersonalStatus(desk.localDB), QStringList({u"Lunch"_s, u"lunch"_s}));
        at.Press("RemoveButton");
        at.Press("RemoveButton"); // it is not in the list any more
        QCOMPARE(ReadPersonalStatus(desk.localDB), QStringList(u"Lunch"_s));
        QVERIFY(box->count() == 1 && box->currentText() == u"lunch");
        box->setEditText(QString(79, u'x') + u"\U0001F600"_s);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(form.IsAccepted() && !form.IsLoaded());
        QCOMPARE(form.Text(), QString(79, u'x'));
    }
};

QTEST_MAIN(TestMessageBoard)
#include "tst_messageboard.moc"
