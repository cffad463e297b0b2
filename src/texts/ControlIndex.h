#pragma once

#include "platform/forms/Form.h"

#include <QHash>

// Finds a form's controls by the keys of its text table. Case does not matter, as it does not for the table's index.
class ControlIndex
{
public:
    explicit ControlIndex(const Form &form);

    // The position in Controls, or -1. A key with "(" names the member of a control array; one without names a control or
    // the first member of an array.
    int Find(const QString &key) const;
    Control *FindControl(const QString &key) const;

    // Takes in the controls that were added to the form since.
    void Update();

private:
    const Form &form_;
    std::size_t indexed_ = 0;
    QHash<QString, int> positions_;
};
