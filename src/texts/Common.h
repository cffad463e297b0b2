#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/FormServices.h"
#include "texts/EditMode.h"
#include "texts/TextState.h"

#include <QLatin1String>
#include <QPoint>
#include <QPointer>
#include <QString>

#include <map>
#include <memory>

class Form;
class Help;
class Prompts;
struct TextRow;

// The interface text store: applies each form's table when it loads, writes it back when it unloads, and makes and completes
// the table from the form's design. And what all forms do alike with keys and the mouse: F1 shows help, Ctrl+E begins the
// edit mode and Escape ends it, Ctrl+Shift+Backspace puts the shipped layout and texts back, and the left mouse button drags
// a form by its surface.
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
    void SaveProperties(Form &form) override; // ends the form's edit mode first

    bool FormKeyDown(Form &form, QKeyEvent &key) override;
    void FormMouseDown(Form &form, const QMouseEvent &mouse) override;
    void FormMouseMove(Form &form, const QMouseEvent &mouse) override;

    void LeaveEditMode(const Form &form); // of another form: goes on

    // Shows the help in the row `key` of the form's table; "Me" is that of the form itself, which also stands in for a control
    // without help. The form keeps the focus.
    void ShowHelp(Form &form, const QString &key);
    bool HelpShown() const;
    void UnloadHelp(); // with its place and size kept; while the database is open

    // The position in the form's Controls of the control that `key` names, or -1.
    static int FindControlIndex(const Form &form, const QString &key);

private:
    struct OpenTable
    {
        QPointer<Form> form;
        dao::Recordset rows;
    };

    bool Confirm(Form &form, const char *question);
    dao::Recordset *RowsOf(const Form &form); // nothing when its table could not be read
    QString HelpOf(const Form &form, const QString &key);
    void PutShippedBack(Form &form); // once the person has agreed
    void PutBack(Form &form, const QList<TextRow> &shipped);
    void TellNotPutBack(Form &form, const dao::Error &error);

    dao::Database &localDB_;
    TextState &state_;
    Prompts &prompts_;
    std::map<const Form *, OpenTable> recordsets_; // of the loaded forms
    EditMode editMode_{*this};
    std::unique_ptr<Help> help_; // from the first F1 on
    QPointer<Form> dragged_;     // since the left button went down on its surface
    QPoint dragPoint_;           // where in the window, frame included
};
