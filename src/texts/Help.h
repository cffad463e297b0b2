#pragma once

#include "platform/forms/Form.h"

#include <QDeadlineTimer>
#include <QPointer>
#include <QWindow>

#include <memory>

namespace Ui {
class Help;
}

// The window with the help of one control or form. It stays up beside the form that is worked with, which keeps the focus.
class Help : public Form
{
    Q_OBJECT

public:
    Help(FormServices &services, const QWidget &beside); // its designed place
    ~Help() override;

    void ShowText(const QString &text, Form &asker); // loads and shows the window if it is not up

    bool CanBeDragged() const override { return false; }

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ComeUp(Form &asker);

    std::unique_ptr<Ui::Help> ui_;
    QPointer<QWindow> asker_;   // that the keys go back to
    QDeadlineTimer handsOn_{0}; // until then the system, and not a person, makes this the active window
};
