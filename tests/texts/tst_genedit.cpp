#include "platform/forms/ChartWidget.h"
#include "platform/forms/LineWidget.h"
#include "support/NoTexts.h"
#include "texts/ControlPicker.h"
#include "texts/GenEdit.h"

#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using Outcome = GenEdit::Outcome;

// A control of each type, with places that are no whole pixels.
class PatternForm : public Form
{
public:
    explicit PatternForm(FormServices &services) : Form(u"PatternForm"_s, services)
    {
        setCentralWidget(new QWidget(this));
        resize(500, 400);
        auto *title = Add<QLabel>(u"Title"_s, {10, 10, 120, 20});
        title->setText(u"&Name"_s);
        title->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        auto *note = Add<QLabel>(u"Note"_s, {10, 40, 80, 60});
        note->setText(u"Several words on lines"_s);
        note->setWordWrap(true);
        auto *frame = Add<QGroupBox>(u"Frames_0"_s, {100, 50, 150, 120});
        frame->setTitle(u"Round"_s);
        Add<QRadioButton>(u"Option"_s, {10, 30, 100, 22}, frame)->setText(u"Quarters"_s);
        Add<QLineEdit>(u"NameText"_s, {10, 200, 120, 24})->setText(u"Jane"_s);
        auto *button = Add<QPushButton>(u"OKButton"_s, {300, 10, 80, 26});
        button->setText(u"&OK"_s);
        Add<ChartWidget>(u"Chart"_s, {300, 60, 150, 100})->SetTitleText(u"Hours"_s);
        Add<QTableView>(u"Grid"_s, {300, 200, 150, 100});
        Add<LineWidget>(u"Divider"_s, {})->SetEnds({260, 180}, {60, 180});
        for (int i = 0; i < 5; ++i)
            Add<QLabel>(u"Nest%1"_s.arg(i), QRect(300, 310, 100, 60).adjusted(i, i, -i, -i));
        Add<QLabel>(u"Hidden"_s, {305, 62, 20, 20})->hide();
        RegisterControls();
        At(u"Title"_s)->SetPlace({153, 148, 1801, 304});
        SetDefaultButton(button);
        SetCancelButton(button);
        connect(button, &QPushButton::clicked, this, [this] { ++pressed; });
        Load();
        show();
        activateWindow();
        button->setFocus();
    }

    Control *At(const QString &name) const
    {
        for (const auto &control : Controls())
            if (control->Name() == name)
                return control.get();
        qFatal("no control %s", qPrintable(name));
    }
    QRect OnSurface(const QString &name) const
    {
        const QWidget *widget = At(name)->Widget();
        return {widget->mapTo(Surface(), QPoint()), widget->size()};
    }
    GenEdit *Editor() const { return Surface()->findChild<GenEdit *>(); }
    void Press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }

    int pressed = 0;
    bool keysSeen = false;

protected:
    void Form_Load() override {}
    void Form_Unload() override {}
    bool Form_KeyDown(QKeyEvent &) override { return keysSeen = true; }

private:
    template <class Widget> Widget *Add(const QString &name, const QRect &place, QWidget *container = nullptr)
    {
        auto *widget = new Widget(container ? container : Surface());
        widget->setObjectName(name);
        widget->setGeometry(place);
        return widget;
    }
};

class TestGenEdit : public QObject
{
    Q_OBJECT

private:
    NoTexts services_;
    std::unique_ptr<PatternForm> form_;

