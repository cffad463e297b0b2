#include "forms/TestForm.h"

#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

namespace {

// A label moves with the lower edge; of what the window grows in width, a text box and a grid share three fifths and two.
class AnchoredForm : public TestForm
{
public:
    explicit AnchoredForm(FormServices &services) : TestForm(services)
    {
        Anchor({At(u"Labels(0)"_s)->Widget()}, {.y = 1});
        Anchor({At(u"Texts(0)"_s)->Widget()}, {.width = 0.6});
        Anchor({At(u"Grid"_s)->Widget()}, {.x = 0.6, .width = 0.4, .height = 1});
    }

    QList<QRect> Places() const
    {
        QList<QRect> places;
        for (const QString &key : {u"Labels(0)"_s, u"Texts(0)"_s, u"Grid"_s})
            places.append(At(key)->Widget()->geometry());
        return places;
    }

    QList<QRect> stored;

protected:
    void Form_Unload() override
    {
        SaveTexts();
        stored = Places();
    }
};

} // namespace

// The life of a window, its keys, its modal display and its place.
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

    void ModalEndsWhenUnloadedOrHidden()
    {
        RememberingServices services;
        TestForm owner(services);
        owner.Load();
        owner.show();
        for (const QByteArray end : {"unload", "hide", "close by the frame"}) {
            TestForm dialog(services);
            const QSignalSpy closed(&dialog, &Form::Closed);
            dialog.OpenModal(&owner);
            QVERIFY(dialog.isVisible());
            const auto *button = owner.WidgetAt<QPushButton>(u"OtherButton"_s);
            QTest::mouseClick(owner.windowHandle(), Qt::LeftButton, {}, button->mapTo(&owner, QPoint(5, 5)));
            QVERIFY(!owner.happened.contains(u"other"_s));
            QCOMPARE(QApplication::activeModalWidget(), &dialog);
            end == "unload" ? dialog.Unload() : end == "hide" ? dialog.hide() : void(dialog.close());
            QVERIFY(!dialog.isVisible());
            QTRY_COMPARE(closed.size(), 1);
            QCOMPARE(dialog.IsLoaded(), end == "hide");
            QVERIFY(!QApplication::activeModalWidget());
        }
    }

    void ModalWindowsOfTwoOwnersCloseInAnyOrder()
    {
        RememberingServices services;
        TestForm clock(services);
        TestForm board(services);
        for (TestForm *owner : {&clock, &board}) {
            owner->Load();
            owner->show();
        }
        auto first = std::make_unique<TestForm>(services);
        TestForm second(services);
        connect(first.get(), &Form::Closed, this, [&first] { first.reset(); });
        QSignalSpy closed(&second, &Form::Closed);
        first->OpenModal(&clock);
        second.OpenModal(&board);
        board.activateWindow(); // as the second click of a double click does
        QTRY_VERIFY(board.isActiveWindow());
        QTRY_VERIFY(second.isActiveWindow());
        first->Unload();
        QTRY_VERIFY(!first);
        QVERIFY(second.isVisible() && closed.isEmpty());
        second.Unload();
        QTRY_COMPARE(closed.size(), 1);
        QVERIFY(!QApplication::activeModalWidget());
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
        const int alt = Qt::AltModifier;
        row("alt with a letter", u"NoteText"_s, alt | Qt::Key_X, false, {});
        row("alt with the keypad", u"NoteText"_s, alt | static_cast<int>(Qt::KeypadModifier) | Qt::Key_5, false, {});
        row("alt with a key that writes nothing", u"NoteText"_s, alt | Qt::Key_Return, false, {});
        row("alt gr", u"NoteText"_s, alt | static_cast<int>(Qt::ControlModifier) | Qt::Key_At, true, {});
        row("alt that a button answers", u"NoteText"_s, alt | Qt::Key_O, false, u"ok"_s);
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
            const Qt::KeyboardModifiers held(key & static_cast<int>(Qt::KeyboardModifierMask));
            QTest::keyClick(form.windowHandle(), static_cast<Qt::Key>(key - static_cast<int>(held)), held);
            form.keys.removeAll(Qt::Key_Control); // is held before
            QCOMPARE(form.keys, previewed ? QList<int>{key - static_cast<int>(held)} : QList<int>{});
            form.happened.removeAll(u"resize"_s);
            QTRY_COMPARE(form.happened.join(u' '), previewed && consumes ? QString() : pressed);
            const bool typed =
                previewed && focus == u"NoteText"_s && !consumes; // what the preview keeps does not reach the control
            QCOMPARE(form.At(u"NoteText"_s)->Value()->isEmpty(), !typed);
            form.happened.clear();
            QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(form.focusWidget() ? form.focusWidget() : &form, &again);
            QCOMPARE(form.happened, QStringList());
        }
    }

    void NeverDrifts()
    {
        RememberingServices services;
        const Geometry designed = TestForm(services).DesignGeometry();
        for (const Geometry &stored : {designed,
                                       {1507.5, 1203.25, 9000.5, 6280}, // between the pixels
                                       {0, 0, 40000, 30000},            // larger than the screen
                                       {11895, 11895, 9000, 6000}}) {   // the title bar is nearly out of reach
            if (stored != designed)
                services.stored = stored;
            for (const Way way : {Hidden, Short, Settled, Minimized, Maximized, Settled}) {
                OpenAndClose(services, way);
                QCOMPARE(*services.stored, stored);
            }
        }
    }

    void KeepsWhatAPersonDid()
    {
        RememberingServices services;
        services.stored = Geometry{1507.5, 1203.25, 9000.5, 6280};
        TestForm form(services);
        form.Load();
        form.show();
        QTRY_VERIFY(form.IsSettled());
        QCOMPARE(form.frameGeometry(), ToPixels(*services.stored));

        form.move(form.pos() + QPoint(10, 0));
        form.resize(form.size() + QSize(0, 20));
        const Geometry expected{1657.5, 1203.25, 9000.5, 6580};
        QCOMPARE(form.StoredGeometry(), expected);

        QTRY_COMPARE(form.frameGeometry(), ToPixels(expected));
        form.hide(); // and shown again, as the settings are
        QCOMPARE(form.StoredGeometry(), expected);
        form.show();
        QTRY_VERIFY(form.IsSettled());
        QCOMPARE(form.StoredGeometry(), expected);
        QCOMPARE(form.frameGeometry(), ToPixels(expected));
        form.Unload();
        QCOMPARE(*services.stored, expected);
    }

    void AnchoredControlsStayWhereAPersonPutThem()
    {
        RememberingServices services;
        AnchoredForm form(services);
        const QList<QRect> designed = form.Places();
        form.Load();
        form.show();
        form.resize(form.size() + QSize(90, 90)); // not by a person
        QTRY_VERIFY(form.IsSettled());
        QCOMPARE(form.Places(), designed);

        form.At(u"Grid"_s)->Widget()->move(200, 150);
        const QList<QRect> moved = form.Places();
        const QSize size = form.size();
        for (int step = 1; step <= 101; ++step)
            form.resize(size + QSize(step, step));
        QCOMPARE(form.Places(), QList<QRect>({moved[0].translated(0, 101), moved[1].adjusted(0, 0, 61, 0),
                                              moved[2].adjusted(61, 0, 101, 101)}));
        form.resize(200, 150); // less than the grid and the text box can take
        form.resize(size);
        QCOMPARE(form.Places(), moved);

        form.showMaximized();
        QTRY_VERIFY(form.width() > size.width());
        QVERIFY(form.Places()[2].width() > moved[2].width());
        form.At(u"Labels(0)"_s)->Widget()->move(form.Places()[0].topLeft() + QPoint(5, 0));
        form.Unload();
        QCOMPARE(form.stored, QList<QRect>({moved[0].translated(5, 0), moved[1], moved[2]}));
    }

    void ANoticeTakesNoRoomOfWhatIsStored()
    {
        const QString text = u"What is amiss, and what helps. "_s.repeated(6); // wraps
        RememberingServices services;
        services.stored = Geometry{1507.5, 1203.25, 9000.5, 6280};
        for (const bool beforeItIsShown : {true, false, true}) {
            AnchoredForm form(services);
            const QList<QRect> places = form.Places();
            const Geometry before = *services.stored;
            form.Load();
            if (beforeItIsShown)
                form.ShowNotice(text);
            form.show();
            QTRY_VERIFY(form.IsSettled());
            form.ShowNotice(text);
            QVERIFY(form.NoticeHeight() > 2 * form.fontMetrics().height());
            QVERIFY(form.Surface()->geometry().bottom() < form.height() - form.NoticeHeight());
            for (const QRect &place : form.Places())
                QVERIFY(place.bottom() < form.Surface()->height());
            QCOMPARE(form.StoredGeometry(), before);
            form.resize(form.size() + QSize(0, 20));
            form.Unload();
            QCOMPARE(services.stored->height, before.height + 20 * twipsPerPixel);
            QCOMPARE(form.stored[2], places[2].adjusted(0, 0, 0, 20));
        }
    }

    void OpensNoLargerThanItsScreen()
    {
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        const Geometry stored = ToTwips({QPoint(), screen + QSize(200, 150)});
        for (const bool settles : {true, false}) {
            RememberingServices services;
            services.stored = stored;
            AnchoredForm form(services);
            QWidget *grid = form.At(u"Grid"_s)->Widget();
            grid->setGeometry(QRect(QPoint(190, 110), screen));
            const QList<QRect> placed = form.Places();
            form.Load();
            form.show();
            QTRY_COMPARE(form.IsSettled(), settles);
            QVERIFY(!settles || form.frameGeometry().size() == screen); // else its frame is not known yet
            QVERIFY(form.Surface()->rect().contains(grid->geometry()));
            form.Unload();
            QCOMPARE(*services.stored, stored);
            QCOMPARE(form.stored, placed);
        }
        RememberingServices services;
        services.stored = stored;
        TestForm form(services); // whose controls do not follow
        form.At(u"OKButton"_s)->Widget()->move(0, screen.height() + 50);
        form.Load();
        form.show();
        const auto *area = form.findChild<QScrollArea *>();
        QVERIFY(area && area->verticalScrollBar()->maximum() > 0 && form.Surface() == area->widget());
    }

    void TheTitleBarStaysInReach()
    {
        const QList<QRect> screens{{0, 0, 800, 600}, {800, 0, 800, 600}};
        QCOMPARE(ReachablePosition({700, 100, 400, 300}, screens), QPoint(700, 100)); // on both
        QCOMPARE(ReachablePosition({1500, 580, 400, 300}, screens), QPoint(1500, 580));
        QCOMPARE(ReachablePosition({1550, 100, 400, 300}, screens), QPoint(700, 100));
        QCOMPARE(ReachablePosition({-390, -5, 400, 300}, screens), QPoint(0, 0));
        QCOMPARE(ReachablePosition({780, 595, 20, 300}, screens.mid(0, 1)), QPoint(780, 580));

        QCOMPARE(WholePosition({700, 100, 100, 300}, screens), QPoint(700, 100));
        QCOMPARE(WholePosition({1000, 400, 700, 300}, screens), QPoint(900, 300));
        QCOMPARE(WholePosition({100, 100, 900, 700}, screens), QPoint(0, 0)); // larger than a screen
    }

private:
    static void ShowActive(TestForm &form)
    {
        form.Load();
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
    }

    enum Way { Hidden, Short, Settled, Minimized, Maximized };

    static void OpenAndClose(FormServices &services, Way way)
    {
        TestForm form(services);
        form.Load();
        if (way != Hidden)
            form.show();
        if (way >= Settled)
            QTRY_VERIFY(form.IsSettled());
        if (way == Minimized) {
            form.showMinimized();
        } else if (way == Maximized) {
            form.showMaximized();
            QTRY_VERIFY(form.frameGeometry().width() >= form.screen()->availableGeometry().width());
        }
        form.Unload();
    }
};

QTEST_MAIN(TestTheForm)
#include "tst_form.moc"
