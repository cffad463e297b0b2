#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

// One of the three lists of job items, in its own order. The upper-cased texts that the search compares are kept beside.
class JobList
{
public:
    void Clear();
    void Assign(QStringList items);
    // Appends the item unless it is there; true when it was added.
    bool Add(const QString &item);

    bool Contains(const QString &item) const; // exact, with regard to case
    qsizetype Count() const { return items_.size(); }
    bool IsEmpty() const { return items_.isEmpty(); }
    const QString &At(qsizetype i) const { return items_.at(i); }
    const QStringList &Items() const { return items_; }

    // The positions of the items in which `search` occurs anywhere, without regard to case (Danish letters included), in the
    // list's order; all positions for an empty search.
    QList<int> Matches(const QString &search) const;

private:
    void AppendUpper(const QString &item);

    QStringList items_;
    QString upper_;               // the upper-cased items, one after another, each as long as the item
    mutable QSet<QString> known_; // made at the first question: the company list, by far the longest, is never asked
};
