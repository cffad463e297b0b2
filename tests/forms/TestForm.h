#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/FormServices.h"
#include "platform/forms/RowsModel.h"

#include <QStringList>

#include <memory>

namespace Ui {
class TestForm;
}

// A text store of one form: what a form was left with is what it opens with.
class RememberingServices : public FormServices
{
public:
    std::optional<Geometry> stored;

    void LoadProperties(Form &form) override
    {
        if (stored)
            form.SetStoredGeometry(*stored);
    }
    void SaveProperties(Form &form) override { stored = form.StoredGeometry(); }
};

// A window with one of everything that matters; notes what happens to it.
class TestForm : public Form
{
public:
    explicit TestForm(FormServices &services);
    ~TestForm() override;

    Control *At(const QString &key) const;

    template <class Widget> Widget *WidgetAt(const QString &key) const
    {
        return qobject_cast<Widget *>(At(key)->Widget());
    }

    RowsModel rows{{QStringLiteral("Job"), QStringLiteral("From"), QStringLiteral("To")}};
    bool mayUnload = true;
    bool consumesKeys = false;
    QList<int> keys; // that the preview saw
    QStringList happened;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override { happened.append(QStringLiteral("resize")); }
    void ShowRunTimeTexts() override { At(QStringLiteral("OtherButton"))->SetCaption(QStringLiteral("Written")); }
    void QueryUnload() override
    {
        if (mayUnload)
            Unload();
    }
    bool Form_KeyDown(QKeyEvent &event) override;
    void MemberCreated(Control &control) override { happened.append(QStringLiteral("made ") + control.Key()); }

private:
    std::unique_ptr<Ui::TestForm> ui_;
};
