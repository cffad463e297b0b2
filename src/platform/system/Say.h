#pragma once

#include <QCoreApplication>

// A text that the program says at run time, in the language in use: English, unless a translator of the application knows the
// context "Messages". The texts of the windows' designs are none of these.
inline QString Say(const char *english)
{
    return QCoreApplication::translate("Messages", english);
}
