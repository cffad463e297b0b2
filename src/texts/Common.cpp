#include "texts/Common.h"

#include "platform/forms/Form.h"
#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "texts/ControlIndex.h"
#include "texts/Danish.h"
#include "texts/Help.h"
#include "texts/TextApply.h"
#include "texts/TextRow.h"

#include <QLoggingCategory>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.texts")

const char *const loadQuestion = QT_TRANSLATE_NOOP("Messages", "Load '%1' properties from DATABASE?");
const char *const saveQuestion = QT_TRANSLATE_NOOP("Messages", "Save '%1' properties to DATABASE?");

} // namespace

Common::Common(dao::Database &localDB, TextState &state, Prompts &prompts)
    : localDB_(localDB), state_(state), prompts_(prompts)
{
    SayInDanish(state.language.LanguageName == "Danish"_L1);
}

Common::~Common() = default;

void Common::SetShowToolTips(bool show)
{
    state_.ShowToolTips = show;
    for (auto &[key, table] : recordsets_) {
        if (table.form == nullptr)
            continue;
        if (!show) {
            ClearToolTips(*table.form);
            continue;
        }
        try {
            ApplyToolTips(*table.form, table.rows, state_.language);
        } catch (const dao::Error &error) {
            qCWarning(log).noquote() << table.form->Name() << error.Text();
        }
    }
}

void Common::LoadProperties(Form &form)
{
    try {
        dao::Recordset opened = TextTable::Open(localDB_, form.Name());
        opened.MoveFirst();
        const bool empty = opened.Eof();
        const bool confirmed = Confirm(form, empty ? saveQuestion : loadQuestion);
        if (confirmed && !empty)
            ApplyRows(form, opened, state_.language, state_.ShowToolTips.value_or(false));
        if (confirmed && state_.ShowToolTips == false)
            ClearToolTips(form);
        dao::Recordset &table =
            recordsets_.insert_or_assign(&form, OpenTable{&form, std::move(opened)}).first->second.rows;
        if (confirmed)
            TextRows::Write(localDB_, table, TextRows::Missing(form, table), u"adding the texts of "_s + form.Name());
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << form.Name() << error.Text();
    }
}

void Common::SaveProperties(Form &form)
{
    LeaveEditMode(form); // what is saved are the form's own colour and visibility
    auto opened = recordsets_.extract(&form);
    if (!opened || !Confirm(form, saveQuestion))
        return;
    try {
        dao::Recordset &table = opened.mapped().rows;
        table.Requery();
        const QList<TextRow> rows =
            TextRows::Missing(form, table)
            + TextRows::Changed(form, table, state_.language, state_.ShowToolTips.value_or(false));
        TextRows::Write(localDB_, table, rows, u"saving the texts of "_s + form.Name());
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << form.Name() << error.Text();
    }
}

dao::Recordset *Common::RowsOf(const Form &form)
{
    const auto opened = recordsets_.find(&form);
    return opened == recordsets_.end() ? nullptr : &opened->second.rows;
}

int Common::FindControlIndex(const Form &form, const QString &key)
{
    return ControlIndex(form).Find(key);
}

// Only the makers are asked. A window can neither go on loading nor be gone before they have answered.
bool Common::Confirm(Form &form, const char *question)
{
    if (!state_.DevMode)
        return true;
    const auto confirmed = std::make_shared<bool>(false);
    WaitFor([&](const std::function<void()> &done) {
        prompts_.AskYesNo(&form, Say(question).arg(form.Name()), [confirmed, done](bool yes) {
            *confirmed = yes;
            done();
        });
    });
    return *confirmed;
}
