#pragma once

#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <QVariantList>

// A program folder of its own in a temporary directory: an (empty) executable and the three templates.
class ProgramFolder
{
public:
    ProgramFolder();

    QString Path() const { return QDir::toNativeSeparators(folder_.path()); } // as System gives it
    QString File(const QString &name) const { return QDir::toNativeSeparators(folder_.filePath(name)); }
    bool Has(const QString &name) const;
    QStringList Names() const; // of all files, sorted

    void Copy(const QString &templateName, const QString &name) const;
    void Write(const QString &name, const QByteArray &content) const; // never on a file that is open as a database
    // Runs one statement on a file through a connection of its own; the rows it gives.
    QList<QVariantList> Sql(const QString &name, const QString &statement, const QVariantList &values = {}) const;

private:
    QTemporaryDir folder_;
};
