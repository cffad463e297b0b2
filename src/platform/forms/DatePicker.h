#pragma once

#include <QDateEdit>

// A box for a date that can be typed in one go as it is written, over the old date or from its first number on, with or without
// the separators. Qt's own box skips a number at a separator when the number before it was complete, and refuses
// the 31st while it shows a shorter month.
class DatePicker : public QDateEdit
{
    Q_OBJECT

public:
    using QDateEdit::QDateEdit;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QDate TypedDate() const; // invalid until the last digit

    QString typed_; // since the first number was begun
};
