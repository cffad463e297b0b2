#include "platform/system/System.h"

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
};

QTEST_GUILESS_MAIN(TestSystem)
#include "tst_system.moc"
