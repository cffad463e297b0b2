#include "board/Board.h"
#include "board/Message.h"
#include "board/PersonalStatus.h"
#include "board/Status.h"
#include "platform/dao/Database.h"
#include "support/AnsweredPrompts.h"
#include "support/NoTexts.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// Anna's own database and her colleagues; the window, open to write to one of them.
struct Desk
{
    explicit Desk(const QString &recipient = {}, const QString &message = {})
    {
        folder.Copy(u"blank Stemp.mdb"_s, u"ANNA Stemp.mdb"_s);
        localDB = dao::Database::OpenDatabase(folder.File(u"ANNA Stemp.mdb"_s), std::chrono::milliseconds(1));
        board.UserNames = QStringList{u"ANNA"_s, u"BO"_s, u"\u00c5SE"_s};
        board.OwnName = u"Anna"_s;
        Show(recipient);
        Text()->setText(message);
    }

    void Show(const QString &recipient)
    {
        form.Load();
        form.Begin(recipient);
        form.show();
    }
    QLineEdit *Text() const { return form.findChild<QLineEdit *>(u"MessageText"_s); }
    QTableView *Grid() const { return form.findChild<QTableView *>(u"MessageGrid"_s); }
    QString Said() const { return form.findChild<QLabel *>(u"StatusLabel"_s)->text(); }
    void Press(const QString &name) { QTest::mouseClick(form.findChild<QPushButton *>(name), Qt::LeftButton); }
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

    ProgramFolder folder;
    dao::Database localDB;
    SettableTime time;
    AnsweredPrompts prompts;
    NoTexts texts;
    Board board;
    Message form{texts, prompts, localDB, board, time};
};

} // namespace

class TestMessage : public QObject
{
    Q_OBJECT

private slots:
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
        desk.Press(u"SendButton"_s);
        QCOMPARE(desk.Outbox(), expected);
        QVERIFY(desk.form.IsLoaded() && !desk.Said().isEmpty() && !desk.Text()->text().isEmpty());
        desk.Press(u"OKButton"_s); // sends nothing more, and stays when nothing was sent
        QCOMPARE(desk.Outbox(), expected);
        QCOMPARE(desk.form.IsLoaded(), recipients.isEmpty());
        desk.form.hide();
        desk.Show(QString::fromUtf8(QTest::currentDataTag()));
        QTest::keyClicks(desk.form.focusWidget(), u"tea?   now"_s); // the empty box
        QTest::keyClick(desk.Text(), Qt::Key_Return);
        QCOMPARE(desk.Outbox(), expected + expected);
    }

    void TellsOfWhatDoesNotFit()
    {
        Desk desk(u"Bo"_s);
        const QString fits(longestMessage - desk.Sent({}).size() - 1, u'x');
        QGuiApplication::clipboard()->setText(fits + u"\U0001F600 and more"_s);
        QTest::keyClick(desk.Text(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(!desk.Said().isEmpty());
        desk.Press(u"OKButton"_s);
        QCOMPARE(desk.Outbox(), QStringList(u"BO|"_s + desk.Sent(fits))); // no half character
    }

    void KeepsWhatCantBeStored()
    {
        Desk desk(u"Bo"_s, u"tea"_s);
        dao::Database other = dao::Database::OpenDatabase(desk.localDB.Path());
        other.Execute(u"BEGIN EXCLUSIVE"_s, {}, {});
        desk.Press(u"OKButton"_s);
        desk.Edit(0, 1)->setText(u"in the grid"_s);
        desk.Press(u"OKButton"_s);
        QTRY_VERIFY(desk.Editor()); // for another try
        other.Close();
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
        form.Load();
        form.show();
        QTest::keyClicks(box, u"lunch"_s); // in place of the comment
        QTest::mouseClick(form.findChild<QPushButton *>(u"SaveButton"_s), Qt::LeftButton);
        QCOMPARE(ReadPersonalStatus(desk.localDB), QStringList({u"Lunch"_s, u"lunch"_s}));
        box->setEditText(QString(79, u'x') + u"\U0001F600"_s);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(form.IsAccepted() && !form.IsLoaded());
        QCOMPARE(form.Text(), QString(79, u'x'));
    }
};

QTEST_MAIN(TestMessage)
#include "tst_message.moc"
