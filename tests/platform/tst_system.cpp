#include "platform/system/System.h"
#include "platform/system/TimeSource.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestSystem : public QObject
{
    Q_OBJECT

private slots:
    void NetworkFileSystems()
    {
        for (const QString &type : {u"nfs4"_s, u"cifs"_s, u"smb3"_s, u"SMB2"_s, u"fuse.sshfs"_s, u"fuse.rclone"_s})
            QVERIFY2(System::IsNetworkFileSystem(type), qPrintable(type));
        for (const QString &type : {u""_s, u"ext4"_s, u"NTFS"_s, u"fuse.ntfs-3g"_s, u"fuseblk"_s, u"9p"_s, u"nfsd"_s})
            QVERIFY2(!System::IsNetworkFileSystem(type), qPrintable(type));
    }

    void KnowsItsFolderAndName()
    {
        const QString before = QDir::currentPath();
        const QTemporaryDir folder;
        QVERIFY(QDir::setCurrent(folder.path()));
        const QString current = System().CurrentFolder();
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(QDir(current).canonicalPath(), QDir(folder.path()).canonicalPath());
        QVERIFY(!current.endsWith(QDir::separator()));
        QCOMPARE(System().ExecutableName(), u"tst_system"_s);
    }

    void TimeIsOfTheWallAndOfWholeSeconds()
    {
        const QDateTime before = QDateTime::currentDateTime();
        const QDateTime now = TimeSource().Now();
        QCOMPARE(now.timeSpec(), Qt::UTC);
        QCOMPARE(now.time().msec(), 0);
        const QDateTime local(now.date(), now.time());
        QVERIFY(std::abs(before.secsTo(local)) < 60);
    }
};

QTEST_GUILESS_MAIN(TestSystem)
#include "tst_system.moc"
