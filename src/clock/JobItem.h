#pragma once

#include <QString>

// The text by which pick lists, search box and clock name a job: id, " : ", name. Compared exactly, with regard to case.
struct JobItem
{
    QString id;
    QString name;
};

QString JobItemText(const QString &id, const QString &name);

// What a person typed, as it can be stored in an id or a name: blanks in place of control characters and line ends.
QString BlanksForControls(QString typed);

// Splits an item at its first ":" and trims both halves. An item without ":", or with it in first place, is an id as a whole.
JobItem SplitJobItem(const QString &item);
