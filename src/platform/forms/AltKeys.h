#pragma once

#include <QObject>

class QKeyEvent;

// Alt with another key, not AltGr, which arrives as Ctrl+Alt on some systems and writes letters.
bool IsAltCombination(const QKeyEvent &key);

// An Alt combination that nothing answers does nothing, in every window: a text box would type its letter, a list would look
// for it. It is left to the system, which closes the window on Alt+F4.
class AltKeys : public QObject
{
public:
    // Once for the application. What watches the application from then on sees the keys first.
    static void Install();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using QObject::QObject;
};
