#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/FormServices.h"
#include "texts/TextState.h"

#include <QLatin1String>
#include <QPointer>
#include <QString>

#include <map>

class Form;
class Prompts;

// The interface text store: applies each form's table when it loads, writes it back when it unloads, and makes and completes
// the table from the form's design.
class Common : public FormServices
{
public:
    // `localDB` must be open and outlive this.
    Common(dao::Database &localDB, TextState &state, Prompts &prompts);
    ~Common() override;

    // Says once, at start, whether tips are shown, and shows those of the forms that were loaded before it was known.
    void SetShowToolTips(bool show);

    // A failing database is logged, and the form keeps what it shows. A form whose table could not be read is not saved
    // either, so that its design never takes the place of what is stored.
    void LoadProperties(Form &form) override;
    void SaveProperties(Form &form) override;

    // The position in the form's Controls of the control that `key` names, or -1.
    static int FindControlIndex(const Form &form, const QString &key);

private:
    struct OpenTable
    {
        QPointer<Form> form;
        dao::Recordset rows;
    };

    bool Confirm(Form &form, QLatin1String question);

    dao::Database &localDB_;
    TextState &state_;
    Prompts &prompts_;
    std::map<const Form *, OpenTable> recordsets_; // of the loaded forms
};
