#include "texts/ControlIndex.h"

ControlIndex::ControlIndex(const Form &form) : form_(form)
{
    Update();
}

int ControlIndex::Find(const QString &key) const
{
    return positions_.value(key.toLower(), -1);
}

Control *ControlIndex::FindControl(const QString &key) const
{
    const int position = Find(key);
    return position < 0 ? nullptr : form_.ControlAt(position);
}

void ControlIndex::Update()
{
    for (; indexed_ < form_.Controls().size(); ++indexed_) {
        const Control &control = *form_.Controls()[indexed_];
        // Of two controls with the same key the first one counts.
        for (const QString &key : {control.Name().toLower(), control.Key().toLower()})
            if (!positions_.contains(key))
                positions_.insert(key, static_cast<int>(indexed_));
    }
}
