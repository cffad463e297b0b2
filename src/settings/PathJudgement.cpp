#include "settings/PathJudgement.h"

#include "platform/system/Say.h"

#include <QCoreApplication>

QString PathJudgement::Text() const
{
    switch (outcome) {
    case Outcome::Found:
        return Say("Found. People: %1, jobs: %2").arg(people).arg(jobs);
    case Outcome::NoCompanyDatabase:
        return Say("This file is no company database.");
    case Outcome::Locked:
        return Say("The file is there, but another program keeps it locked.");
    case Outcome::NoAnswer:
        return Say("The file does not answer.");
    case Outcome::Missing:
        break;
    }
    return Say("There is no such file, or it cannot be read.");
}
