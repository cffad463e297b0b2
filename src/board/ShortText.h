#pragma once

#include <QString>

// The first `count` characters of a text; never half of a character that is made of two.
QString FirstCharacters(const QString &text, qsizetype count);
