#include "settings/PathJudgement.h"

#include <QCoreApplication>

QString PathJudgement::Text() const
{
    switch (outcome) {
    case Outcome::Found:
        return QStringLiteral(QT_TRANSLATE_NOOP("AdminForm", "Found. People: %1, jobs: %2")).arg(people).arg(jobs);
    case Outcome::NoCompanyDatabase:
        return QStringLiteral(QT_TRANSLATE_NOOP("AdminForm", "This file is no company database."));
    case Outcome::Locked:
        return QStringLiteral(
            QT_TRANSLATE_NOOP("AdminForm", "The file is there, but another program keeps it locked."));
    case Outcome::NoAnswer:
        return QStringLiteral(QT_TRANSLATE_NOOP("AdminForm", "The file does not answer."));
    case Outcome::Missing:
        break;
    }
    return QStringLiteral(QT_TRANSLATE_NOOP("AdminForm", "There is no such file, or it cannot be read."));
}
