#include "platform/forms/Application.h"

#include <QApplication>
#include <QFontDatabase>

void ApplyApplicationFont(QApplication &application)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(13);
    application.setFont(font);
}
