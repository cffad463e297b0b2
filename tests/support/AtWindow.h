#pragma once

#include "support/AnsweredPrompts.h"
#include "support/NoTexts.h"
#include "support/ProgramFolder.h"
#include "support/SettableTime.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <stdexcept>

// The control of that name in the design.
template <class T> T *Child(const QObject &window, const char *name)
{
    T *child = window.findChild<T *>(QLatin1String(name));
    return child ? child : throw std::logic_error(name);
}

QWidget *ShownWindow(const QString &name); // on the screen; nothing when there is none
void Click(const QWidget &window, const char *button);
void ClickCell(const QAbstractItemView &view, int row, int column = 0);
void TypeInto(QLineEdit *box, const QString &text); // key by key, in place of what stands there
// The rows with the texts of the columns that are not hidden.
QStringList ShownRows(const QAbstractItemView &view, const QString &between = QStringLiteral(" "));

// A person at a window, whose controls go by the names of the design; what windows are made with comes with it.
class AtWindow
{
public:
    const ProgramFolder folder;
    SettableTime time;
    AnsweredPrompts prompts;
    NoTexts texts;

    void Use(const QWidget &window) { window_ = &window; }
    void Open(Form &form)
    {
        Use(form);
        form.Load();
        form.show();
    }

    template <class T> T *Find(const char *name) const { return Child<T>(*window_, name); }
    QLineEdit *Box(const char *name) const { return Find<QLineEdit>(name); }
    QString Text(const char *label) const { return Find<QLabel>(label)->text(); }
    bool Shows(const char *name) const { return Find<QWidget>(name)->isVisible(); }
    void Press(const char *button) const { Click(*window_, button); }
    void Choose(const char *menu) const { Find<QAction>(menu)->trigger(); }

private:
    const QWidget *window_ = nullptr;
};
