#pragma once

#include <QLabel>

// A line at the foot of a window that says what is amiss. Screen readers are told of each new text.
class NoticeLine : public QLabel
{
    Q_OBJECT

public:
    explicit NoticeLine(QWidget *window);

    void ShowText(const QString &text); // plain text; an empty one hides the line
};
