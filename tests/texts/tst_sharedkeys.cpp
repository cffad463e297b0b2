#include "forms/TestForm.h"
#include "platform/dao/Database.h"
#include "support/AtWindow.h"
#include "texts/Common.h"
#include "texts/GenEdit.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <optional>
#include <tuple>

using namespace Qt::Literals::StringLiterals;

namespace {

const QColor lightGrey(224, 224, 224);
const QColor red(192, 0, 0);

} // namespace

// What keys and the mouse do in every window.
class TestSharedKeys : public QObject
{
    Q_OBJECT

private:
    std::optional<ProgramFolder> folder_;
    dao::Database db_;
    AnsweredPrompts prompts_;
    TextState state_;
    std::unique_ptr<Common> common_;
    std::unique_ptr<TestForm> form_;

    void Store(const QString &key, const QString &field, const QString &text)
    {
        const QString update = u"UPDATE TestForm SET %1 = ? WHERE Name = ?"_s.arg(dao::Quoted(field));
        QCOMPARE(db_.Execute(update, {text, key}, {}), 1);
    }
    void Open()
    {
        form_ = std::make_unique<TestForm>(*common_);
        form_->Load();
        form_->show();
        form_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
        form_->happened.clear();
    }
    void Press(int key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(form_->windowHandle(), static_cast<Qt::Key>(key), held);
    }
    QPoint Within(const QString &key) const // in the window
    {
        const QWidget *widget = form_->At(key)->Widget();
        return widget->mapTo(form_.get(), widget->rect().center());
    }
    void Click(const QString &key, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(form_->windowHandle(), button, {}, Within(key));
    }
    // Clicks, and acts while the editor is open; an edit that is left open is cancelled.
    void Edit(const QString &key, const std::function<void()> &act)
    {
        bool opened = false;
        QTimer timer;
        timer.callOnTimeout(this, [&] {
            if (!Editor() || opened)
                return;
            opened = true;
            act();
            GenEdit::CancelOn(*form_);
        });
        timer.start(5);
        Click(key);
        QTRY_VERIFY(opened && !Editor());
    }
    GenEdit *Editor() const { return form_->Surface()->findChild<GenEdit *>(); }
    bool InEditMode() const { return form_->BackColor() == lightGrey; }
    static Form *HelpWindow() { return qobject_cast<Form *>(ShownWindow(u"Help"_s)); }
    static QString ShownHelp()
    {
        return HelpWindow() ? HelpWindow()->findChild<QPlainTextEdit *>()->toPlainText() : QString();
    }

private slots:
    void init()
    {
        folder_.emplace().MakePersonal();
        db_ = dao::Database::OpenDatabase(folder_->File(personalFile));
        state_ = {{}, true, false};
        prompts_ = {};
        common_ = std::make_unique<Common>(db_, state_, prompts_);
        Open();
    }
    void cleanup()
    {
        common_->UnloadHelp();
        form_.reset();
        common_.reset();
        db_.Close();
    }

    void F1ShowsTheHelpOfWhatHasTheKeys()
    {
        form_->Unload();
        state_.language.LanguageName = u"Danish"_s;
        db_.Insert(u"INSERT INTO TestForm (Name, HelpEnglish, HelpDanish) VALUES ('Texts(2)', 'Second', '')"_s, {}, {});
        Store(u"NoteText"_s, u"HelpDanish"_s, u"Dansk"_s);
        Store(u"mnuAdmin"_s, u"HelpEnglish"_s, u"Menu"_s);
        Open();
        const auto shown = [this](Qt::KeyboardModifiers held = {}) {
            Press(Qt::Key_F1, held);
            return ShownHelp();
        };
        const auto shownOf = [&](const QString &key) {
            form_->At(key)->Widget()->setFocus();
            return shown();
        };
        QCOMPARE(HelpWindow(), nullptr);
        QCOMPARE(shownOf(u"Texts(0)"_s), u"The name that others see."_s);
        QTRY_VERIFY(form_->isActiveWindow());
        const QSignalSpy activations(qApp, &QGuiApplication::focusWindowChanged);
        HelpWindow()->activateWindow(); // as some systems do with each window that comes up
        QTRY_COMPARE(activations.size(), 2);
        QVERIFY(form_->isActiveWindow());
        QCOMPARE(form_->focusWidget(), form_->At(u"Texts(0)"_s)->Widget());
        const QString ofWindow = shown(Qt::ShiftModifier);
        QVERIFY(ofWindow.startsWith(u"Help of the window."_s) && ofWindow.contains(u"Ctrl+Shift+Backspace"_s));
        QCOMPARE(shownOf(u"Texts(2)"_s), u"Second"_s);
        QCOMPARE(shownOf(u"OKButton"_s), ofWindow); // without help of its own
        QCOMPARE(shownOf(u"NoteText"_s), u"Dansk"_s);
        form_->focusWidget()->clearFocus();
        QCOMPARE(shown(), ofWindow);
        auto *bar = form_->findChild<QMenuBar *>();
        bar->setFocus(Qt::MenuBarFocusReason);
        bar->setActiveAction(bar->actions().first());
        QCOMPARE(shown(), u"Menu"_s);
    }

