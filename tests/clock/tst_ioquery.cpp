#include "clock/Clock.h"
#include "clock/DateText.h"
#include "clock/IOQuery.h"
#include "support/AnsweredPrompts.h"
#include "support/NoTexts.h"
#include "support/SettableTime.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// The window on the screen, for a row that was begun at eight; it is nine now.
struct Query
{
    SettableTime time;
    AnsweredPrompts prompts;
    NoTexts texts;
    ClockState clock;
    IOQuery form{texts, prompts, time, clock};
    QSignalSpy remained{&form, &IOQuery::StempInLook};
    QSignalSpy out{&form, &IOQuery::StempOutAt};

    Query()
    {
        clock.CurrentJob = u"17 : <b>Warehouse</b>"_s;
        clock.LastInTime = At(8, 0);
    }
    void Show()
    {
        form.Load();
        form.show();
    }

    QDateTime At(int hour, int minute) const { return QDateTime(time.now.date(), QTime(hour, minute), Qt::UTC); }
    QRadioButton *Option(int index) const { return form.findChild<QRadioButton *>(u"Options_%1"_s.arg(index)); }
    QLineEdit *Box() const { return form.findChild<QLineEdit *>(u"Texts_0"_s); }
    QPushButton *Button() const { return form.findChild<QPushButton *>(u"Commands_0"_s); }

    void Type(const QString &text) const
    {
        Box()->setFocus();
        Box()->selectAll();
        QTest::keyClicks(Box(), text);
    }
    void Choose(int index) const // as the arrow keys do, without acting
    {
        while (!Option(index)->isChecked())
            QTest::keyClick(form.focusWidget(), Qt::Key_Down);
    }
    bool Undecided() const { return form.IsLoaded() && form.isVisible() && remained.isEmpty() && out.isEmpty(); }
    bool OutAt(const QDateTime &expected) const
    {
        return !form.IsLoaded() && remained.isEmpty() && out.size() == 1 && out.at(0).at(0).toDateTime() == expected;
    }
    bool Remained() const { return !form.IsLoaded() && remained.size() == 1 && out.isEmpty(); }
};

} // namespace

class TestIOQuery : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Danish, QLocale::Denmark)); }
    void OpensUndecided()
    {
        Query query;
        query.texts.stored = [&](Form &) {
            query.Option(3)->setChecked(true);
            query.Box()->setText(u"yesterday"_s);
        };
        query.Show();
        QVERIFY(query.Option(1)->isChecked());
        QCOMPARE(ReadDateTime(query.Box()->text(), QLocale(), query.At(0, 0)), query.time.now);
        QCOMPARE(query.form.findChild<QLabel *>(u"Labels_0"_s)->text(), query.clock.CurrentJob);
        QVERIFY(query.Undecided());
    }

    void OneClickActs()
    {
        const QMap<QByteArray, Qt::Key> keys{
            {"space", Qt::Key_Space}, {"enter", Qt::Key_Return}, {"keypad", Qt::Key_Enter}, {"escape", Qt::Key_Escape}};
        for (const int option : {1, 3})
            for (const QByteArray &way : keys.keys() + QList<QByteArray>{"mouse", "frame"}) {
                Query query;
                query.Show();
                query.time.Advance(90);
                if (way != "mouse")
                    query.Choose(option);
                if (way == "mouse")
                    QTest::mouseClick(query.Option(option), Qt::LeftButton, {}, QPoint(10, 10));
                else if (way == "frame")
                    query.form.close();
                else
                    QTest::keyClick(query.Option(option), keys[way]);
                QVERIFY2(option == 1 ? query.Remained() : query.OutAt(query.time.now), way.constData());
            }
    }

    void TypedTime()
    {
        const QString future = u"You are stemping out in the FUTURE! (but that's ok)"_s;
        const QString earlier = u"You are stemping out EARLIER than IN! (if I could turn back time...)"_s;
        for (const auto &[text, time, warning] : {std::tuple{u"8:30"_s, QTime(8, 30), QString()},
                                                  {u"1000"_s, QTime(10, 0), future},
                                                  {u"7.59"_s, QTime(7, 59), earlier}}) {
            Query query;
            query.Show();
            query.Type(text);
            QVERIFY(query.Option(2)->isChecked());
            QVERIFY(query.Undecided());
            QTest::keyClick(query.Box(), Qt::Key_Return);
            QVERIFY(query.OutAt(query.At(time.hour(), time.minute())));
            QCOMPARE(query.prompts.messages.join(QString()), warning);
        }
    }

    void ButtonChoosesTheTimeFirst()
    {
        Query query;
        query.Show();
        query.Choose(3);
        QTest::mouseClick(query.Button(), Qt::LeftButton);
        QVERIFY(query.Option(2)->isChecked());
        QVERIFY(query.Undecided());
        QTest::mouseClick(query.Button(), Qt::LeftButton);
        QVERIFY(query.OutAt(query.time.now));
    }

    void BadTextStays()
    {
        for (const QByteArray way : {"button", "enter", "escape", "frame"}) {
            Query query;
            query.Show();
            query.Type(u"25:00"_s);
            if (way == "button")
                QTest::mouseClick(query.Button(), Qt::LeftButton);
            else if (way == "frame")
                QVERIFY(!query.form.close());
            else
                QTest::keyClick(query.Box(), way == "enter" ? Qt::Key_Enter : Qt::Key_Escape);
            QCOMPARE(query.prompts.messages.size(), 1);
            QVERIFY(query.Undecided());
            QCOMPARE(query.Box()->selectedText(), u"25:00"_s);
            query.Type(u"8:45"_s);
            query.form.close();
            QVERIFY(query.OutAt(query.At(8, 45)));
        }
    }

    void AbandonedMidway()
    {
        Query query;
        query.Show();
        query.Type(u"23:59"_s);
        query.prompts.whileAsking = [&query] { query.form.Abandon(); };
        QTest::keyClick(query.Box(), Qt::Key_Return);
        QVERIFY(!query.form.IsLoaded());
        QVERIFY(query.out.isEmpty() && query.remained.isEmpty());
    }
};

QTEST_MAIN(TestIOQuery)
#include "tst_ioquery.moc"
