#pragma once

#include <QString>
#include <QVariant>

// The first `count` characters of a text; never half of a character that is made of two.
QString FirstCharacters(const QString &text, qsizetype count);

// The same of what was read from a database; a value that is too large to be read says so.
QString FirstCharactersOf(const QVariant &value, qsizetype count);
