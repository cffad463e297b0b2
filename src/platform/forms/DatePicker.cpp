#include "platform/forms/DatePicker.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

bool BelongsToTheNextKey(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_AltGr || key == Qt::Key_CapsLock || key == Qt::Key_NumLock;
}

} // namespace

void DatePicker::keyPressEvent(QKeyEvent *event)
{
    const QString typed = event->text();
    if (typed.isEmpty() || !typed.front().isPrint()) {
        if (!BelongsToTheNextKey(event->key()))
            typed_.clear();
        QDateEdit::keyPressEvent(event);
        return;
    }
    const QString selected = lineEdit()->selectedText();
    if (!selected.isEmpty() && selected == lineEdit()->text())
        setSelectedSection(sectionAt(0));
    const bool isFresh = lineEdit()->selectedText() == sectionText(currentSection()); // nothing is typed in it yet
    if (isFresh && currentSectionIndex() == 0)
        typed_ = typed;
    else if (!typed_.isEmpty())
        typed_ += typed;
    if (isFresh && !typed.front().isLetterOrNumber())
        return; // the separator in front of what is to be typed now

    QDateEdit::keyPressEvent(event);
    const QDate date = TypedDate();
    if (date.isValid() && date != this->date())
        setDate(date);
}

QDate DatePicker::TypedDate() const
{
    static const QRegularExpression separators(u"\\W+"_s);
    const QString typed = QString(typed_).replace(separators, u" "_s);
    const QString format = displayFormat().replace(separators, u" "_s);
    QString shortFormat; // without leading zeros
    for (const QString &part : format.split(u' '))
        shortFormat += (part.size() == 2 ? part.left(1) : part) + u' ';
    for (const QString &wanted : {format, shortFormat.trimmed(), QString(format).remove(u' ')})
        if (const QDate date = locale().toDate(typed, wanted); date.isValid())
            return date;
    return {};
}
