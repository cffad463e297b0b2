#include "board/MessageBoard.h"

#include "ui_MessageBoard.h"

MessageBoard::MessageBoard(FormServices &services)
    : Form(QStringLiteral("MessageBoard"), services), ui_(std::make_unique<Ui::MessageBoard>())
{
    ui_->setupUi(this);
    RegisterControls();
}

MessageBoard::~MessageBoard() = default;

void MessageBoard::Form_Load()
{
    LoadTexts();
}

void MessageBoard::Form_Unload()
{
    SaveTexts();
}

void MessageBoard::Form_Resize()
{
    ui_->UserGrid->setGeometry(Surface()->rect());
}

bool MessageBoard::QueryUnload()
{
    showMinimized();
    return false;
}
