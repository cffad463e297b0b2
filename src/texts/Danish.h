#pragma once

#include <QString>

// The Danish text that goes with an English text of a form's design; empty when there is none. Danish is data of the text
// tables, so the translation is never installed in the application.
QString DanishText(const QString &form, const QString &english);
