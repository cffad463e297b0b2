#include "platform/forms/Prompts.h"

#include "platform/forms/Form.h"
#include "platform/system/Say.h"

#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <memory>
#include <utility>

namespace {

constexpr std::chrono::milliseconds lookPeriod{500}; // whether a question still stands

// A window that is not on the screen would hide the box behind the others or keep it from being seen.
QWidget *ShownOwner(QWidget *owner)
{
    return owner && owner->window()->isVisible() ? owner->window() : nullptr;
}

QMessageBox *NewBox(QWidget *owner, QMessageBox::Icon icon, const QString &text)
{
    auto *box = new QMessageBox(icon, QGuiApplication::applicationDisplayName(), text, QMessageBox::NoButton,
                                ShownOwner(owner));
    box->setTextFormat(Qt::PlainText);
    return box;
}

// Opens in the folder of a path, with its file suggested.
QFileDialog *NewPicker(QWidget *owner, const QString &title, const QString &startPath, const QString &filter)
{
    const QFileInfo start(startPath);
    const QDir folder = start.absoluteDir();
    auto *picker =
        new QFileDialog(ShownOwner(owner), title, (folder.exists() ? folder : QDir()).absolutePath(), filter);
    picker->selectFile(start.fileName());
    return picker;
}

QString Picked(const QFileDialog &picker, int result)
{
    const QStringList files = picker.selectedFiles();
    return result == QDialog::Accepted && !files.isEmpty() ? files.first() : QString();
}

} // namespace

void WaitFor(const std::function<void(const std::function<void()> &done)> &begin)
{
    struct Wait
    {
        QEventLoop loop;
        bool isOver = false;
    };
    const auto wait = std::make_shared<Wait>(); // outlives this call if `done` comes later
    begin([wait] {
        wait->isOver = true;
        wait->loop.quit();
    });
    if (!wait->isOver)
        wait->loop.exec();
}

ScreenPrompts::~ScreenPrompts()
{
    for (const Standing &each : std::as_const(standing_))
        delete each.dialog;
}

void ScreenPrompts::MsgBox(QWidget *owner, const QString &text, std::function<void()> then)
{
    if (!MayAsk(owner, text))
        return;
    QMessageBox *box = NewBox(owner, QMessageBox::Information, text);
    box->setStandardButtons(QMessageBox::Ok);
    Show(*box, owner, text, [then = std::move(then)](int) {
        if (then)
            then();
    });
}

void ScreenPrompts::AskYesNo(QWidget *owner, const QString &text, std::function<void(bool yes)> then)
{
    if (!MayAsk(owner, text))
        return;
    QMessageBox *box = NewBox(owner, QMessageBox::Question, text);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No); // what is asked so deletes something
    Show(*box, owner, text, [then = std::move(then)](int result) { then(result == QMessageBox::Yes); });
}

void ScreenPrompts::AskChoice(QWidget *owner, const QString &text, const Choice &choice,
                              std::function<void(int answer)> then)
{
    if (!MayAsk(owner, text))
        return;
    QMessageBox *box = NewBox(owner, QMessageBox::Question, text);
    QList<QAbstractButton *> buttons;
    for (const QString &answer : choice.answers) {
        const bool isLast = buttons.size() == choice.answers.size() - 1; // stands last on all systems
        buttons.append(box->addButton(answer, isLast ? QMessageBox::RejectRole : QMessageBox::AcceptRole));
    }
    box->setDefaultButton(qobject_cast<QPushButton *>(buttons[choice.byEnter]));
    box->setEscapeButton(buttons[choice.byEscape]);
    if (choice.settled) {
        auto *look = new QTimer(box);
        QObject::connect(look, &QTimer::timeout, box, [box, settled = choice.settled] {
            if (settled())
                box->reject();
        });
        look->start(lookPeriod);
    }
    Show(*box, owner, text, [box, buttons, byEscape = choice.byEscape, then = std::move(then)](int) {
        const auto answer = buttons.indexOf(box->clickedButton()); // none when it was taken back
        then(answer < 0 ? byEscape : static_cast<int>(answer));
    });
}

void ScreenPrompts::PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                             std::function<void(const QString &path)> then)
{
    if (!MayAsk(owner, title))
        return;
    QFileDialog *picker = NewPicker(owner, title, startPath, filter);
    picker->setFileMode(QFileDialog::ExistingFile);
    Show(*picker, owner, title, [picker, then = std::move(then)](int result) { then(Picked(*picker, result)); });
}

void ScreenPrompts::PickSaveFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter,
                                 std::function<void(const QString &path)> then)
{
    if (!MayAsk(owner, title))
        return;
    QFileDialog *picker = NewPicker(owner, title, startPath, filter);
    picker->setFileMode(QFileDialog::AnyFile);
    picker->setAcceptMode(QFileDialog::AcceptSave);
    // The dialog would ask about the name as it was typed, which is another file than the one with the ending.
    picker->setOption(QFileDialog::DontConfirmOverwrite);
    Show(*picker, owner, title,
         [this, picker, asker = QPointer(owner), title, filter, then = std::move(then)](int result) {
             QString path = Picked(*picker, result);
             if (path.isEmpty())
                 return then({});
             const QString ending = filter.mid(filter.lastIndexOf(u'.'));
             if (!path.endsWith(ending, Qt::CaseInsensitive))
                 path += ending;
             if (!QFileInfo::exists(path))
                 return then(path);
             AskYesNo(
                 asker,
                 Say("The file\n%1\nis there already. Do you want to replace it?").arg(QDir::toNativeSeparators(path)),
                 [this, asker, title, path, filter, then](bool yes) {
                     if (yes)
                         then(path);
                     else
                         PickSaveFile(asker, title, path, filter, then);
                 });
         });
}

bool ScreenPrompts::MayAsk(QWidget *owner, const QString &text)
{
    standing_.removeIf([](const Standing &each) { return !each.dialog; }); // gone with its owner
    for (const Standing &each : std::as_const(standing_))
        if (each.owner == owner && each.text == text) {
            each.dialog->activateWindow();
            return false;
        }
    return !ended_;
}

void ScreenPrompts::Show(QDialog &dialog, QWidget *owner, const QString &text, std::function<void(int result)> then)
{
    standing_.append({&dialog, owner, text});
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(&dialog, &QDialog::finished, &dialog, [this, shown = &dialog, then = std::move(then)](int result) {
        // Its owner may be unloaded and then hidden.
        if (standing_.removeIf([shown](const Standing &each) { return each.dialog == shown; }) > 0)
            then(result);
    });
    if (const auto *form = qobject_cast<const Form *>(owner))
        QObject::connect(form, &Form::QuestionsToEnd, &dialog, &QDialog::reject);
    if (owner)
        QObject::connect(owner, &QObject::destroyed, &dialog, [shown = &dialog] { delete shown; });
    if (dialog.parentWidget()) {
        dialog.open();
    } else {
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.show();
    }
}

// A file dialog may wait for an answer of its own and must not be deleted under that.
void ScreenPrompts::EndAll()
{
    ended_ = true;
    for (const Standing &each : std::as_const(standing_))
        if (each.dialog) {
            QObject::disconnect(each.dialog, &QDialog::finished, nullptr, nullptr);
            each.dialog->hide();
        }
}