    // Acts while the editor is open on the control under the point; an edit left open is cancelled.
    std::optional<Outcome> Edit(QPoint point, const std::function<void()> &act)
    {
        std::optional<Outcome> ended;
        const GenEdit *editor = GenEdit::Open(*form_, point);
        if (!editor)
            return ended;
        connect(editor, &GenEdit::Ended, this, [&ended](Outcome outcome) { ended = outcome; });
        act();
        if (form_)
            GenEdit::CancelOn(*form_);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return ended;
    }

private slots:
    void init()
    {
        form_ = std::make_unique<PatternForm>(services_);
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    void cleanup() { form_.reset(); }

    void PicksTheSmallestSeen()
    {
        const auto nameAt = [this](int x, int y) {
            const Control *control = ControlUnder(*form_, {x, y});
            return control ? control->Name() : QString();
        };
        QCOMPARE(nameAt(115, 85), u"Option"_s);
        QCOMPARE(nameAt(110, 80), u"Option"_s);
        QCOMPARE(nameAt(210, 102), u"Option"_s); // its edges are its own
        QCOMPARE(nameAt(211, 102), u"Frames_0"_s);
        QCOMPARE(nameAt(310, 70), u"Chart"_s);  // not the hidden label
        QCOMPARE(nameAt(350, 340), u"Nest3"_s); // the fifth is not looked at
        QCOMPARE(nameAt(100, 180), u"Divider"_s);
        QCOMPARE(nameAt(480, 390), QString());
        QVERIFY(!Edit({480, 390}, [] {}));
    }

    void EditsEachType_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption"); // afterwards
        QTest::addColumn<Geometry>("place");
        QTest::newRow("label") << u"Title"_s << u"new"_s << Geometry{165, 148, 1801, 315};
        QTest::newRow("label of several lines") << u"Note"_s << u"new"_s << Geometry{165, 600, 1200, 915};
        QTest::newRow("button") << u"OKButton"_s << u"new"_s << Geometry{4515, 150, 1200, 405};
        QTest::newRow("framed option") << u"Option"_s << u"new"_s << Geometry{165, 450, 1500, 345};
        QTest::newRow("frame") << u"Frames_0"_s << u"new"_s << Geometry{1515, 750, 2250, 1815};
        QTest::newRow("chart") << u"Chart"_s << u"new"_s << Geometry{4515, 900, 2250, 1515};
        QTest::newRow("text box") << u"NameText"_s << QString() << Geometry{165, 3000, 1800, 375};
        QTest::newRow("grid") << u"Grid"_s << QString() << Geometry{4515, 3000, 2250, 1515};
        QTest::newRow("line from the right") << u"Divider"_s << QString() << Geometry{3915, 2700, 915, 2715};
    }

    void EditsEachType()
    {
        QFETCH(QString, name);
        QFETCH(QString, caption);
        Control *control = form_->At(name);
        const QRect rect = form_->OnSurface(name);
        const auto value = control->Value();
        const QPoint point = name == u"Frames_0"_s ? rect.topLeft() + QPoint(3, 3) : rect.center();
        const auto outcome = Edit(point, [&] {
            QVERIFY(control->Widget()->isHidden());
            const int around = name == u"Divider"_s ? 4 : 0;
            QCOMPARE(form_->Editor()->geometry(), rect.adjusted(-around, -around, around, around));
            QCOMPARE(form_->focusWidget()->accessibleName(), u"Editing "_s + name);
            for (const int letter : {Qt::Key_N, Qt::Key_E, Qt::Key_W})
                form_->Press(letter);
            form_->Press(Qt::Key_Right, Qt::ControlModifier);
            form_->Press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
            form_->Press(Qt::Key_Tab);
            QVERIFY(!control->Widget()->isHidden());
        });
        QCOMPARE(outcome, Outcome::Accepted);
        if (!caption.isEmpty())
            QCOMPARE(control->Caption().value_or(QString()), caption);
        QTEST(*control->Place(), "place");
        QCOMPARE(control->Value(), value);
        QVERIFY(!form_->Editor());
        QCOMPARE(form_->focusWidget(), form_->At(u"OKButton"_s)->Widget());
    }

