#include "clock/StempWin.h"

#include "clock/TimeTable.h"
#include "platform/forms/Prompts.h"
#include "platform/system/Say.h"
#include "startup/Identity.h"
#include "ui_StempWin.h"

#include <QHeaderView>

#include <algorithm>

using namespace std::chrono_literals;

// The part of StempWin that tells of time rows which their file did not take, and tries again.

namespace {

constexpr QRgb noteColor = 0xfffff0a0;

constexpr std::chrono::milliseconds savePeriod = 3s; // between two tries to write rows that could not be written

} // namespace

void StempWin::SetUpSaving()
{
    QPalette note = ui_->UnsavedLabel->palette();
    note.setColor(QPalette::Window, QColor(noteColor));
    note.setColor(QPalette::WindowText, Qt::black);
    ui_->UnsavedLabel->setPalette(note);
    ui_->UnsavedLabel->setBackgroundRole(QPalette::Window); // not the surface's colour
    saveTimer_.setInterval(savePeriod);
    connect(&saveTimer_, &QTimer::timeout, this, &StempWin::SaveTimer_Timer);
}

// Rows that neither file takes would be lost: the person may wait until one does, or leave all the same.
void StempWin::SaveAndUnload()
{
    if (!IsLoaded()) // the session has ended
        return;
    TimeTable &table = parts_.timeTable;
    const bool isKept = table.Flush() || table.IsAllKept();
    ShowUnsaved();
    if (isKept)
        return Unload();
    const UnsavedNotice notice = table.Notice();
    const QString question =
        Say("Your last stemps could not be saved. These files do not take them:\n\n%1\n(%2)\n\n%3\n(%4)\n\n"
            "If you close the program now, the stemps are lost.")
            .arg(table.Path(), notice.trouble, parts_.identity.LocalDBPath, notice.parkTrouble);
    prompts_.AskChoice(this, question,
                       {.answers = {Say("&Try again"), Say("&Close without saving")},
                        .settled = [&table] { return table.IsAllKept(); }}, // the timer goes on trying
                       [this](int answer) { answer != 0 ? Unload() : SaveAndUnload(); });
}

void StempWin::SaveTimer_Timer()
{
    if (parts_.timeTable.Flush())
        RefreshGrid();
    ShowUnsaved();
}

void StempWin::ShowUnsaved()
{
    const QString notice = parts_.timeTable.Notice().Text();
    ui_->UnsavedLabel->setText(notice);
    ui_->UnsavedLabel->setVisible(!notice.isEmpty());
    PlaceUnsavedLabel();
    if (notice.isEmpty())
        saveTimer_.stop();
    else if (!saveTimer_.isActive())
        saveTimer_.start();
    const QString message = parts_.timeTable.TakeMessage();
    if (!message.isEmpty()) // once the stemp is through
        QTimer::singleShot(0, this, [this, message] { prompts_.MsgBox(this, message); });
}

// As wide as the grid. A text of several lines takes the place of the grid's captions, all of it: half of them would look torn.
void StempWin::PlaceUnsavedLabel()
{
    QLabel &label = *ui_->UnsavedLabel;
    const int width = ui_->StempGrid->width();
    int height = label.isHidden() ? 0 : label.heightForWidth(width);
    if (height > unsavedHeight_)
        height = std::max(height, ui_->StempGrid->y() + ui_->StempGrid->horizontalHeader()->height() + 1 - label.y());
    label.resize(width, std::max(unsavedHeight_, height));
    label.stackUnder(ui_->XList);
}
