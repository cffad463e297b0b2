#include "board/Board.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 3, 7), QTime(15, 7), Qt::UTC);

// Users with the comment "c".
QList<Presence::UserRow> Users(const QStringList &names)
{
    QList<Presence::UserRow> users;
    for (const QString &name : names)
        users.append({name, {}, 0, u"c"_s, {}, {}});
    return users;
}

// "name=message name=comment"; one who is no user has a star.
QString Shown(const Board &board)
{
    QStringList rows;
    for (const Board::Row &row : board.Rows())
        rows.append(row.name + (row.isUser ? u"="_s : u"*="_s) + (row.message ? row.message->message : row.comment));
    return rows.join(u' ');
}

const UnreadMessage first{u"1"_s, u"\u00e5SE"_s, u"one"_s};
const UnreadMessage second{u"2"_s, u"\u00c5se"_s, u"two"_s};
const UnreadMessage ofNobody{u"3"_s, u""_s, u"three"_s};

} // namespace

class TestBoard : public QObject
{
    Q_OBJECT

private slots:
    void ShowsOneMessageOfASenderAfterTheOther()
    {
        Board board;
        board.TakeUsers(Users({u"\u00c5se"_s, u"\u00e5se"_s}), u"\u00e5SE"_s, now); // one person twice
        QVERIFY(board.ShowMessages({first}) && board.Alert && !board.ShowMessages({first}));
        QVERIFY(board.ShowMessages({first, second}) == 0 && board.Rows()[0].waiting == 1); // new, though it waits
        QVERIFY(!board.ShowMessages({first, second}));
        QCOMPARE(Shown(board), u"\u00c5se=one \u00e5se=c"_s);
        QVERIFY(board.ClearMessage(0) == u"1" && !board.MessageShown(0) && !board.Alert);
        QCOMPARE(Shown(board), u"\u00c5se= \u00e5se=c"_s);
        QVERIFY(!board.ShowMessages({first, second}));                          // it could not be marked as read
        QVERIFY(!board.ShowMessages({second}) && board.Rows()[0].waiting == 0); // the first is read by now
        board.ShowMessages({first, second});                                    // what is shown stays
        QVERIFY(board.ClearMessage(0) == u"2" && board.ClearMessage(0).isEmpty() && !board.ShowMessages({}));
        QCOMPARE(Shown(board), u"\u00c5se=c \u00e5se=c"_s);
    }

    void MessagesFollowTheirSenders()
    {
        Board board;
        board.TakeUsers(Users({u"Bo"_s, u"\u00c5SE"_s}), u"BO"_s, now);
        board.ShowMessages({first});
        board.TakeUsers(Users({u"BO"_s, u"\u00e5se"_s}), u"bo"_s, now); // the same in another spelling
        QVERIFY(board.MessageShown(1) && board.OwnName == u"BO" && board.IsOwn(u"bO"_s));
        board.TakeUsers(Users({u"Al"_s, u"Bo"_s, u"\u00e5se"_s}), u"BO"_s, now);
        QVERIFY(!board.MessageShown(2) && !board.ShowMessages({first})); // not for the first time
        QCOMPARE(Shown(board), u"Al=c Bo=c \u00e5se=one"_s);
        board.TakeUsers(Users({u"Al"_s, u"Bo"_s, u""_s}), u"BO"_s, now); // as many as before, but others
        board.ShowMessages({first, ofNobody, second});
        QCOMPARE(Shown(board), u"Al=c Bo=c =c \u00e5SE*=one (unknown)*=three"_s);
        QVERIFY(board.ClearMessage(3) == u"1" && board.Alert && !board.ShowMessages({ofNobody, second}));
        QCOMPARE(Shown(board), u"Al=c Bo=c =c (unknown)*=three \u00c5se*=two"_s);
        QVERIFY(!board.ShowMessages({}) && board.UserCount() == 3 && board.Rows().size() == 3);
    }

    void SignsAreTimedByTheOwnClock()
    {
        Board board;
        QList<Presence::UserRow> users = Users({u"Bo"_s, u"Cy"_s});
        users[1].lastSign = now.addDays(1);        // from the future: heard now
        const QDateTime late = now.addSecs(-1200); // as Bo's clock is
        users[0].lastSign = late;
        board.TakeUsers(users, u"ANNA"_s, now);
        QCOMPARE(board.Rows()[0].lastSign, late); // nothing else is known yet
        QCOMPARE(board.Rows()[1].lastSign, now);
        users[0].lastSign = late.addSecs(60);
        for (int look = 0; look < 2; ++look) {
            board.TakeUsers(users, u"ANNA"_s, now.addSecs(60 + 60 * look));
            QCOMPARE(board.Rows()[0].lastSign, now.addSecs(60));
        }
    }
};

QTEST_GUILESS_MAIN(TestBoard)

#include "tst_board.moc"