    void FollowsThePointer_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QPoint>("grip"); // in the control
        QTest::addColumn<QPoint>("way");
        QTest::addColumn<Geometry>("place");
        QTest::newRow("a click") << u"OKButton"_s << QPoint(40, 13) << QPoint(1, 1) << Geometry{4500, 150, 1200, 390};
        QTest::newRow("move") << u"OKButton"_s << QPoint(40, 13) << QPoint(-30, 21) << Geometry{4050, 465, 1200, 390};
        QTest::newRow("right") << u"OKButton"_s << QPoint(76, 13) << QPoint(5, 9) << Geometry{4500, 150, 1275, 390};
        QTest::newRow("bottom") << u"OKButton"_s << QPoint(40, 22) << QPoint(5, 9) << Geometry{4500, 150, 1200, 525};
        QTest::newRow("corner") << u"OKButton"_s << QPoint(78, 24) << QPoint(-5, 9) << Geometry{4500, 150, 1125, 525};
        QTest::newRow("too small") << u"OKButton"_s << QPoint(78, 13) << QPoint(-73, 0)
                                   << Geometry{4500, 150, 1200, 390};
        QTest::newRow("just large enough")
            << u"OKButton"_s << QPoint(78, 13) << QPoint(-72, 0) << Geometry{4500, 150, 120, 390};
        QTest::newRow("off the frame") << u"Option"_s << QPoint(50, 10) << QPoint(-300, 1)
                                       << Geometry{-92 * 15, 465, 1500, 330};
    }

    void FollowsThePointer()
    {
        QFETCH(QString, name);
        QFETCH(QPoint, grip);
        QFETCH(QPoint, way);
        const QPoint from = form_->Surface()->mapTo(form_.get(), form_->OnSurface(name).topLeft() + grip);
        const auto outcome = Edit(form_->OnSurface(name).center(), [&] {
            QTest::mousePress(form_->windowHandle(), Qt::LeftButton, {}, from);
            QTest::mouseMove(form_->windowHandle(), from + way);
            QTest::mouseRelease(form_->windowHandle(), Qt::LeftButton, {}, from + way);
            QTest::mouseMove(form_->windowHandle(), from + 3 * way); // no longer held
            form_->Press(Qt::Key_Return);
        });
        QCOMPARE(outcome, Outcome::Accepted);
        QTEST(*form_->At(name)->Place(), "place");
        QCOMPARE(form_->pressed, 0);
    }

    void CancelsWithoutATrace()
    {
        const QHash<QString, std::function<void()>> ends{
            {u"Escape"_s, [this] { form_->Press(Qt::Key_Escape); }},
            {u"hidden"_s, [this] { form_->hide(); }},
            {u"unloaded"_s, [this] { form_->Unload(); }},
        };
        for (auto end = ends.begin(); end != ends.end(); ++end) {
            init();
            Control *control = form_->At(u"Title"_s);
            const auto outcome = Edit({20, 20}, [&] {
                form_->Press(Qt::Key_N);
                form_->Press(Qt::Key_Left, Qt::ControlModifier);
                end.value()();
                QVERIFY2(control->Visible().value_or(false), qPrintable(end.key()));
            });
            QCOMPARE(outcome, Outcome::Cancelled);
            QCOMPARE(*control->Place(), (Geometry{153, 148, 1801, 304}));
            QCOMPARE(*control->Caption(), u"&Name"_s);
            QCOMPARE(form_->pressed, 0);
        }
        init();
        QCOMPARE(Edit({20, 20}, [this] { form_.reset(); }), Outcome::Cancelled);
    }

    void KeepsKeysToItself()
    {
        QWidget other;
        const auto outcome = Edit({20, 50}, [&] { // of several lines
            // A text may be fetched from another window.
            for (QWidget *window : {&other, static_cast<QWidget *>(form_.get())}) {
                window->show();
                window->activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(window));
            }
            QVERIFY(!GenEdit::Open(*form_, {20, 20}));
            form_->Press(Qt::Key_F1);
            form_->Press(Qt::Key_O, Qt::AltModifier);
            form_->Press(Qt::Key_Backtab, Qt::ShiftModifier);
            QGuiApplication::clipboard()->setMimeData(new QMimeData);
            form_->Press(Qt::Key_V, Qt::ControlModifier); // nothing to paste
            form_->Press(Qt::Key_Home, Qt::ControlModifier);
            form_->Press(Qt::Key_Return);
            form_->Press(Qt::Key_Tab);
        });
        QCOMPARE(outcome, Outcome::Accepted);
        QCOMPARE(*form_->At(u"Note"_s)->Caption(), u"\nSeveral words on lines"_s);
        QCOMPARE(form_->pressed, 0);
        QVERIFY(!form_->keysSeen);
    }
};

QTEST_MAIN(TestGenEdit)
#include "tst_genedit.moc"
