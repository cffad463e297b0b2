#include "OrdinaryUser.h"
#include "platform/dao/TableDef.h"
#include "support/EmptyDatabase.h"
#include "support/ProgramFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <memory>
#include <vector>

using namespace dao;
using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList tables{u"Projects"_s, u"NotesList"_s};

void Say(const char *word)
{
    std::puts(word);
    std::fflush(stdout);
}

// Another copy: says "ready", waits for a line, takes the file, says how that went, and stays until it is killed or its
// input ends.
int RunCopy(const QString &path)
{
    QFile input;
    if (!input.open(stdin, QFile::ReadOnly))
        return 1;
    Say("ready");
    input.readLine();
    const Held held = Database::OpenHeld(path, tables);
    Say(held.failure == HeldFailure::None                ? "held"
        : held.failure == HeldFailure::HeldByAnotherCopy ? "refused"
                                                         : "failed");
    input.readLine();
    return 0;
}

class Copy
{
public:
    explicit Copy(const QString &path)
    {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QCoreApplication::applicationFilePath(), {u"--copy"_s, path});
        Answer();
    }
    ~Copy() { Kill(); }

    void Go()
    {
        process_.write("\n");
        process_.waitForBytesWritten();
    }
    QString Answer()
    {
        while (!process_.canReadLine() && process_.waitForReadyRead()) {
        }
        return QString::fromLatin1(process_.readLine()).trimmed();
    }
    void Kill()
    {
        process_.kill();
        process_.waitForFinished();
    }

private:
    QProcess process_;
};

} // namespace

class TestHeld : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder_;
    int files_ = 0;

    QString NewFile()
    {
        const QString path = folder_.filePath(u"%1.mdb"_s.arg(++files_));
        Database database = EmptyDatabase(path);
        for (const QString &table : tables)
            database.CreateTableDef({table, {{u"Name"_s, u"TEXT"_s}}, {}});
        database.Execute(u"INSERT INTO Projects (Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                         "WHERE i < 200) SELECT hex(zeroblob(250)) FROM n"_s,
                         {}, u"preparing"_s);
        return path;
    }

private slots:
    void IsOneCopysAloneUntilItDies()
    {
        const QString path = NewFile();
        Database::OpenDatabase(path).Select(u"PRAGMA journal_mode = WAL"_s, {}, u"another program's change"_s);
        Copy copy(path);
        copy.Go();
        QCOMPARE(copy.Answer(), u"held"_s);
        const Held second = Database::OpenHeld(path, tables);
        QCOMPARE(second.failure, HeldFailure::HeldByAnotherCopy);
        QVERIFY(!second.database.IsOpen());
        copy.Kill();
        Held third = Database::OpenHeld(path, tables);
        QCOMPARE(third.failure, HeldFailure::None);
        // Writing and reading do not let go of it.
        third.database.Insert(u"INSERT INTO Projects (Name) VALUES ('a')"_s, {}, u"writing"_s);
        QCOMPARE(third.database.Texts(u"SELECT count(*) FROM Projects"_s, {}), QStringList(u"201"_s));
        Copy fourth(path);
        fourth.Go();
        QCOMPARE(fourth.Answer(), u"refused"_s);
        third.database.Close();
        QCOMPARE(Database::OpenHeld(path, tables).failure, HeldFailure::None);
        QVERIFY(!QFile::exists(path + u"-journal"_s));
    }

    void OneWinnerInARace()
    {
        const QString path = NewFile();
        for (int round = 0; round < 3; ++round) {
            std::vector<std::unique_ptr<Copy>> copies;
            for (int copy = 0; copy < 4; ++copy)
                copies.push_back(std::make_unique<Copy>(path));
            for (const auto &copy : copies)
                copy->Go();
            QStringList answers;
            for (const auto &copy : copies)
                answers.append(copy->Answer());
            answers.sort();
            QCOMPARE(answers, QStringList({u"held"_s, u"refused"_s, u"refused"_s, u"refused"_s}));
        }
    }

    void InUseElsewhereIsNotAnotherCopy()
    {
        const QString path = NewFile();
        const Holder other(path, Holder::Writing);
        QCOMPARE(Database::OpenHeld(path, tables).failure, HeldFailure::InUseElsewhere);
    }

    void JudgesWithoutTouching()
    {
        const QString path = NewFile();
        QFile file(path);
        QVERIFY(file.open(QFile::ReadWrite) && file.seek(5 * 4096) && file.write(QByteArray(4096, 'z')) == 4096);
        file.close();
        const QByteArray before = Content(path);
        QCOMPARE(Database::OpenHeld(path, tables).failure, HeldFailure::Damaged);
        QCOMPARE(Content(path), before);
    }

    void UnwritableIsNotDamaged()
    {
#ifndef Q_OS_UNIX
        QSKIP("needs file permissions");
#endif
        const QString path = NewFile();
        for (const QFile::Permissions permissions :
             {QFile::Permissions(), QFile::ReadOwner | QFile::ReadOther,
              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther | QFile::WriteOther}) { // its folder is not
            QVERIFY(QFile::setPermissions(path, permissions));
            const OrdinaryUser user(folder_.path());
            QCOMPARE(Database::OpenHeld(path, tables).failure, HeldFailure::NotWritable);
        }
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--copy"_L1)
        return RunCopy(arguments.value(2));
    TestHeld test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_held.moc"
