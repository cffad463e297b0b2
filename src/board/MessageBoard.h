#pragma once

#include "platform/forms/Form.h"

#include <memory>

namespace Ui {
class MessageBoard;
}

// The board of all users. A person who closes it only minimises it, so that what it shows survives; the program unloads it.
class MessageBoard : public Form
{
    Q_OBJECT

public:
    explicit MessageBoard(FormServices &services);
    ~MessageBoard() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    bool QueryUnload() override;

private:
    std::unique_ptr<Ui::MessageBoard> ui_;
};
