#pragma once

class QApplication;

// The system's font for windows in the size that the windows are designed for, whatever the screen's resolution.
void ApplyApplicationFont(QApplication &application);
