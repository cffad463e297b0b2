#pragma once

#include "clock/OutQuery.h"
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
// when the window unloads; closing it by the frame carries out what is selected. A person who closes the program may also take
// that back, with a button or Escape: nothing is carried out then.
class IOQuery : public Form
{
    Q_OBJECT

public:
    // `time` and `clock` must outlive this. The icon is the caller's to set.
    IOQuery(FormServices &services, Prompts &prompts, const TimeSource &time, const ClockState &clock, OutQueryAt at);
    ~IOQuery() override;

    bool StaysOpen() const { return staysOpen_; } // the program is not to close after all

    void Abandon(); // closes it, also under a warning, and carries nothing out: the row stays open

signals:
    void StempInLook();
    void StempOutAt(const QDateTime &time);

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void QueryUnload() override;
    void ShowRunTimeTexts() override;

private:
    void Options_Click(int index);
    void Commands_Click();
    void Texts_Change();
    void StayButton_Click();

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
    const OutQueryAt at_;
    bool abandoned_ = false;
    bool staysOpen_ = false;
};
