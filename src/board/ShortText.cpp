#include "board/ShortText.h"

QString FirstCharacters(const QString &text, qsizetype count)
{
    const bool splits = text.size() > count && count > 0 && text[count - 1].isHighSurrogate();
    return text.left(splits ? count - 1 : count);
}
