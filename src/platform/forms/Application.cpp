#include "platform/forms/Application.h"

#include <QApplication>
#include <QFontDatabase>

void ApplyApplicationFont(QApplication &)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(13);
    QApplication::setFont(font);
}
