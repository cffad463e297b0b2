#include "forms/TestForm.h"
#include "platform/forms/Anchors.h"

#include <QTest>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

namespace {

// A label moves with the lower edge; of what the window grows in width, a text box and a grid share three fifths and two.
class AnchoredForm : public TestForm
{
public:
    explicit AnchoredForm(FormServices &services) : TestForm(services)
    {
        anchors_.Add({At(u"Labels(0)"_s)->Widget()}, {.y = 1});
        anchors_.Add({At(u"Texts(0)"_s)->Widget()}, {.width = 0.6});
        anchors_.Add({At(u"Grid"_s)->Widget()}, {.x = 0.6, .width = 0.4, .height = 1});
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
    void resizeEvent(QResizeEvent *event) override
    {
        TestForm::resizeEvent(event);
        anchors_.Follow();
    }
    void Form_Unload() override
    {
        anchors_.PutBack();
        stored = Places();
    }

private:
    Anchors anchors_{*this};
};

} // namespace

// Each case opens and closes new windows on the same stored numbers.
class TestWindowPlace : public QObject
{
    Q_OBJECT

private:
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

private slots:
    void NeverDrifts_data()
    {
        QTest::addColumn<Geometry>("stored");
        QTest::newRow("the design") << Geometry();
        QTest::newRow("between the pixels") << Geometry{1507.5, 1203.25, 9000.5, 6280};
        QTest::newRow("larger than the screen") << Geometry{0, 0, 40000, 30000};
        QTest::newRow("title bar nearly out of reach") << Geometry{11895, 11895, 9000, 6000};
    }

    void NeverDrifts()
    {
        QFETCH(Geometry, stored);
        RememberingServices services;
        if (stored != Geometry())
            services.stored = stored;
        else
            stored = TestForm(services).DesignGeometry();
        for (const Way way : {Hidden, Short, Settled, Minimized, Maximized, Settled}) {
            OpenAndClose(services, way);
            QCOMPARE(*services.stored, stored);
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
};

QTEST_MAIN(TestWindowPlace)
#include "tst_windowplace.moc"
