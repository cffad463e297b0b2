#include "clock/JobList.h"

#include <algorithm>
#include <numeric>

namespace {

// Letter by letter, so that a text keeps its length, which QString::toUpper does not promise ("ß").
QChar Upper(QChar letter)
{
    if (letter.unicode() < 0x80) // nearly all of them
        return letter >= u'a' && letter <= u'z' ? QChar(letter.unicode() - (u'a' - u'A')) : letter;
    return letter.toUpper();
}

} // namespace

void JobList::Clear()
{
    *this = JobList();
}

void JobList::Assign(QStringList items)
{
    Clear();
    items_ = std::move(items);

    upper_.reserve(std::accumulate(items_.cbegin(), items_.cend(), qsizetype(0),
                                   [](qsizetype sum, const QString &item) { return sum + item.size(); }));
    for (const QString &item : std::as_const(items_))
        AppendUpper(item);
}

bool JobList::Add(const QString &item)
{
    if (Contains(item))
        return false;
    items_.append(item);
    known_.insert(item);
    AppendUpper(item);
    return true;
}

bool JobList::Contains(const QString &item) const
{
    if (known_.isEmpty())
        known_ = QSet<QString>(items_.cbegin(), items_.cend());
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
    QString wanted = search;
    std::transform(search.begin(), search.end(), wanted.begin(), Upper);
    int item = -1;
    qsizetype end = 0; // of the item
    for (qsizetype hit = upper_.indexOf(wanted); hit >= 0;) {
        while (end <= hit)
            end += items_.at(++item).size();
        const bool within = hit + wanted.size() <= end;
        if (within)
            found.append(item);
        hit = upper_.indexOf(wanted, within ? end : hit + 1);
    }
    return found;
}

void JobList::AppendUpper(const QString &item)
{
    const qsizetype begin = upper_.size();
    upper_.resize(begin + item.size());
    std::transform(item.begin(), item.end(), upper_.begin() + begin, Upper);
}
