#include "platform/dao/Error.h"
#include "startup/LocalJobCopy.h"
#include "support/ProgramFolder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString blank = u"Blank Jobs.mdb"_s;
const LocalJobCopy::Snapshot snapshot{
    {{u"1"_s, u"Roof"_s}, {u"2"_s, QVariant()}},
    {{u"ANNA"_s, u"Anna Ø"_s, -1, u"at lunch"_s, {}, {}}, {u"BO"_s, {}, 1, {}, {}, {}}},
    {}};

void Write(const ProgramFolder &folder)
{
    LocalJobCopy::Write(folder.File(blank), folder.File(jobsFile), snapshot);
}

QString Text(const LocalJobCopy::Snapshot &rows)
{
    QString text;
    for (const QVariantList &row : rows.projects)
        for (const QVariant &field : row)
            text += field.isNull() ? u"null|"_s : field.toString() + u'|';
    for (const Presence::UserRow &row : rows.users)
        text += u"%1|%2|%3|%4|"_s.arg(row.user, row.fullName).arg(row.state).arg(row.comment);
    return text;
}

QString Copied(const ProgramFolder &folder)
{
    dao::Database copy = dao::Database::OpenDatabase(folder.File(jobsFile));
    return Text(LocalJobCopy::Read(copy));
}

// An old copy with the one job "old", if need be as a crash in the middle of a change leaves it.
void LeaveOldCopy(const ProgramFolder &folder, bool crashed)
{
    folder.MakeJobs(u"work.mdb"_s, {u"old"_s});
    dao::Database work = dao::Database::OpenDatabase(folder.File(u"work.mdb"_s));
    if (crashed) {
        work.Execute(u"PRAGMA cache_size = 1"_s, {}, {}); // so that pages go to the file before the end
        work.Execute(u"BEGIN"_s, {}, {});
        work.Execute(u"UPDATE Projects SET JobID = 'half'"_s, {}, {});
        work.Execute(u"INSERT INTO Projects (JobID, JobName) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
                     "FROM n LIMIT 1000) SELECT i, hex(zeroblob(100)) FROM n"_s,
                     {}, {});
        QVERIFY(QFile::copy(folder.File(u"work.mdb-journal"_s), folder.File(u"Jobs.mdb-journal"_s)));
    }
    QFile::remove(folder.File(jobsFile));
    QVERIFY(QFile::copy(folder.File(u"work.mdb"_s), folder.File(jobsFile)));
}

const LocalJobCopy::Snapshot oldCopy{{{u"old"_s, u"x"_s}}, {}, {}};

} // namespace

class TestLocalJobCopy : public QObject
{
    Q_OBJECT

private slots:
    void TakesTheWholeListAndNothingElse()
    {
        const ProgramFolder folder;
        folder.Sql(blank, u"INSERT INTO Projects (JobID) VALUES ('1'), ('of the template')"_s);
        folder.Sql(blank, u"INSERT INTO Users (User) VALUES ('ANNA'), ('OLD')"_s);
        LeaveOldCopy(folder, false);
        LocalJobCopy::Snapshot odd = snapshot; // of a file that knows no unique id
        odd.projects += {{QVariant(), u"nameless"_s}, {u"1"_s, u"once more"_s}};
        LocalJobCopy::Write(folder.File(blank), folder.File(jobsFile), odd);
        folder.Sql(jobsFile, u"ALTER TABLE Projects ADD COLUMN Colour TEXT"_s); // by another version
        QCOMPARE(Copied(folder), Text(snapshot));
    }

    void KeepsTheOldCopyWhenItMayNotReplace()
    {
        const ProgramFolder folder;
        LeaveOldCopy(folder, false);
        QStringList names = folder.Names();
        {
            const Holder other(folder.File(jobsFile), Holder::Writing); // a program at work in it
            QVERIFY_THROWS_EXCEPTION(dao::Error, Write(folder));
        }
        const ProgramFolder empty;
        empty.Write(blank, {}); // a template without tables
        QVERIFY_THROWS_EXCEPTION(dao::Error, LocalJobCopy::Write(empty.File(blank), folder.File(jobsFile), snapshot));
        QCOMPARE(Copied(folder), Text(oldCopy));
        QCOMPARE(folder.Names(), names);

        QFile::remove(folder.File(jobsFile));
        QVERIFY(QDir(folder.Path()).mkdir(jobsFile));
        names.removeOne(jobsFile);
        QVERIFY_THROWS_EXCEPTION(dao::Error, Write(folder));
        QCOMPARE(folder.Names(), names);
    }

    // Where the system can't tell that two names are those of one file.
    void NeverReplacesTheFileItComesFrom()
    {
        const ProgramFolder folder;
        folder.MakeJobs(jobsFile);
        folder.Sql(jobsFile, u"INSERT INTO \":File\" (FileId) VALUES ('the one')"_s);
        LocalJobCopy::Snapshot own = snapshot;
        own.fileId = u"the one"_s;
        QVERIFY_THROWS_EXCEPTION(dao::Error, LocalJobCopy::Write(folder.File(blank), folder.File(jobsFile), own));
        own.fileId = u"another"_s;
        LocalJobCopy::Write(folder.File(blank), folder.File(jobsFile), own);
        QCOMPARE(Copied(folder), Text(snapshot));
    }

    void TakesNoJournalOver()
    {
        for (const bool oldCopyRemains : {true, false}) {
            const ProgramFolder folder;
            LeaveOldCopy(folder, true);
            if (!oldCopyRemains)
                QFile::remove(folder.File(jobsFile));
            for (const QString &left : {u"Jobs.mdb.unfinished-1"_s, u"Jobs.mdb.unfinished-1-journal"_s}) {
                folder.Write(left, "of an earlier crash");
                QFile file(folder.File(left));
                QVERIFY(file.open(QFile::ReadWrite)
                        && file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFile::FileModificationTime));
            }
            Write(folder);
            QCOMPARE(Copied(folder), Text(snapshot));
            QCOMPARE(folder.Names().filter(u"Jobs.mdb"_s), QStringList({blank, jobsFile}));
        }
    }
};

QTEST_GUILESS_MAIN(TestLocalJobCopy)
#include "tst_localjobcopy.moc"
