#include "clock/JobList.h"

#include <QStringMatcher>

#include <numeric>

void JobList::Clear()
{
    *this = JobList();
}

void JobList::Assign(QStringList items)
{
    Clear();
    items_ = std::move(items);

    ends_.reserve(items_.size());
    upper_.reserve(std::accumulate(items_.cbegin(), items_.cend(), qsizetype(0),
                                   [](qsizetype sum, const QString &item) { return sum + item.size(); }));
    for (const QString &item : std::as_const(items_)) {
        AppendUpper(item);
    }
}

bool JobList::Add(const QString &item)
{
    if (Contains(item)) {
        return false;
    }
    items_.append(item);
    known_.insert(item);
    AppendUpper(item);
    return true;
}

bool JobList::Contains(const QString &item) const
{
    if (known_.isEmpty()) {
        known_ = QSet<QString>(items_.cbegin(), items_.cend());
    }
    return known_.contains(item);
}

QList<int> JobList::Matches(const QString &search) const
{
    QList<int> found;
    if (search.isEmpty()) {
        found.resize(items_.size());
        std::iota(found.begin(), found.end(), 0);
        return found;
    }

    // One search through all the texts at once costs a fraction of a search for each item. A hit may lie across the border of
    // two items: it counts only when it ends within the item in which it begins.
    const QString wanted = search.toUpper();
    const QStringMatcher matcher(wanted);
    int item = 0;
    qsizetype from = 0;
    while ((from = matcher.indexIn(upper_, from)) >= 0) {
        while (ends_.at(item) <= from) {
            ++item;
        }
        if (from + wanted.size() <= ends_.at(item)) {
            found.append(item);
            from = ends_.at(item);
        } else {
            ++from;
        }
    }
    return found;
}

void JobList::AppendUpper(const QString &item)
{
    upper_ += item.toUpper();
    ends_.append(upper_.size());
}
