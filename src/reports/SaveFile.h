#pragma once

#include <QByteArray>
#include <QString>

// Writes a file under a temporary name that is renamed; false when that failed, with nothing left behind and an older file of
// that name untouched.
bool SaveFile(const QString &path, const QByteArray &content);
