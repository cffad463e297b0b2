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
        clock.CurrentJob = QStringLiteral("17 : <b>Warehouse</b>");
        clock.LastInTime = At(8, 0);
    }
    void Show()
    {
        form.Load();
        form.show();
    }

    QDateTime At(int hour, int minute) const { return QDateTime(time.now.date(), QTime(hour, minute), Qt::UTC); }
    QRadioButton *Option(int index) const
    {
        return form.findChild<QRadioButton *>(QStringLiteral("Options_%1").arg(index));
    }
    QLineEdit *Box() const { return form.findChild<QLineEdit *>(QStringLiteral("Texts_0")); }
    QPushButton *Button() const { return form.findChild<QPushButton *>(QStringLiteral("Commands_0")); }

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

class tst_ioquery : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Danish, QLocale::Denmark)); }
    void opensUndecided();
    void oneClickActs_data();
    void oneClickActs();
    void arrowsOnlySelect();
    void typedTime_data();
    void typedTime();
    void buttonChoosesTheTimeFirst();
    void badTextStays_data();
    void badTextStays();
    void closingCarriesOut_data();
    void closingCarriesOut();
    void abandonedMidway();
};

void tst_ioquery::opensUndecided()
{
    Query query;
    query.texts.stored = [&](Form &) {
        query.Option(3)->setChecked(true);
        query.Box()->setText(QStringLiteral("yesterday"));
    };
    query.Show();
    QVERIFY(query.Option(1)->isChecked());
    QCOMPARE(ReadDateTime(query.Box()->text(), QLocale(), query.At(0, 0)), query.time.now);
    QCOMPARE(query.form.findChild<QLabel *>(QStringLiteral("Labels_0"))->text(), query.clock.CurrentJob);
    QVERIFY(query.Undecided());
}

void tst_ioquery::oneClickActs_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<int>("key"); // 0: the mouse
    for (const int option : {1, 3})
        for (const int key : {0, int{Qt::Key_Space}, int{Qt::Key_Return}, int{Qt::Key_Enter}})
            QTest::addRow("option %d, key %d", option, key) << option << key;
}

void tst_ioquery::oneClickActs()
{
    QFETCH(int, option);
    QFETCH(int, key);
    Query query;
    query.Show();
    if (key == 0) {
        QTest::mouseClick(query.Option(option), Qt::LeftButton, {}, QPoint(10, 10));
    } else {
        query.Choose(option);
        QTest::keyClick(query.Option(option), Qt::Key(key));
    }
    QVERIFY(option == 1 ? query.Remained() : query.OutAt(query.time.now));
}

void tst_ioquery::arrowsOnlySelect()
{
    Query query;
    query.Show();
    for (const int expected : {2, 3, 1}) {
        QTest::keyClick(query.form.focusWidget(), Qt::Key_Down);
        QCOMPARE(query.form.focusWidget(), query.Option(expected));
        QVERIFY(query.Option(expected)->isChecked());
    }
    QTest::keyClick(query.form.focusWidget(), Qt::Key_Up);
    QVERIFY(query.Option(3)->isChecked());
    QVERIFY(query.Undecided());
    QTest::mouseClick(query.Option(2), Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(query.Option(2)->isChecked());
    QVERIFY(query.Undecided());
}

void tst_ioquery::typedTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("warning");
    QTest::newRow("past") << "8:30" << QTime(8, 30) << "";
    QTest::newRow("future") << "1000" << QTime(10, 0) << "You are stemping out in the FUTURE! (but that's ok)";
    QTest::newRow("before in") << "7.59" << QTime(7, 59)
                               << "You are stemping out EARLIER than IN! (if I could turn back time...)";
}

void tst_ioquery::typedTime()
{
    QFETCH(QString, text);
    QFETCH(QTime, time);
    QFETCH(QString, warning);
    Query query;
    query.Show();
    query.Type(text);
    QVERIFY(query.Option(2)->isChecked());
    QVERIFY(query.Undecided());
    QTest::keyClick(query.Box(), Qt::Key_Return);
    QVERIFY(query.OutAt(query.At(time.hour(), time.minute())));
    QCOMPARE(query.prompts.messages.join(QString()), warning);
}

void tst_ioquery::buttonChoosesTheTimeFirst()
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

void tst_ioquery::badTextStays_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"button", "enter", "escape", "frame"})
        QTest::newRow(way) << way;
}

void tst_ioquery::badTextStays()
{
    QFETCH(QString, way);
    Query query;
    query.Show();
    query.Type(QStringLiteral("25:00"));
    if (way == QLatin1String("button"))
        QTest::mouseClick(query.Button(), Qt::LeftButton);
    else if (way == QLatin1String("frame"))
        QVERIFY(!query.form.close());
    else
        QTest::keyClick(query.Box(), way == QLatin1String("enter") ? Qt::Key_Enter : Qt::Key_Escape);
    QCOMPARE(query.prompts.messages.size(), 1);
    QVERIFY(query.Undecided());
    QCOMPARE(query.Box()->selectedText(), QStringLiteral("25:00"));
    query.Type(QStringLiteral("8:45"));
    query.form.close();
    QVERIFY(query.OutAt(query.At(8, 45)));
}

void tst_ioquery::closingCarriesOut_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<bool>("escape");
    QTest::newRow("remain, frame") << 1 << false;
    QTest::newRow("remain, escape") << 1 << true;
    QTest::newRow("now, frame") << 3 << false;
    QTest::newRow("now, escape") << 3 << true;
}

void tst_ioquery::closingCarriesOut()
{
    QFETCH(int, option);
    QFETCH(bool, escape);
    Query query;
    query.Show();
    query.Choose(option);
    query.time.Advance(90);
    if (escape)
        QTest::keyClick(query.form.focusWidget(), Qt::Key_Escape);
    else
        query.form.close();
    QVERIFY(option == 1 ? query.Remained() : query.OutAt(query.time.now));
}

void tst_ioquery::abandonedMidway()
{
    Query query;
    query.Show();
    query.Type(QStringLiteral("23:59"));
    query.prompts.whileAsking = [&query] { query.form.Abandon(); };
    QTest::keyClick(query.Box(), Qt::Key_Return);
    QVERIFY(!query.form.IsLoaded());
    QVERIFY(query.out.isEmpty() && query.remained.isEmpty());
}

QTEST_MAIN(tst_ioquery)
#include "tst_ioquery.moc"
