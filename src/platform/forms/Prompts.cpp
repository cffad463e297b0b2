#include "platform/forms/Prompts.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds lookPeriod{500}; // whether a question still stands

class Box : public QMessageBox
{
public:
    Box(QWidget *owner, Icon icon, const QString &text)
        : QMessageBox(icon, QGuiApplication::applicationDisplayName(), text, NoButton, Owner(owner))
    {
        setTextFormat(Qt::PlainText);
        setWindowModality(Owner(owner) ? Qt::WindowModal : Qt::ApplicationModal);
    }

    // A window that is not on the screen would hide the box behind the others or keep it from being seen.
    static QWidget *Owner(QWidget *owner) { return owner && owner->window()->isVisible() ? owner->window() : nullptr; }
};

} // namespace

void ScreenPrompts::MsgBox(QWidget *owner, const QString &text)
{
    Box box(owner, QMessageBox::Information, text);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

bool ScreenPrompts::AskYesNo(QWidget *owner, const QString &text)
{
    Box box(owner, QMessageBox::Question, text);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No); // what is asked so deletes something
    return box.exec() == QMessageBox::Yes;
}

QString ScreenPrompts::PickFile(QWidget *owner, const QString &title, const QString &startPath, const QString &filter)
{
    return QFileDialog::getOpenFileName(Box::Owner(owner), title, startPath, filter);
}

QString ScreenPrompts::PickSaveFile(QWidget *owner, const QString &title, const QString &startPath,
                                    const QString &filter)
{
    const QString ending = filter.mid(filter.lastIndexOf(u'.'));
    QString path = startPath;
    for (;;) {
        // The dialog would ask about the name as it was typed, which is another file than the one with the ending.
        path = QFileDialog::getSaveFileName(Box::Owner(owner), title, path, filter, nullptr,
                                            QFileDialog::DontConfirmOverwrite);
        if (path.isEmpty())
            return {};
        if (!path.endsWith(ending, Qt::CaseInsensitive))
            path += ending;
        if (!QFileInfo::exists(path)
            || AskYesNo(owner, QStringLiteral("The file\n%1\nis there already. Do you want to replace it?")
                                   .arg(QDir::toNativeSeparators(path))))
            return path;
    }
}

bool ScreenPrompts::AskChoice(QWidget *owner, const QString &text, const QString &first, const QString &second,
                              const std::function<bool()> &settled)
{
    Box box(owner, QMessageBox::Question, text);
    QPushButton *firstButton = box.addButton(first, QMessageBox::AcceptRole);
    const QPushButton *secondButton = box.addButton(second, QMessageBox::RejectRole);
    box.setDefaultButton(firstButton);
    box.setEscapeButton(firstButton);
    QTimer look;
    look.callOnTimeout(&box, [&] {
        if (settled())
            box.accept();
    });
    look.start(lookPeriod);
    box.exec();
    return box.clickedButton() != secondButton;
}
