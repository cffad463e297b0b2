#pragma once

#include "platform/forms/Form.h"

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

private:
    void ComeUp(Form &asker);

    std::unique_ptr<Ui::Help> ui_;
};
