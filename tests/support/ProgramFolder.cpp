#include "support/ProgramFolder.h"

#include "platform/dao/Database.h"

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
