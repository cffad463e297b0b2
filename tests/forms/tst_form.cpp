#include "forms/TestForm.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

// The life of a window, its keys and its modal display.
class TestTheForm : public QObject
{
    Q_OBJECT

private:
    static void ShowActive(TestForm &form)
    {
        form.Load();
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
    }

private slots:
    void LoadsAndUnloadsOnce()
    {
        RememberingServices services;
        TestForm form(services);
        QSignalSpy unloaded(&form, &Form::Unloaded);
        form.Unload(); // not loaded yet
        form.Load();
        form.Load();
        form.show();
        form.mayUnload = false;
        QVERIFY(!form.close());
        QVERIFY(form.isVisible());
        form.mayUnload = true;
        QVERIFY(form.close());
        form.Unload();
        QVERIFY(!form.isVisible());
        form.happened.removeAll(u"resize"_s);
        QCOMPARE(form.happened, QStringList({u"load"_s, u"unload shown"_s}));
        QCOMPARE(unloaded.size(), 1);
    }

    void ModalEndsWhenUnloadedOrHidden()
    {
        RememberingServices services;
        TestForm owner(services);
        owner.Load();
        owner.show();
        for (const QByteArray end : {"unload", "hide", "close by the frame"}) {
            TestForm dialog(services);
            QTimer::singleShot(0, &dialog, [&] {
                QVERIFY(dialog.isVisible());
                const auto *button = owner.WidgetAt<QPushButton>(u"OtherButton"_s);
                QTest::mouseClick(owner.windowHandle(), Qt::LeftButton, {}, button->mapTo(&owner, QPoint(5, 5)));
                QVERIFY(!owner.happened.contains(u"other"_s));
                QCOMPARE(QApplication::activeModalWidget(), &dialog);
                end == "unload" ? dialog.Unload() : end == "hide" ? dialog.hide() : void(dialog.close());
            });
            dialog.ShowModal(&owner);
            QVERIFY(!dialog.isVisible());
            QCOMPARE(dialog.IsLoaded(), end == "hide");
            QVERIFY(!QApplication::activeModalWidget());
        }
    }

    void KeysGoWhereTheyBelong_data()
    {
        QTest::addColumn<QString>("focus");
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("previewed");
        QTest::addColumn<QString>("pressed");
        const auto row = [](const char *name, const QString &focus, int key, bool previewed, const QString &pressed) {
            QTest::newRow(name) << focus << key << previewed << pressed;
        };
        row("letter", u"NoteText"_s, Qt::Key_A, true, {});
        row("enter in a text box", u"Texts(0)"_s, Qt::Key_Return, true, u"ok"_s);
        row("keypad enter", u"Options(1)"_s, Qt::Key_Enter, true, u"ok"_s);
        row("escape on a button", u"OtherButton"_s, Qt::Key_Escape, true, u"cancel"_s);
        row("enter on another button", u"OtherButton"_s, Qt::Key_Return, false, u"other"_s);
        row("space on a button", u"OtherButton"_s, Qt::Key_Space, false, u"other"_s);
        row("enter in several lines", u"NoteText"_s, Qt::Key_Return, true, {});
        row("tab", u"Texts(0)"_s, Qt::Key_Tab, false, {});
        row("enter in the grid", u"Grid"_s, Qt::Key_Return, true, u"ok"_s);
        row("no focus", {}, Qt::Key_Escape, true, u"cancel"_s);
    }

    void KeysGoWhereTheyBelong()
    {
        QFETCH(QString, focus);
        QFETCH(int, key);
        QFETCH(bool, previewed);
        QFETCH(QString, pressed);
        RememberingServices services;
        for (const bool consumes : {false, true}) {
            TestForm form(services);
            ShowActive(form);
            if (!focus.isEmpty())
                form.At(focus)->Widget()->setFocus();
            else if (QWidget *focused = form.focusWidget())
                focused->clearFocus();
            form.happened.clear();
            form.consumesKeys = consumes;
            QTest::keyClick(form.windowHandle(), static_cast<Qt::Key>(key));
            QCOMPARE(form.keys, previewed ? QList<int>{key} : QList<int>{});
            form.happened.removeAll(u"resize"_s);
            QCOMPARE(form.happened.join(u' '), previewed && consumes ? QString() : pressed);
            const bool typed = focus == u"NoteText"_s && !consumes; // what the preview keeps does not reach the control
            QCOMPARE(form.At(u"NoteText"_s)->Value()->isEmpty(), !typed);
            form.happened.clear();
            QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(form.focusWidget() ? form.focusWidget() : &form, &held);
            QCOMPARE(form.happened, QStringList());
        }
    }
};

QTEST_MAIN(TestTheForm)
#include "tst_form.moc"
