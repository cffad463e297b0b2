#include "clock/Clock.h"
#include "clock/DateText.h"
#include "clock/IOQuery.h"
#include "clock/OutQuery.h"
#include "platform/dao/DateValue.h"
#include "support/AtWindow.h"

#include <QAccessible>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime now = dao::WallTime(QDate(2026, 3, 1), QTime(12, 0));

// The window on the screen, for a row that was begun at eight; it is nine now.
struct Query : AtWindow
{
    ClockState clock;
    IOQuery form;
    QSignalSpy remained{&form, &IOQuery::StempInLook};
    QSignalSpy out{&form, &IOQuery::StempOutAt};

    explicit Query(OutQueryAt at = OutQueryAt::Start) : form(texts, prompts, time, clock, at)
    {
        texts.stored = [this](Form &) { // what is no answer
            Option(3)->setChecked(true);
            Box()->setText(u"yesterday"_s);
        };
        clock.CurrentJob = u"17 : <b>Warehouse</b>"_s;
        clock.LastInTime = clock.OpenSince = At(8, 0);
        Open(form);
    }

    QDateTime At(int hour, int minute) const { return QDateTime(time.now.date(), QTime(hour, minute), Qt::UTC); }
    QRadioButton *Option(int index) const { return form.findChild<QRadioButton *>(u"Options_%1"_s.arg(index)); }
    QLineEdit *Box() const { return Child<QLineEdit>(form, "Texts_0"); }
    void Type(const QString &text) const { TypeInto(Box(), text); }
    void MoveTo(int index) const // as the arrow keys do, without acting
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

// Times as people write them, and the window that asks for one.
class TestIOQuery : public QObject
{
    Q_OBJECT

private slots:
    void EveryLocaleReadsItsOwnText()
    {
        QRandomGenerator random(7);
        QList<QDateTime> times = {dao::WallTime({2026, 3, 29}, {2, 30}), // an hour that summer time skips
                                  dao::WallTime({2026, 1, 1}, {0, 0}), dao::WallTime({2026, 12, 31}, {12, 0, 1}),
                                  dao::WallTime({1999, 2, 3}, {23, 59, 59})};
        for (int i = 0; i < 20; ++i)
            times.append(dao::WallTime({2000, 1, 1}, {0, 0}).addSecs(random.bounded(1, 1'500'000'000)));
        for (const QLocale &locale :
             QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory))
            for (const QDateTime &time : std::as_const(times)) {
                const QString text = DateTimeText(time, locale);
                QVERIFY2(ReadDateTime(text, locale, now) == time, qPrintable(locale.name() + u": "_s + text));
            }
    }

    void Reads()
    {
        const QString da = u"da_DK"_s;
        const QString us = u"en_US"_s;
        const QStringList cases[] = {
            {da, u" 8.30 "_s, u"2026-03-01 08:30:00"_s}, // bare
            {us, u"0830"_s, u"2026-03-01 08:30:00"_s},
            {da, u"830"_s, u"2026-03-01 08:30:00"_s},
            {us, u"8:30 pm"_s, u"2026-03-01 20:30:00"_s},
            {us, u"3/1/2026 12:15 AM"_s, u"2026-03-01 00:15:00"_s},             // midnight
            {us, u"3/1/2026 3:15\u202fPM"_s, u"2026-03-01 15:15:00"_s},         // a narrow no-break blank
            {u"es_MX"_s, u"1/3/2026 3:15 p. m."_s, u"2026-03-01 15:15:00"_s},   // halves of the day of its own
            {u"ko_KR"_s, u"2026. 3. 1. 오후 3:15"_s, u"2026-03-01 15:15:00"_s}, // in front
            {us, u"3/1/26 18:15"_s, u"2026-03-01 18:15:00"_s},
            {da, u"1.3.70 18.15"_s, u"2070-03-01 18:15:00"_s}, // the century of 2000
            {da, u"1-3-2026 8:30"_s, u"2026-03-01 08:30:00"_s},
            {da, u"2026-03-01T08:30:15"_s, u"2026-03-01 08:30:15"_s},
            {da, u"søndag den 1. marts 2026 08.30.15"_s, u"2026-03-01 08:30:15"_s},
            {u"fr_CA"_s, u"2026-03-01 08 h 30"_s, u"2026-03-01 08:30:00"_s},
            {u"C"_s, u"1 Mar 2026 08:30:15"_s, u"2026-03-01 08:30:15"_s},
        };
        for (const QStringList &each : cases) {
            const std::optional<QDateTime> time = ReadDateTime(each[1], QLocale(each[0]), now);
            QVERIFY2(time && time->timeSpec() == Qt::UTC, qPrintable(each[1]));
            QCOMPARE(time->toString(u"yyyy-MM-dd HH:mm:ss"_s), each[2]);
        }
    }

    void Refuses()
    {
        for (const QString &text : {u""_s, u"abc"_s, u"8"_s, u"25:00"_s, u"8:75"_s, u"0875"_s, u"83015"_s, u"8:30 xm"_s,
                                    u"13:30 PM"_s, u"1.3.2026"_s, u"2026-02-30"_s, u"2026-02-30 08:30"_s,
                                    u"30.02.2026 08:30"_s, u"1.3.126 08:30"_s, u"1.3.2026 08:30 and more"_s})
            for (const QString &locale : {u"da_DK"_s, u"en_US"_s, u"C"_s})
                QVERIFY2(!ReadDateTime(text, QLocale(locale), now), qPrintable(text + u" in "_s + locale));
    }

    void SaysSinceWhenAndHowLong()
    {
        const std::pair<QDateTime, QString> cases[] = {
            {now.addSecs(-30), u"since 11:59, less than a minute"_s},
            {now.addSecs(-192 * 60), u"since 08:48, 3 h 12 min"_s},
            {now.addDays(-1), u"since 28 Feb 12:00, 1 day"_s},
            {dao::WallTime({2025, 10, 12}, {8, 2}), u"since 12 Oct 2025 08:02, 140 days"_s},
            {now.addSecs(300), u"since 12:05"_s}, // the clock was set back
        };
        for (const auto &[in, text] : cases)
            QCOMPARE(SinceText(in, now, QLocale(u"en_GB"_s)), text);
    }

    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Danish, QLocale::Denmark)); }
    void OpensUndecided()
    {
        Query query;
        QVERIFY(query.Option(1)->isChecked());
        QCOMPARE(ReadDateTime(query.Box()->text(), QLocale(), query.At(0, 0)), query.time.now);
        QAccessibleInterface *job = QAccessible::queryAccessibleInterface(query.Find<QLabel>("Labels_0"));
        QCOMPARE(job->text(QAccessible::Name), query.clock.CurrentJob);
        QCOMPARE(query.Text("SinceLabel"), u"since 08.00, 1 h 0 min"_s);
        QVERIFY(!query.Shows("StayButton"));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) { // held since the window before
            QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(query.form.focusWidget(), &held);
            QTest::keyRelease(query.form.focusWidget(), key);
        }
        QVERIFY(query.Undecided());
    }

    void OneClickActs()
    {
        const QMap<QByteArray, Qt::Key> keys{
            {"space", Qt::Key_Space}, {"enter", Qt::Key_Return}, {"keypad", Qt::Key_Enter}, {"escape", Qt::Key_Escape}};
        for (const int option : {1, 3})
            for (const QByteArray &way : keys.keys() + QList<QByteArray>{"mouse", "frame"}) {
                Query query;
                query.time.Advance(90);
                if (way != "mouse")
                    query.MoveTo(option);
                if (way == "mouse")
                    QTest::mouseClick(query.Option(option), Qt::LeftButton, {}, QPoint(10, 10));
                else if (way == "frame")
                    query.form.close();
                else
                    QTest::keyClick(query.Option(option), keys[way]);
                QVERIFY2(option == 1 ? query.Remained() : query.OutAt(query.time.now), way.constData());
            }
    }

    void ClosingCanBeTakenBack()
    {
        for (const bool byKey : {false, true}) {
            Query query(OutQueryAt::Closing);
            query.MoveTo(3);
            byKey ? QTest::keyClick(query.form.focusWidget(), Qt::Key_Escape) : query.Press("StayButton");
            QVERIFY(!query.form.IsLoaded() && query.form.StaysOpen());
            QVERIFY(query.out.isEmpty() && query.remained.isEmpty());
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
        query.MoveTo(3);
        query.Press("Commands_0");
        QVERIFY(query.Option(2)->isChecked());
        QVERIFY(query.Undecided());
        query.Press("Commands_0");
        QVERIFY(query.OutAt(query.time.now));
    }

    void BadTextStays()
    {
        for (const QByteArray way : {"button", "enter", "escape", "frame"}) {
            Query query;
            query.Type(u"25:00"_s);
            if (way == "button")
                query.Press("Commands_0");
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
        query.Type(u"23:59"_s);
        query.prompts.whileAsking = [&query] { query.form.Abandon(); };
        QTest::keyClick(query.Box(), Qt::Key_Return);
        QVERIFY(!query.form.IsLoaded());
        QVERIFY(query.out.isEmpty() && query.remained.isEmpty());
    }
};

QTEST_MAIN(TestIOQuery)
#include "tst_ioquery.moc"
