#include "platform/forms/Application.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QImageReader>

void ApplyApplicationFont(QApplication &)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(13);
    QApplication::setFont(font);
}

// What is read stays with Qt, for all threads; the answers are of no interest.
ToolkitWarmUp::ToolkitWarmUp()
    : thread_([font = QApplication::font()] {
          static_cast<void>(QFontInfo(font).family());
          static_cast<void>(QImageReader::supportedImageFormats());
      })
{
}

ToolkitWarmUp::~ToolkitWarmUp()
{
    thread_.join();
}
