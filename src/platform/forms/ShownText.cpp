#include "platform/forms/ShownText.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>

namespace {

constexpr qsizetype room = 1000; // characters; more than any copy of the program writes, and little to lay out

bool IsLineEnd(char16_t c)
{
    return c == u'\n' || c == u'\r' || c == u'\t' || c == u'\u2028' || c == u'\u2029';
}

// Control characters, and those that only steer how others are laid out in two directions.
bool IsHidden(QChar character)
{
    const char16_t c = character.unicode();
    return character.category() == QChar::Other_Control || IsLineEnd(c) || c == u'\u061c' || c == u'\u200e'
           || c == u'\u200f' || (c >= u'\u202a' && c <= u'\u202e') || (c >= u'\u2066' && c <= u'\u2069');
}

QString Marked(QString shown, bool keepsLines)
{
    constexpr QChar mark = QChar::ReplacementCharacter;
    for (QChar &character : shown)
        if (IsHidden(character) && !(keepsLines && IsLineEnd(character.unicode())))
            character = mark;
    return shown;
}

} // namespace

QString ShownText(const QString &text)
{
    QString beginning = text.left(room);
    if (beginning.size() == text.size())
        return Marked(text, false);
    if (beginning.back().isHighSurrogate())
        beginning.chop(1);
    return Marked(beginning, false) + u'…';
}

QString ShownLines(const QString &text)
{
    return Marked(text, true);
}

QString ShownTextDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    const QVariant shown = value.typeId() == QMetaType::QString ? ShownText(value.toString()) : value;
    return QStyledItemDelegate::displayText(shown, locale);
}

void ShowItemsSafely(QComboBox &box)
{
    box.view()->setItemDelegate(new ShownTextDelegate(box.view()));
    // Else each item would be laid out, however long it is, to find the widest.
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // A completer that completes in place has none.
    if (QAbstractItemView *popup = box.completer() ? box.completer()->popup() : nullptr)
        popup->setItemDelegate(new ShownTextDelegate(popup));
}
