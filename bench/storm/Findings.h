#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// What is found in the files of a storm once all copies have ended and nothing is under way any more.
struct Findings
{
    int messages = 0; // one for each recipient
    int lost = 0;     // queued for certain, or seen by another recipient, and not in the recipient's history
    int doubled = 0;
    std::vector<double> polls; // milliseconds each, sorted
    int locked = 0;
    QStringList faults; // a sentence each: damaged files, rows left behind, what a person would be troubled with

    double Poll(double share) const; // 0.5: the median
};

Findings FindAll(const QString &folder, int copies);
