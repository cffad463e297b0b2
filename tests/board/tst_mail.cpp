#include "board/Mail.h"
#include "support/ProgramFolder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Acknowledgements = QList<Poll::Acknowledgement>;
using enum Poll::Acknowledgement::Of;

namespace {

const QDateTime now(QDate(2026, 3, 7), QTime(15, 7), Qt::UTC);
const QString file = u"F"_s; // the company database's id

// A person's mail; a restart stands for a program that was killed, too.
struct Copy
{
    Copy()
    {
        folder.MakePersonal();
        Restart();
    }
    void Restart() { localDB = dao::Database::OpenDatabase(folder.File(personalFile), std::chrono::milliseconds(1)); }
    QList<QVariantList> Sql(const QString &statement) { return localDB.Select(statement, {}, u"a test"_s); }
    Poll::Request Request() { return mail.MakeRequest(u"ANNA"_s, now); }
    void Take(const QStringList &incoming, const QStringList &delivered = {}, const Acknowledgements &acknowledged = {})
    {
        Poll::News news{true, {}, {}, file, {}, delivered, acknowledged, {}};
        for (const QString &id : incoming)
            news.incoming.append({id, u"Bo"_s, id == u"blank" ? u" "_s : u"text of "_s + id});
        mail.Take(news, now);
    }
    QString Unread()
    {
        QString ids;
        Mail nextStart(localDB);
        for (const UnreadMessage &unread : nextStart.Unread())
            ids += unread.id + u' ';
        return ids;
    }

    ProgramFolder folder;
    dao::Database localDB;
    Mail mail{localDB};
};

} // namespace

class TestMail : public QObject
{
    Q_OBJECT

private slots:
    void RowsOfAnOlderFileGetIds()
    {
        Copy copy;
        copy.Sql(u"INSERT INTO MessageBuffer (\"To\", Message) VALUES ('BO', 'hi'), ('BO', ' '), (NULL, 'note')"_s);
        const QList<Poll::OutgoingMessage> outbox = copy.Request().outbox;
        QVERIFY(outbox.size() == 1 && !outbox[0].id.isEmpty());
        const Holder other(copy.localDB.Path(), Holder::Writing); // from here on nothing needs to be written any more
        QCOMPARE(copy.Request().outbox, outbox);
        copy.Take({});
    }

    void SendsOnceThroughStops()
    {
        Copy copy;
        copy.mail.Queue({u"BO"_s, u"\u00c5SE"_s}, u"hi"_s);
        const QList<Poll::OutgoingMessage> outbox = copy.Request().outbox;
        copy.Restart(); // delivered, and stopped before that was known
        QVERIFY(copy.Request().outbox == outbox && outbox[0].id != outbox[1].id);
        for (int look = 0; look < 2; ++look, copy.Restart())
            copy.Take({}, {outbox[0].id});
        QVERIFY(copy.mail.Buffer().size() == 1 && copy.mail.History().size() == 1);
        const Acknowledgements waiting{{file, outbox[0].id, Receipt}};
        copy.Take({}, {}, {{u"another"_s, outbox[0].id, Receipt}, {file, outbox[0].id, Message}});
        QCOMPARE(copy.Request().acknowledgements, waiting);
        copy.Take({}, {}, waiting);
        // A row changed while its message is on the way is another message; one that was only confirmed is not.
        BufferRow row = copy.mail.Buffer()[0];
        copy.mail.ChangeBufferRow(row);
        QCOMPARE(copy.Request().outbox, outbox.sliced(1));
        row.to = u"\u00c5se"_s; // for the table's own comparison no difference
        copy.mail.ChangeBufferRow(row);
        copy.Take({}, {outbox[1].id});
        QVERIFY(copy.mail.Buffer() == QList{row} && copy.Request().outbox[0].id != outbox[1].id);
        QCOMPARE(copy.Request().acknowledgements, (Acknowledgements{{file, outbox[1].id, Receipt}}));
    }

    void AMessageToSeveralIsOneRowOfTheHistory()
    {
        Copy copy;
        copy.mail.Queue({u"BO"_s, u"EVA"_s, u"IDA"_s}, u"cake"_s);
        const QList<Poll::OutgoingMessage> outbox = copy.Request().outbox;
        copy.Take({}, {outbox[0].id, outbox[1].id});
        copy.Take({}, {outbox[1].id}); // an answer that came twice
        copy.mail.Queue({u"BO"_s}, u"to one"_s);
        copy.Take({}, {copy.Request().outbox[1].id});
        copy.Take({}, {outbox[2].id}); // the file was away in between
        const QList<HistoryRow> history = copy.mail.History();
        QCOMPARE(history.size(), 2);
        QVERIFY(history[0].person == u"BO" && history[0].reached == 0);
        QVERIFY(history[1].person == u"All" && history[1].reached == 3 && history[1].message == u"cake");
    }

    void TakesInOnceThroughStops()
    {
        Copy copy;
        for (int look = 0; look < 2; ++look, copy.Restart()) // before the company database got rid of them
            copy.Take({u"1"_s, u"2"_s, u"blank"_s});
        const Acknowledgements waiting{{file, u"1"_s, Message}, {file, u"2"_s, Message}, {file, u"blank"_s, Message}};
        QVERIFY(copy.Unread() == u"1 2 " && copy.Request().acknowledgements == waiting);
        copy.mail.MarkRead(u"1"_s);
        copy.Sql(u"DELETE FROM MessageHistory WHERE MessageId = '2'"_s); // as the trimming may
        copy.Take({u"1"_s, u"2"_s});
        QVERIFY(copy.Unread().isEmpty());
        copy.Sql(u"INSERT INTO MessageBuffer (\"To\", Message, MessageId) VALUES ('ANNA', 'to myself', 'own')"_s);
        copy.Take({u"own"_s}, {u"own"_s}, waiting);
        QVERIFY(copy.Unread() == u"own " && copy.mail.History().size() == 3);
    }

    void KeepsTheNewestAndTheUnread()
    {
        Copy copy;
        copy.Sql(u"INSERT INTO MessageHistory (MessageId, Received, Unread) WITH RECURSIVE n(i) AS "
                 "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 250) SELECT i, -1, -(i IN (7, 100)) FROM n"_s);
        copy.Take({u"new"_s});
        QCOMPARE(copy.Unread(), u"7 100 new "_s);
        QVERIFY(copy.mail.History().size() == 200 && copy.mail.History()[0].message == u"text of new");
        const QList<QVariantList> read = copy.Sql(u"SELECT min(Id), count(*) FROM MessageHistory WHERE Unread = 0"_s);
        QCOMPARE(read[0], (QVariantList{50, 200}));
    }
};

QTEST_GUILESS_MAIN(TestMail)

#include "tst_mail.moc"
