#pragma once

#include "platform/forms/Form.h"

#include <memory>

namespace dao {
class Database;
}

namespace Ui {
class Status;
}

// The dialog in which a status text is typed, or picked among those that were saved.
class Status : public Form
{
    Q_OBJECT

public:
    // `localDB` is the per-login database, and outlives this. `comment` is the status of `user` as it is now.
    Status(FormServices &services, dao::Database &localDB, QString user, QString comment);
    ~Status() override;

    bool IsAccepted() const { return accepted_; }
    QString Text() const { return text_; } // when accepted; at most 80 characters, none to take the status away

    void ShowRunTimeTexts() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void SaveButton_Click();
    void RemoveButton_Click();
    void SendButton_Click();

    void FillStatusCombo();
    void List(const QString &status);         // each text once
    int PlaceOf(const QString &status) const; // in the list; -1 when it is not there

    std::unique_ptr<Ui::Status> ui_;
    dao::Database &localDB_;
    QString user_;
    QString comment_;
    bool accepted_ = false;
    QString text_;
};