    void TheHelpWindowTakesInputBesideAModalWindowAndKeepsItsSize()
    {
        TestForm dialog(*common_);
        dialog.OpenModal(form_.get());
        QTest::keyClick(dialog.windowHandle(), Qt::Key_F1);
        Form *help = HelpWindow();
        QVERIFY(help);
        QTRY_VERIFY(help->IsSettled());
        help->resize(500, 300);
        const auto isKept = [help] {
            help->activateWindow();
            return help->isActiveWindow();
        };
        QTRY_VERIFY(isKept()); // a moment after it came up, as a person does
        QTest::keyClick(help->windowHandle(), Qt::Key_F1);
        QVERIFY(ShownHelp().startsWith(u"The help of the control"_s));
        dialog.activateWindow();
        QTRY_VERIFY(dialog.isActiveWindow());
        dialog.Unload();
        QVERIFY(HelpWindow());
        HelpWindow()->activateWindow(); // as some systems do when a window goes
        QTRY_VERIFY(form_->isActiveWindow());
        QTest::keyClick(HelpWindow()->windowHandle(), Qt::Key_Escape);
        QVERIFY(!common_->HelpShown());
        Press(Qt::Key_F1);
        QCOMPARE(HelpWindow()->width(), 500);
    }

    void EditModeTakesEverything()
    {
        QLabel *hidden = form_->WidgetAt<QLabel>(u"IconIn"_s);
        hidden->hide();
        auto *text = form_->WidgetAt<QLineEdit>(u"Texts(0)"_s);
        text->setFocus();
        Press(Qt::Key_E, Qt::ControlModifier | Qt::AltModifier); // types a sign on some keyboards
        QVERIFY(!InEditMode());
        text->clear();
        Press(Qt::Key_E, Qt::ControlModifier);
        QVERIFY(InEditMode());
        form_->keys.clear();
        for (const int key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Space})
            Press(key);
        Press(Qt::Key_O, Qt::AltModifier);
        Click(u"OtherButton"_s, Qt::RightButton);
        QTest::mouseClick(form_->menuBar(), Qt::LeftButton, {}, QPoint(10, 5));
        QVERIFY(!Editor() && !QApplication::activePopupWidget());
        QCOMPARE(text->text(), QString());
        QCOMPARE(form_->focusWidget(), text);
        form_->SetBackColor(red); // the program goes on
        hidden->show();
        QVERIFY(InEditMode());
        Press(Qt::Key_Escape);
        QVERIFY(hidden->isHidden());
        QCOMPARE(form_->BackColor(), red);
        QVERIFY(form_->keys.isEmpty() && form_->happened.isEmpty());
        Click(u"OtherButton"_s);
        QCOMPARE(form_->happened, QStringList(u"other"_s));
    }

    void WhatIsSavedIsNotThatOfTheEditMode()
    {
        form_->Unload();
        db_.Execute(u"ALTER TABLE TestForm ADD COLUMN Visible INTEGER"_s, {}, {});
        Open();
        form_->WidgetAt<QLabel>(u"IconIn"_s)->hide();
        Press(Qt::Key_E, Qt::ControlModifier);
        form_->WidgetAt<QLabel>(u"IconIn"_s)->show(); // the program goes on
        form_->Unload();
        QCOMPARE(db_.Select(u"SELECT Visible FROM TestForm WHERE Name = 'IconIn'"_s, {}, {})[0], QVariantList{0});
    }

    void VisibilityComesBackUpToPosition200()
    {
        while (form_->Controls().size() <= 201)
            form_->CreateMember(u"Labels"_s, static_cast<int>(form_->Controls().size()));
        Press(Qt::Key_E, Qt::ControlModifier);
        for (const int position : {199, 200, 201})
            form_->ControlAt(position)->SetVisible(true);
        Press(Qt::Key_Escape);
        QCOMPARE(form_->ControlAt(199)->Visible(), false);
        QCOMPARE(form_->ControlAt(200)->Visible(), false);
        QCOMPARE(form_->ControlAt(201)->Visible(), true);
    }

    void AClickEditsUntilEscape()
    {
        form_->WidgetAt<QPushButton>(u"OtherButton"_s)->setProperty("RunTimeTexts", true);
        Press(Qt::Key_E, Qt::ControlModifier);
        for (const Qt::Key end : {Qt::Key_Tab, Qt::Key_Escape}) {
            QVERIFY(InEditMode());
            Edit(u"OtherButton"_s, [this, end] {
                QVERIFY(Editor()->toolTip().contains(u"until it writes the text again"_s));
                Click(u"OKButton"_s); // beside the editor
                QVERIFY(Editor()->isAncestorOf(form_->focusWidget()));
                Press(Qt::Key_A, Qt::ControlModifier);
                QTest::keyClicks(form_->focusWidget(), end == Qt::Key_Tab ? u"Go"_s : u"no"_s);
                Press(end);
            });
            QCOMPARE(form_->At(u"OtherButton"_s)->Caption(), u"Go"_s);
        }
        QVERIFY(!InEditMode());
        QVERIFY(form_->happened.isEmpty());
    }

    void AnEditModeEndsWithItsWindowOrWithAnother()
    {
        TestForm other(*common_);
        other.Load();
        other.show();
        Press(Qt::Key_E, Qt::ControlModifier);
        QTest::keyClick(other.windowHandle(), Qt::Key_E, Qt::ControlModifier);
        QVERIFY(!InEditMode());
        Press(Qt::Key_Escape);
        QCOMPARE(other.BackColor(), lightGrey);
        other.hide();
        QVERIFY(other.BackColor() != lightGrey);
        Press(Qt::Key_E, Qt::ControlModifier);
        Edit(u"OtherButton"_s, [this] { QVERIFY(form_->close()); });
        QVERIFY(!InEditMode());
        QVERIFY(!form_->At(u"OtherButton"_s)->Widget()->isHidden());
        Open();
        Press(Qt::Key_E, Qt::ControlModifier);
        form_.reset(); // destroyed while it is shown
        Open();
        QVERIFY(!InEditMode());
    }

    void QuestionsEndInAnyOrderAndWithTheirWindow()
    {
        ScreenPrompts prompts;
        TestForm board(*common_);
        auto message = std::make_unique<TestForm>(*common_);
        board.Load();
        board.show();
        message->Load();
        message->show();
        connect(message.get(), &Form::Unloaded, this, [&message] { message.release()->deleteLater(); });
        QStringList answers;
        const auto ask = [&](Form *form, const QString &name) {
            prompts.AskYesNo(
                form, name, [&answers, name](bool yes) { answers += name + (yes ? u"+"_s : u"-"_s); });
        };
        const auto boxOf = [](const Form &form) { return form.findChild<QMessageBox *>(); };
        for (const bool olderFirst : {true, false}) {
            answers.clear();
            ask(&board, u"board"_s);
            ask(form_.get(), u"clock"_s);
            ask(form_.get(), u"clock"_s); // once more: not asked twice
            QCOMPARE(form_->findChildren<QMessageBox *>().size(), 1);
            QMessageBox *boxes[] = {boxOf(board), boxOf(*form_)};
            QTest::mouseClick(boxes[olderFirst ? 0 : 1]->button(QMessageBox::Yes), Qt::LeftButton);
            QTest::keyClick(boxes[olderFirst ? 1 : 0], Qt::Key_Escape);
            QCOMPARE(answers,
                     olderFirst ? QStringList({u"board+"_s, u"clock-"_s}) : QStringList({u"clock+"_s, u"board-"_s}));
            QTRY_VERIFY(!boxOf(board) && !boxOf(*form_));
        }
        // The window is closed beneath its question and a picker, while an editor is open on it.
        answers.clear();
        QTest::keyClick(message->windowHandle(), Qt::Key_E, Qt::ControlModifier);
        QVERIFY(GenEdit::Open(*message, message->At(u"OKButton"_s)->Widget()->geometry().center()));
        ask(&board, u"board"_s);
        ask(message.get(), u"message"_s);
        prompts.PickSaveFile(message.get(), u"Save"_s, folder_->File(u"a.csv"_s), u"*.csv"_s,
                             [&answers](const QString &path) { answers += path; });
        message->Unload();
        QCOMPARE(answers, QStringList({u"message-"_s, QString()}));
        QTRY_VERIFY(QApplication::activeModalWidget() == boxOf(board));
        prompts.EndAll(); // with the session
        QVERIFY(!QApplication::activeModalWidget() && answers.size() == 2);
    }

    void TheSurfaceDragsTheWindow()
    {
        const QString surface;
        for (const auto &[at, button, moves] : {std::tuple(surface, Qt::LeftButton, true),
                                                {surface, Qt::RightButton, false},
                                                {u"Labels(0)"_s, Qt::LeftButton, true},
                                                {u"Frames(1)"_s, Qt::LeftButton, true},
                                                {u"OtherButton"_s, Qt::LeftButton, false},
                                                {u"Texts(0)"_s, Qt::LeftButton, false}}) {
            const QPoint before = form_->pos();
            const QPoint grabbed = at.isEmpty() ? QPoint(3, form_->height() - 20) : Within(at);
            const QPoint pressed = form_->mapToGlobal(grabbed);
            QTest::mousePress(form_->windowHandle(), button, {}, grabbed);
            for (const QPoint step : {QPoint(7, 4), QPoint(90, -60)}) {
                QTest::mouseMove(form_->windowHandle(), form_->mapFromGlobal(pressed + step));
                QTRY_COMPARE(form_->pos(), moves ? before + step : before);
            }
            QTest::mouseRelease(form_->windowHandle(), button, {}, grabbed);
            QTest::mouseMove(form_->windowHandle(), QPoint(5, form_->height() - 5));
            QTRY_COMPARE(form_->pos(), moves ? before + QPoint(90, -60) : before);
        }
    }

    void TheWayBackWorksWithEveryButtonGone()
    {
        const Geometry shipped = *form_->At(u"OKButton"_s)->Place();
        form_->At(u"OKButton"_s)->SetPlace({-9000, -9000, 120, 120});
        form_->At(u"OKButton"_s)->SetCaption(u"Gone"_s);
        Store(u"OKButton"_s, u"HelpEnglish"_s, u"Our own help"_s);
        Store(u"OKButton"_s, u"CapDanish"_s, u"Dansk"_s);
        form_->WidgetAt<QLineEdit>(u"Texts(0)"_s)->setText(u"Jane"_s);
        form_->WidgetAt<QLabel>(u"Labels(0)"_s)->setProperty("RunTimeTexts", true);
        form_->At(u"Labels(0)"_s)->SetCaption(u"Of the program"_s);
        Press(Qt::Key_E, Qt::ControlModifier);
        for (const bool yes : {false, true}) {
            prompts_.yes = yes;
            Press(Qt::Key_Backspace, Qt::ControlModifier | Qt::ShiftModifier);
            QVERIFY(!InEditMode());
            QVERIFY(prompts_.messages.last().endsWith(u"\"Gone\"\n\"Our own help\""_s));
            QCOMPARE(form_->At(u"OKButton"_s)->Place() == shipped, yes);
        }
        QCOMPARE(form_->At(u"OKButton"_s)->Caption(), u"&OK"_s);
        QCOMPARE(form_->At(u"Labels(0)"_s)->Caption(), u"Of the program"_s);
        QCOMPARE(form_->At(u"Texts(0)"_s)->Value(), u"Jane"_s);
        form_->Unload();
        const QString stored = u"SELECT CapEnglish, \"Left\", CapDanish FROM TestForm WHERE Name = 'OKButton'"_s;
        QCOMPARE(db_.Select(stored, {}, {})[0], QVariantList({u"&OK"_s, shipped.left, u"Dansk"_s}));
    }
};

QTEST_MAIN(TestSharedKeys)
#include "tst_sharedkeys.moc"
