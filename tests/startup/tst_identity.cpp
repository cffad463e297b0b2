#include "startup/Identity.h"
#include "startup/Module1.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestIdentity : public QObject
{
    Q_OBJECT

private slots:
    void RefusesWhatCannotBeAFileOrATable()
    {
        QStringList names =
            u"a/b;a\\b;a:b;a*b;what?;<a>;a|b;say \"hi\";a\tb;CON;con;NUL;NUL.x;COM1;lpt9;CON ;.anna;anna.;"
            " anna;BLANK;Jobs;stemp;Blank Jobs;BLANK STEMP;ANNA STEMP;Users;projects;sqlite_master;all;"
            "User;JobID"_s.split(u';');
        names << QString(201, u'A') << QString(101, u'Å');
        for (const QString &name : std::as_const(names))
            QVERIFY2(!IdentityRefusal(name).isEmpty(), qPrintable(name));
    }

    void AcceptsPeople()
    {
        QStringList names = u"AB;ÆØÅ;O'BRIEN;ANNA B. HANSEN;STEMPEL;CONNY;100%;SELECT"_s.split(u';');
        names << QString(200, u'A');
        for (const QString &name : std::as_const(names))
            QCOMPARE(name + IdentityRefusal(name), name);
    }

    void TellsNetworkPathsByTheirFirstTwoCharacters()
    {
        for (const QString &path : {u"\\\\server\\share"_s, u"c:\\stemp"_s, u"E:\\stemp"_s, QString()})
            QVERIFY2(Module1::IsNetworkPath(path), qPrintable(path));
        for (const QString &path : {u"C:\\stemp"_s, u"D:\\"_s})
            QVERIFY2(!Module1::IsNetworkPath(path), qPrintable(path));
    }
};

QTEST_GUILESS_MAIN(TestIdentity)
#include "tst_identity.moc"
