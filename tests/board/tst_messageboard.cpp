#include "board/MessageBoard.h"
#include "support/NoTexts.h"
#include "support/SettableTime.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime now = SettableTime().Now();

const std::vector<Board::Row> people{{u"ANNA"_s, -1, u"here"_s, now, {}, true},
                                     {u"Bjørn"_s, 0, {}, now, {}, true},
                                     {u"GONE"_s, 0, {}, {}, UnreadMessage{u"1"_s, u"GONE"_s, u"bye"_s}, false}};

struct ShownBoard
{
    explicit ShownBoard(const std::vector<Board::Row> &rows = people)
    {
        texts.stored = [this](Form &loading) { loading.SetStoredGeometry(place); };
        form.Load();
        form.ShowRows(rows, now);
        form.PopUp(false);
    }
    QPoint At(int row, int column) const { return grid.visualRect(grid.model()->index(row, column)).center(); }

    const Geometry place{1507.5, 1203.25, 9000.5, 6280}; // as stored
    NoTexts texts;
    MessageBoard form{texts};
    QTableView &grid{*form.findChild<QTableView *>(u"UserGrid"_s)};
};

} // namespace

class TestMessageBoard : public QObject
{
    Q_OBJECT

private slots:
    void TipsTellInWordsAndWithoutMarkup()
    {
        BoardModel model({u"User"_s, u"Status"_s});
        const auto words = [&model](int state, int seconds) {
            model.SetRows({{u"a <b>"_s, state, u"<i>x"_s, now, {}, true}}, now.addSecs(seconds));
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
            rows.push_back({QString::number(i), 0, {}, {}, {}, true});
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
            QTest::mouseClick(board.grid.viewport(), Qt::LeftButton, {}, board.At(row, column));
            QTest::keyClick(board.form.focusWidget(), Qt::Key_Delete);
        }
        QTest::keyClick(board.form.focusWidget(), Qt::Key_Return);
        QTest::mouseClick(board.grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, {40, 5});
        QCOMPARE(seen.join(u' '), u"2,0 1,1 1,0 Bjørn 1,0 -1,0"_s);
    }

    void TipsObeyTheSetting()
    {
        ShownBoard board;
        QHelpEvent help(QEvent::ToolTip, board.At(0, 0), board.grid.viewport()->mapToGlobal(board.At(0, 0)));
        QCoreApplication::sendEvent(board.grid.viewport(), &help);
        QVERIFY(QToolTip::text().contains(u"Stemped in"_s));
        board.grid.setToolTip({});
        QCoreApplication::sendEvent(board.grid.viewport(), &help);
        QTRY_COMPARE(QToolTip::text(), QString());
    }

    void ComesBackFromTheTaskBarWhereItWas()
    {
        ShownBoard board;
        QTRY_VERIFY(board.form.IsSettled());
        board.form.close();
        board.form.PopUp(false);
        QVERIFY(board.form.isMinimized());
        board.form.PopUp(true);
        QTRY_VERIFY(!board.form.isMinimized() && board.form.IsSettled());
        QCOMPARE(board.form.StoredGeometry(), board.place);
    }
};

QTEST_MAIN(TestMessageBoard)
#include "tst_messageboard.moc"
