#pragma once

#include "platform/system/System.h"

// A system that a test says everything of.
class FakeSystem : public System
{
public:
    QString login = QStringLiteral("anna");
    QString folder;
    QString executable = QStringLiteral("stemp");
    bool network = false;

    QString LoginName() const override { return login; }
    QString CurrentFolder() const override { return folder; }
    QString ExecutableName() const override { return executable; }
    QString ExecutableSuffix() const override { return {}; }
    bool HasDriveLetters() const override { return false; }
    bool IsNetworkMount(const QString &) const override { return network; }
};
