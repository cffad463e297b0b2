#pragma once

#include <thread>

class QApplication;

// The system's font for windows in the size that the windows are designed for, whatever the screen's resolution.
void ApplyApplicationFont(QApplication &application);

// Has Qt read what the first window needs (the system's fonts, the formats of pictures) on a thread of its own, while
// the program opens its files. To be made when the application has its font, and to go before the application does.
class ToolkitWarmUp
{
public:
    ToolkitWarmUp();
    ~ToolkitWarmUp();
    ToolkitWarmUp(const ToolkitWarmUp &) = delete;
    ToolkitWarmUp &operator=(const ToolkitWarmUp &) = delete;

private:
    std::thread thread_;
};
