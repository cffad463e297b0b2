#pragma once

#include "platform/forms/Anchors.h"
#include "platform/forms/Control.h"
#include "platform/forms/DialogKeys.h"
#include "platform/forms/Geometry.h"

#include <QMainWindow>

#include <memory>
#include <optional>
#include <vector>

class FormServices;
class NoticeLine;
class QAction;
class QHelpEvent;
class QMenuBar;
class QPushButton;
class WindowPlace;

// The base of every window. Its central widget is the surface: control coordinates and mouse points refer to it.
//
// The life of a form: constructed (setupUi, then RegisterControls) → Load() → show or OpenModal, any number of times →
// Unload(), and so on again. Load runs Form_Load, Unload runs Form_Unload, once each; a subclass calls LoadTexts() first in the
// one and SaveTexts() in the other. A form that is closed by its frame gets QueryUnload(), which unloads it, at once or once a
// person has answered.
class Form : public QMainWindow
{
    Q_OBJECT

public:
    Form(QString name, FormServices &services, QWidget *parent = nullptr);
    ~Form() override;

    const QString &Name() const { return name_; } // the name of its class and of its text table
    QWidget *Surface() const { return surface_ ? surface_ : centralWidget(); }

    void Load(); // once; further calls do nothing
    void
    Unload(); // takes back what is asked over it, ends a modal display, runs Form_Unload before the window goes away, hides it
    bool IsLoaded() const { return loaded_; }

    void OpenModal(QWidget *owner); // shows it window-modal; Closed follows

    // Controls, in the order of the design; members made at run time are appended.
    const std::vector<std::unique_ptr<Control>> &Controls() const { return controls_; }
    Control *ControlAt(int position) const { return controls_.at(static_cast<std::size_t>(position)).get(); }
    Control *ControlOf(const QWidget &widget) const; // nothing for a widget that is none
    // The one that keys go to: that with the focus, that whose list or calendar is open, or the menu entry that is chosen.
    const Control *ActiveControl() const;
    // Makes member `index` of the control array `arrayName` after the pattern of its first designed member, invisible, and tells
    // MemberCreated. The member itself if it is there already; nothing when the form has no such array.
    Control *CreateMember(const QString &arrayName, int index);
    // Moves a control into another surface, frame or page, its place kept relative to the container.
    void SetContainer(Control &control, QWidget *container);

    // Outer place and size in twips. The stored numbers stay as they were set as long as the window is not moved or resized by
    // a person; kept for the normal window state, also while minimised.
    void SetStoredGeometry(const Geometry &twips);
    Geometry StoredGeometry() const;
    QSize NormalSize() const; // of the inside, in the state that StoredGeometry is kept for
    bool IsSettled() const;   // half a second after it was shown: from then on a change of place or size is a person's
    Geometry DesignGeometry() const { return designGeometry_; } // centred, unless moved before RegisterControls
    const QString &DesignCaption() const { return designCaption_; }
    const QString &DesignHelp() const { return designHelp_; }

    // Puts every control that the design has, and the window, to the place and size of the design. What the controls hold stays.
    void ShowShippedLayout();
    bool IsShipped(const Control &control) const; // false for a member made at run time

    // Colours the surface alone: frames, buttons and boxes on it keep their own colours.
    void SetBackColor(const QColor &color);
    QColor BackColor() const;
    // Shows another colour meanwhile. A colour that is set in the meantime is shown when it is over.
    void CoverBackColor(const QColor &color);
    void UncoverBackColor();

    // A line of plain text below the surface, wrapped, which screen readers read out; an empty text takes it away, as unloading
    // does. Controls that follow the window's size make room for it; for others the window grows meanwhile, as far as the
    // screen reaches. No stored place or size counts it.
    void ShowNotice(const QString &text);
    QString Notice() const;
    int NoticeHeight() const; // pixels; 0 while there is none
    int LentHeight() const;   // of these, what the window has grown by
    QSize Cut() const;        // what it is smaller than stored, for want of room on the screen

    virtual bool CanBeDragged() const { return true; } // by its surface
    // Shows anew the captions that the program writes at run time ("RunTimeTexts" in the design): people's edits are to go.
    virtual void ShowRunTimeTexts() {}
    // Shows and hides anew what the program shows and hides at run time.
    virtual void ShowRunTimeControls() {}

    int FormValue = 0; // the "Value" of the form's own row

    // Enter presses the one, wherever the focus is, except in another button, a text of several lines or a cell being edited;
    // Escape the other.
    void SetDefaultButton(QPushButton *button) { dialogKeys_.SetDefaultButton(button); }
    void SetCancelButton(QPushButton *button) { dialogKeys_.SetCancelButton(button); }

signals:
    void QuestionsToEnd(); // it is about to be unloaded, or was hidden: what is asked over it goes unanswered
    void Unloaded();
    void Closed(); // hidden or unloaded after it was modal, and the event is over, so that it may be deleted

protected:
    // After setupUi, and after the grids got their models: makes the list of controls from the surface, its frames and tab pages
    // and from the menu bar, and takes the design of each. Widgets without a name of their own are left out.
    void RegisterControls();
    // For what a .ui file can't hold. A widget brings its own help text, anything else needs one.
    void RegisterControl(std::unique_ptr<Control> control, const QString &help = {});

    // Lets controls move and grow with the window; what SaveTexts stores are their places in its normal size.
    void Anchor(std::initializer_list<QWidget *> controls, const Anchors::Share &share)
    {
        anchors_.Add(controls, share);
    }

    void LoadTexts();
    void SaveTexts();

    virtual void Form_Load() = 0;
    virtual void Form_Unload() = 0;
    virtual void Form_Resize() {}
    // A person closes the window by its frame, perhaps while a question of an earlier try still stands. Calls Unload, now or
    // later, or leaves the form loaded (and hides it, if it wants to).
    virtual void QueryUnload() { Unload(); }
    // Key preview: sees a key before the focused control does. True: consumed. Tab, access keys, and Space and Enter on a button
    // pass it by.
    virtual bool Form_KeyDown(QKeyEvent &) { return false; }
    // A member of a control array came to life, to be connected like its designed siblings.
    virtual void MemberCreated(Control &) {}

    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void RegisterWidgetsIn(const QWidget &container);
    void RegisterMenus(const QList<QAction *> &actions);
    bool SeeKey(QObject &receiver, QKeyEvent &key);
    bool IsOwnPopup(const QWidget *popup) const;
    void EndCompletion(const QObject &receiver, const QEvent &event);
    const Control *MenuOf(const QAction *action) const;
    void ShowMenuTip(QMenuBar &bar, const QHelpEvent &help);
    void EndModal();
    void PlaceNotice();
    void LendHeightToNotice();
    void ShowBackColor(const QColor &color); // an invalid one: that of any window
    bool IsNormal() const;
    void ScrollWhatIsCut();

    QString name_;
    FormServices &services_;
    bool loaded_ = false;
    bool unloading_ = false;
    bool surfaceIsPressed_ = false; // by the last press of the mouse
    std::vector<std::unique_ptr<Control>> controls_;
    QString designCaption_;
    QString designHelp_;
    Geometry designGeometry_;
    std::optional<QColor> savedBackColor_; // while another colour covers it; invalid when the form has none of its own
    DialogKeys dialogKeys_;
    std::unique_ptr<WindowPlace> place_;
    QWidget *surface_ = nullptr;   // once it lies in an area that scrolls
    NoticeLine *notice_ = nullptr; // from the first one on
    Anchors anchors_{*this};
    bool isModal_ = false; // is shown by OpenModal
};
