#include "forms/TestForm.h"

#include "ui_TestForm.h"

#include <QKeyEvent>

TestForm::TestForm(FormServices &services)
    : Form(QStringLiteral("TestForm"), services), ui_(std::make_unique<Ui::TestForm>())
{
    ui_->setupUi(this);
    ui_->Grid->setModel(&rows);
    RegisterControls();
    SetDefaultButton(ui_->OKButton);
    SetCancelButton(ui_->CancelButton);
    connect(
        ui_->OKButton, &QPushButton::clicked, this, [this] { happened.append(QStringLiteral("ok")); });
    connect(
        ui_->CancelButton, &QPushButton::clicked, this, [this] { happened.append(QStringLiteral("cancel")); });
    connect(ui_->OtherButton, &QPushButton::clicked, this, [this] { happened.append(QStringLiteral("other")); });
}

TestForm::~TestForm() = default;

Control *TestForm::At(const QString &key) const
{
    for (const auto &control : Controls())
        if (control->Key() == key)
            return control.get();
    qFatal("no control %s", qPrintable(key));
}

void TestForm::Form_Load()
{
    LoadTexts();
    happened.append(QStringLiteral("load"));
}

void TestForm::Form_Unload()
{
    happened.append(isVisible() ? QStringLiteral("unload shown") : QStringLiteral("unload"));
    SaveTexts();
}

bool TestForm::Form_KeyDown(QKeyEvent &event)
{
    keys.append(event.key());
    return consumesKeys;
}
