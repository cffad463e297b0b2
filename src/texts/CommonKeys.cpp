#include "platform/forms/Form.h"
#include "platform/forms/Prompts.h"
#include "platform/forms/WindowPlace.h"
#include "platform/system/Say.h"
#include "texts/Common.h"
#include "texts/ControlIndex.h"
#include "texts/Danish.h"
#include "texts/Help.h"
#include "texts/ShippedTexts.h"
#include "texts/TextRow.h"

#include <QKeyEvent>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

// The part of Common that answers keys and the mouse.

namespace {

Q_LOGGING_CATEGORY(log, "stemp.texts")

constexpr qsizetype longestList = 8; // of changed texts in a question

QString InLanguage(const QString &context, const QString &english, const TextLanguage &language)
{
    const QString danish = language.LanguageName == "Danish"_L1 ? DanishText(context, english) : QString();
    return danish.isEmpty() ? english : danish;
}

// Stands under the help of every form, where a person in need of it looks.
QString WayBackHint(const TextLanguage &language)
{
    const QString english =
        QLatin1String(QT_TRANSLATE_NOOP("Help", "Ctrl+E changes texts and places in this window (Escape ends it), and "
                                                "Ctrl+Shift+Backspace puts the shipped ones back."));
    return InLanguage(u"Help"_s, english, language);
}

QString ResetQuestion(const QStringList &changedTexts)
{
    QString question =
        Say("Put the shipped layout and texts of this window back?\n\nThe window and all its controls return to "
            "their shipped places and sizes. What you typed and chose in it stays.");
    if (changedTexts.isEmpty())
        return question;
    question += Say("\n\nThese texts were changed and would go:\n") + changedTexts.mid(0, longestList).join(u'\n');
    if (changedTexts.size() > longestList)
        question += Say("\n… and %1 more").arg(changedTexts.size() - longestList);
    return question;
}

bool FillsScreen(const Form &form)
{
    return form.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
}

} // namespace

bool Common::FormKeyDown(Form &form, QKeyEvent &key)
{
    const Qt::KeyboardModifiers held = key.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    switch (key.key()) {
    case Qt::Key_F1: {
        const Control *active = held ? nullptr : form.ActiveControl();
        ShowHelp(form, active ? active->Key() : QString(TextRows::me));
        return true;
    }
    case Qt::Key_E:
        if (held != Qt::ControlModifier || editMode_.IsOn(form))
            return false;
        editMode_.Begin(form);
        return true;
    case Qt::Key_Escape:
        if (!editMode_.IsOn(form))
            return false;
        LeaveEditMode(form);
        return true;
    case Qt::Key_Backspace:
        if (held != (Qt::ControlModifier | Qt::ShiftModifier))
            return false;
        PutShippedBack(form);
        return true;
    default:
        return false;
    }
}

void Common::LeaveEditMode(const Form &form)
{
    if (editMode_.IsOn(form))
        editMode_.Leave();
}

void Common::FormMouseDown(Form &form, const QMouseEvent &mouse)
{
    dragged_ = nullptr;
    if (mouse.button() != Qt::LeftButton || !form.CanBeDragged() || FillsScreen(form))
        return;
    dragged_ = &form;
    dragPoint_ = mouse.globalPosition().toPoint() - form.pos();
}

// The place of the pointer on the screen counts: its place in the window is outdated while the window follows.
void Common::FormMouseMove(Form &form, const QMouseEvent &mouse)
{
    if (dragged_ != &form || mouse.buttons() != Qt::LeftButton)
        return;
    if (SystemPlacesWindows()) {
        dragged_ = nullptr; // the system takes the mouse
        form.windowHandle()->startSystemMove();
    } else {
        form.move(mouse.globalPosition().toPoint() - dragPoint_);
    }
}

void Common::ShowHelp(Form &form, const QString &key)
{
    QString text = key == TextRows::me ? QString() : HelpOf(form, key);
    if (text.isEmpty())
        text = HelpOf(form, TextRows::me) + u"\n\n"_s + WayBackHint(state_.language);
    if (!help_)
        help_ = std::make_unique<Help>(*this, form);
    help_->ShowText(text, form);
}

bool Common::HelpShown() const
{
    return help_ && help_->IsLoaded();
}

void Common::UnloadHelp()
{
    if (help_)
        help_->Unload();
}

// From the table, in the current language or else in English; as it was designed when the table can't say.
QString Common::HelpOf(const Form &form, const QString &key)
{
    try {
        if (dao::Recordset *rows = RowsOf(form)) {
            rows->Seek(key);
            if (rows->NoMatch())
                return {};
            const QString text = rows->Field(state_.language.HelpField()).toString();
            return text.isEmpty() ? rows->Field(u"HelpEnglish"_s).toString() : text;
        }
    } catch (const dao::Error &error) {
        qCWarning(log).noquote() << form.Name() << error.Text();
    }
    const Control *control = ControlIndex(form).FindControl(key);
    return InLanguage(form.Name(), control ? control->Design().help : form.DesignHelp(), state_.language);
}

void Common::PutShippedBack(Form &form)
{
    LeaveEditMode(form);
    try {
        const QList<TextRow> shipped = ShippedTexts::Rows(form, state_.language);
        const QStringList changed = ShippedTexts::Changed(form, shipped, state_.language, RowsOf(form));
        prompts_.AskYesNo(&form, ResetQuestion(changed), [this, &form, shipped](bool yes) {
            if (yes && form.IsLoaded())
                PutBack(form, shipped);
        });
    } catch (const dao::Error &error) {
        TellNotPutBack(form, error);
    }
}

void Common::PutBack(Form &form, const QList<TextRow> &shipped)
{
    try {
        if (dao::Recordset *table = RowsOf(form))
            TextRows::Write(localDB_, *table, shipped, u"putting back the shipped texts of "_s + form.Name());
        ShippedTexts::Show(form, shipped, state_.language, state_.ShowToolTips.value_or(false));
    } catch (const dao::Error &error) {
        TellNotPutBack(form, error);
    }
}

void Common::TellNotPutBack(Form &form, const dao::Error &error)
{
    qCWarning(log).noquote() << form.Name() << error.Text();
    prompts_.MsgBox(&form, Say("The shipped layout and texts could not be put back, because your database could not be "
                               "read or written. Please try again."));
}
