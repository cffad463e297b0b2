#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

// Tells when the session ends: a logoff or a shutdown reported by the desktop, or the signal that asks a process to end. The
// program then closes without asking. Should it hang, in a file system or in a dialog of the system, the process is ended a
// few seconds later all the same.
class SessionEnd : public QObject
{
    Q_OBJECT

public:
    SessionEnd();
    ~SessionEnd() override;

signals:
    void Ending();

private:
    std::unique_ptr<QSocketNotifier> notifier_;
};
