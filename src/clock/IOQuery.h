#pragma once

#include "platform/forms/Form.h"

#include <QDateTime>
#include <QStringList>

#include <memory>
#include <optional>

class Prompts;
class QRadioButton;
class TimeSource;
struct ClockState;

namespace Ui {
class IOQuery;
}

// Asks a person who is still stemped in what becomes of the open row. The choice is carried out, by one of the two signals,
// when the window unloads; closing it by the frame or with Escape carries out what is selected.
class IOQuery : public Form
{
    Q_OBJECT

public:
    // `time` and `clock` must outlive this. The icon is the caller's to set.
    IOQuery(FormServices &services, Prompts &prompts, const TimeSource &time, const ClockState &clock);
    ~IOQuery() override;

    void Abandon(); // closes it, also under a warning, and carries nothing out: the row stays open

signals:
    void StempInLook();
    void StempOutAt(const QDateTime &time);

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void QueryUnload() override;

private:
    void Options_Click(int index);
    void Commands_Click();
    void Texts_Change();

    bool MoveSelection(int key); // by an arrow key
    bool Confirm();              // by Enter
    QRadioButton *FocusedOption() const;
    std::optional<QDateTime> TypedTime() const;
    void Leave(); // unloads once the choice can be carried out and the warnings were read
    void Warn(QStringList warnings);
    bool CanCarryOut(); // false after a message, with the text selected
    void CarryOut();

    std::unique_ptr<Ui::IOQuery> ui_;
    Prompts &prompts_;
    const TimeSource &time_;
    const ClockState &clock_;
    std::optional<QDateTime> out_; // the typed time that the warnings are about
    bool abandoned_ = false;
};
