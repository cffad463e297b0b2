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
    void NetworkFileSystems_data()
    {
        QTest::addColumn<bool>("network");
        for (const char *type : {"nfs4", "cifs", "smb3", "SMB2", "fuse.sshfs", "fuse.rclone", "ceph"})
            QTest::newRow(type) << true;
        for (const char *type :
             {"", "ext4", "btrfs", "tmpfs", "NTFS", "fuse.ntfs-3g", "fuseblk", "9p", "nfsd", "overlay"})
            QTest::newRow(type) << false;
    }
    void NetworkFileSystems()
    {
        QFETCH(bool, network);
        QCOMPARE(System::IsNetworkFileSystem(QString::fromLatin1(QTest::currentDataTag())), network);
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
