#include "startup/Identity.h"
#include "startup/Module1.h"

#include <QTest>

class TestIdentity : public QObject
{
    Q_OBJECT

private slots:
    void RefusesWhatCannotBeAFileOrATable_data();
    void RefusesWhatCannotBeAFileOrATable();
    void AcceptsPeople_data();
    void AcceptsPeople();
    void TellsNetworkPathsByTheirFirstTwoCharacters_data();
    void TellsNetworkPathsByTheirFirstTwoCharacters();
};

void TestIdentity::RefusesWhatCannotBeAFileOrATable_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names =
        QStringLiteral("a/b;a\\b;a:b;a*b;what?;<a>;a|b;say \"hi\";a\tb;CON;con;NUL;NUL.x;COM1;lpt9;CON ;"
                       ".anna;anna.; anna;BLANK;Jobs;stemp;Blank Jobs;BLANK STEMP;ANNA STEMP;Users;"
                       "projects;sqlite_master;all;User;JobID")
            .split(u';')
        + QStringList{QString(201, u'A'), QString(101, u'Å')};
    for (const QString &name : names)
        QTest::newRow(qPrintable(name.left(30))) << name;
}

void TestIdentity::RefusesWhatCannotBeAFileOrATable()
{
    QFETCH(QString, name);
    QVERIFY(!IdentityRefusal(name).isEmpty());
}

void TestIdentity::AcceptsPeople_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : {QStringLiteral("AB"), QStringLiteral("ÆØÅ"), QStringLiteral("O'BRIEN"),
                                QStringLiteral("ANNA B. HANSEN"), QStringLiteral("STEMPEL"), QStringLiteral("CONNY"),
                                QStringLiteral("100%"), QStringLiteral("SELECT"), QString(200, u'A')})
        QTest::newRow(qPrintable(name.left(30))) << name;
}

void TestIdentity::AcceptsPeople()
{
    QFETCH(QString, name);
    QCOMPARE(IdentityRefusal(name), QString());
}

void TestIdentity::TellsNetworkPathsByTheirFirstTwoCharacters_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("network");
    QTest::newRow("share") << QStringLiteral("\\\\server\\share") << true;
    QTest::newRow("C") << QStringLiteral("C:\\stemp") << false;
    QTest::newRow("D") << QStringLiteral("D:\\") << false;
    QTest::newRow("lower case") << QStringLiteral("c:\\stemp") << true;
    QTest::newRow("E") << QStringLiteral("E:\\stemp") << true;
    QTest::newRow("empty") << QString() << true;
}

void TestIdentity::TellsNetworkPathsByTheirFirstTwoCharacters()
{
    QFETCH(QString, path);
    QTEST(Module1::IsNetworkPath(path), "network");
}

QTEST_GUILESS_MAIN(TestIdentity)
#include "tst_identity.moc"
