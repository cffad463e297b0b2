#pragma once

#include "platform/system/System.h"

#include <QString>

// How many rows the data files of a program folder get.
struct Amounts
{
    int timeRows = 0;
    int personalJobs = 0;
    int companyJobs = 0;
};

// The person whose files they are.
class BenchSystem : public System
{
public:
    QString LoginName() const override { return QStringLiteral("BENCH"); }
    QString ExecutableName() const override { return QStringLiteral("stemp"); }
};

// The job of this number: "K00042-117 : Brønshøj Dairy, spare parts".
QString JobIdOf(int number);
QString JobNameOf(int number);

// Makes a program folder with data files from the templates; the same rows at each call but for their dates, which lie back
// from today. The first jobs of the company are the person's own. Time rows are all completed.
void MakeProgramFolder(const QString &folder, const Amounts &amounts);
