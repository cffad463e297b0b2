#include "support/ProgramFolder.h"

#include <QDir>
#include <QFile>

ProgramFolder::ProgramFolder()
{
    for (const QString &name :
         {QStringLiteral("Blank.mdb"), QStringLiteral("blank Stemp.mdb"), QStringLiteral("Blank Jobs.mdb")})
        QFile::copy(QStringLiteral(STEMP_TEMPLATES "/") + name, File(name));
    Write(QStringLiteral("stemp"), {});
}

bool ProgramFolder::Has(const QString &name) const
{
    return QFile::exists(File(name));
}

QStringList ProgramFolder::Names() const
{
    return QDir(Path()).entryList(QDir::Files, QDir::Name);
}

void ProgramFolder::Copy(const QString &templateName, const QString &name) const
{
    QFile::copy(File(templateName), File(name));
}

QByteArray ProgramFolder::Content(const QString &name) const
{
    QFile file(File(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ProgramFolder::MakeJobs(const QString &name, const QStringList &ids) const
{
    Copy(QStringLiteral("Blank Jobs.mdb"), name);
    for (const QString &id : ids)
        Sql(name, QStringLiteral("INSERT INTO Projects (JobID, JobName) VALUES (?, 'x')"), {id});
}

void ProgramFolder::MakePersonal() const
{
    Copy(QStringLiteral("blank Stemp.mdb"), personalFile);
}

void ProgramFolder::Write(const QString &name, const QByteArray &content) const
{
    QFile file(File(name));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(content);
}

QList<QVariantList> ProgramFolder::Sql(const QString &name, const QString &statement, const QVariantList &values) const
{
    dao::Database database = dao::Database::OpenDatabase(File(name));
    const QString purpose = QStringLiteral("a test's own statement");
    if (statement.startsWith(QStringLiteral("SELECT")))
        return database.Select(statement, values, purpose);
    database.Execute(statement, values, purpose);
    return {};
}

QString ProgramFolder::Rows(const QString &name, const QString &select) const
{
    QStringList rows;
    for (const QVariantList &row : Sql(name, select)) {
        QStringList fields;
        for (const QVariant &field : row)
            fields.append(field.toString());
        rows.append(fields.join(u' '));
    }
    return rows.join(QStringLiteral(", "));
}

Holder::Holder(const QString &path, What what) : database_(dao::Database::OpenDatabase(path))
{
    const QStringList kinds{QStringLiteral("BEGIN"), QStringLiteral("BEGIN IMMEDIATE"),
                            QStringLiteral("BEGIN EXCLUSIVE")};
    database_.Execute(kinds.at(what), {}, {});
    if (what == Reading)
        database_.Select(QStringLiteral("SELECT count(*) FROM sqlite_master"), {}, {});
}
