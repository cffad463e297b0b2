#pragma once

#include <QString>

// The Danish text that goes with an English text of a form's design; empty when there is none. Danish is data of the text
// tables, so the translation of the designs is never installed in the application.
QString DanishText(const QString &form, const QString &english);

// What the program says at run time is Danish from now on, or English again.
void SayInDanish(bool danish);
