#include "settings/Options.h"

#include <QTest>

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void NumbersAsTyped_data();
    void NumbersAsTyped();
};

void TestOptions::NumbersAsTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("days");
    QTest::addColumn<int>("seconds");

    QTest::newRow("nothing") << QString() << 0 << 7 << 15;
    QTest::newRow("infinity is a word") << QStringLiteral("inf") << 0 << 7 << 15;
    QTest::newRow("in blanks, with words") << QStringLiteral("  7 days") << 7 << 7 << 7;
    QTest::newRow("half to even, down") << QStringLiteral("2.5") << 2 << 2 << 2;
    QTest::newRow("half to even, up") << QStringLiteral("3.5") << 4 << 4 << 4;
    QTest::newRow("half to nothing") << QStringLiteral(".5") << 0 << 7 << 15;
    QTest::newRow("decimal comma ends it") << QStringLiteral("3,9") << 3 << 3 << 3;
    QTest::newRow("negative") << QStringLiteral("-3") << -3 << 7 << 15;
    QTest::newRow("over sixty") << QStringLiteral("61") << 61 << 61 << 60;
    QTest::newRow("beyond 16 bits") << QStringLiteral("40000") << 32767 << 32767 << 60;
    QTest::newRow("400 digits") << QString(400, u'9') << 32767 << 32767 << 60;
}

void TestOptions::NumbersAsTyped()
{
    QFETCH(QString, text);
    QTEST(LeadingNumber(text), "number");
    QTEST(DaysToShow(text), "days");
    QTEST(static_cast<int>(PollPeriod(text).count()), "seconds");
}

QTEST_GUILESS_MAIN(TestOptions)
#include "tst_options.moc"
