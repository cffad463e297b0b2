#include "forms/TestForm.h"

#include <QPlainTextEdit>
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

    void ModalEndsWhenUnloadedOrHidden_data()
    {
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("unloaded") << QByteArray("unload");
        QTest::newRow("hidden") << QByteArray("hide");
        QTest::newRow("closed by its frame") << QByteArray("close");
    }

    void ModalEndsWhenUnloadedOrHidden()
    {
        QFETCH(QByteArray, end);
        RememberingServices services;
        TestForm owner(services);
        owner.Load();
        owner.show();
        TestForm dialog(services);
        QTimer::singleShot(0, &dialog, [&] {
            QVERIFY(dialog.isVisible());
            const auto *button = owner.WidgetAt<QPushButton>(u"OtherButton"_s);
            QTest::mouseClick(owner.windowHandle(), Qt::LeftButton, {}, button->mapTo(&owner, QPoint(5, 5)));
            QVERIFY(!owner.happened.contains(u"other"_s));
            QCOMPARE(QApplication::activeModalWidget(), &dialog);
            QCOMPARE(dialog.windowModality(), Qt::WindowModal);
            end == "unload" ? dialog.Unload() : end == "hide" ? dialog.hide() : void(dialog.close());
        });
        dialog.ShowModal(&owner);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.IsLoaded(), end == "hide");
        QVERIFY(!QApplication::activeModalWidget());
    }

    void ResizeIsForTheNormalState()
    {
        RememberingServices services;
        TestForm form(services);
        form.Load();
        form.show();
        QVERIFY(form.happened.contains(u"resize"_s));
        form.happened.clear();
        form.showMaximized();
        QTRY_VERIFY(form.frameGeometry().width() >= form.screen()->availableGeometry().width());
        QVERIFY(!form.happened.contains(u"resize"_s));
        form.showNormal();
        QTRY_VERIFY(form.happened.contains(u"resize"_s));
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
        row("letter", u"Texts(0)"_s, Qt::Key_A, true, {});
        row("letter on a button", u"OtherButton"_s, Qt::Key_A, true, {});
        row("enter in a text box", u"Texts(0)"_s, Qt::Key_Return, true, u"ok"_s);
        row("keypad enter", u"Options(1)"_s, Qt::Key_Enter, true, u"ok"_s);
        row("escape", u"Texts(0)"_s, Qt::Key_Escape, true, u"cancel"_s);
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
            form.Load();
            form.show();
            form.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&form));
            if (focus.isEmpty()) {
                if (QWidget *focused = form.focusWidget())
                    focused->clearFocus();
            } else {
                form.At(focus)->Widget()->setFocus();
            }
            form.happened.clear();
            form.consumesKeys = consumes;
            QTest::keyClick(form.windowHandle(), static_cast<Qt::Key>(key));
            QCOMPARE(form.keys, previewed ? QList<int>{key} : QList<int>{});
            form.happened.removeAll(u"resize"_s);
            QCOMPARE(form.happened.join(u' '), previewed && consumes ? QString() : pressed);
        }
    }

    void AConsumedKeyDoesNotReachTheControl()
    {
        RememberingServices services;
        TestForm form(services);
        form.Load();
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.At(u"NoteText"_s)->Widget()->setFocus();
        QTest::keyClick(form.windowHandle(), Qt::Key_A);
        form.consumesKeys = true;
        QTest::keyClick(form.windowHandle(), Qt::Key_B);
        QCOMPARE(*form.At(u"NoteText"_s)->Value(), u"a"_s);
    }

    void AccessKeysAndHeldKeys()
    {
        RememberingServices services;
        TestForm form(services);
        form.Load();
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.consumesKeys = true;
        QTest::keyClick(form.windowHandle(), Qt::Key_O, Qt::AltModifier);
        QTRY_VERIFY(form.happened.contains(u"ok"_s));
        QVERIFY(form.keys.isEmpty());

        form.happened.clear();
        form.consumesKeys = false;
        form.At(u"Texts(0)"_s)->Widget()->setFocus();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QApplication::sendEvent(form.focusWidget(), &held);
        QVERIFY(!form.happened.contains(u"ok"_s));
        form.WidgetAt<QPushButton>(u"OKButton"_s)->setEnabled(false);
        QTest::keyClick(form.windowHandle(), Qt::Key_Return);
        QVERIFY(!form.happened.contains(u"ok"_s));
    }

    void TheColourIsTheSurfaceOnly()
    {
        RememberingServices services;
        TestForm form(services);
        form.Load();
        form.show();
        const QColor green(0, 128, 0);
        const QColor before = form.BackColor();
        const auto colorAt = [&](QPoint point) { return form.Surface()->grab().toImage().pixelColor(point); };
        const QList<QPoint> children{
            {480, 15}, {200, 100}, {130, 15}, {350, 200}}; // a button, a frame, a text box, a grid
        QList<QColor> childColors;
        for (const QPoint &child : children)
            childColors.append(colorAt(child));
        form.SetBackColor(green);
        QCOMPARE(form.BackColor(), green);
        QCOMPARE(colorAt({2, 2}), green);
        for (int i = 0; i < children.size(); ++i)
            QCOMPARE(colorAt(children.at(i)), childColors.at(i));
        form.SetBackColor(before);
        QCOMPARE(colorAt({2, 2}), before);
    }
};

QTEST_MAIN(TestTheForm)
#include "tst_form.moc"
