#pragma once

#include "platform/dao/Database.h"

#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <QVariantList>

// The files of Anna, and those of all.
inline const QString timeFile = QStringLiteral("ANNA.mdb");
inline const QString personalFile = QStringLiteral("ANNA Stemp.mdb");
inline const QString jobsFile = QStringLiteral("Jobs.mdb");
inline const QString companyFile = QStringLiteral("company.mdb");

// A program folder of its own in a temporary directory: an (empty) executable and the three templates.
class ProgramFolder
{
public:
    ProgramFolder();

    QString Path() const { return QDir::toNativeSeparators(folder_.path()); } // as System gives it
    QString File(const QString &name) const { return QDir::toNativeSeparators(folder_.filePath(name)); }
    bool Has(const QString &name) const;
    QStringList Names() const; // of all files, sorted
    // Neither on a file that is open as a database.
    QByteArray Content(const QString &name) const;
    void Write(const QString &name, const QByteArray &content) const;

    void Copy(const QString &templateName, const QString &name) const;
    void MakeJobs(const QString &name, const QStringList &ids = {}) const; // a job database; its jobs are named "x"
    void MakePersonal() const;                                             // Anna's
    // Runs one statement on a file through a connection of its own; the rows it gives.
    QList<QVariantList> Sql(const QString &name, const QString &statement, const QVariantList &values = {}) const;
    // The same as text: fields divided by blanks, rows by ", ".
    QString Rows(const QString &name, const QString &select) const;

private:
    QTemporaryDir folder_;
};

// Another program that holds a database file, until it lets go of it.
class Holder
{
public:
    enum What { Reading, Writing, Everything }; // while it reads no commit gets through

    explicit Holder(const QString &path, What what = Everything);
    void LetGo() { database_.Close(); }

private:
    dao::Database database_;
};
