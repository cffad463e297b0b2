#include "board/ShortText.h"

#include "platform/dao/Database.h"
#include "platform/system/Say.h"

QString FirstCharacters(const QString &text, qsizetype count)
{
    const bool splits = text.size() > count && count > 0 && text[count - 1].isHighSurrogate();
    return text.left(splits ? count - 1 : count);
}

QString FirstCharactersOf(const QVariant &value, qsizetype count)
{
    return dao::IsTooLarge(value) ? Say("(too large to be read)") : FirstCharacters(value.toString(), count);
}
