#include "forms/TestForm.h"

#include <QSignalSpy>
#include <QTest>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

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

    void AResizedDesignKeepsItsInside()
    {
        RememberingServices services;
        TestForm form(services);
        form.Load();
        form.show();
        QTRY_VERIFY(form.IsSettled());
        QCOMPARE(form.size(), QSize(540, 300));
        form.resize(540, 340);
        form.Unload();

        TestForm again(services);
        again.Load();
        again.show();
        QTRY_VERIFY(again.IsSettled());
        QCOMPARE(again.size(), QSize(540, 340));
    }

    void KeptOnScreen()
    {
        const QMap<double, double> kept{{-1, 0}, {0, 0}, {11900, 11900}, {11900.5, 0}};
        for (const double edge : kept.keys()) {
            const Geometry window = ::KeptOnScreen({edge, edge, 99999, 99999}, {800, 800});
            QCOMPARE(window, (Geometry{kept[edge], kept[edge], 99999, 99999}));
        }
    }

    void TheTitleBarStaysInReach()
    {
        const QList<QRect> screens{{0, 0, 800, 600}, {800, 0, 800, 600}};
        QCOMPARE(ReachablePosition({700, 100, 400, 300}, screens), QPoint(700, 100)); // on both
        QCOMPARE(ReachablePosition({1500, 580, 400, 300}, screens), QPoint(1500, 580));
        QCOMPARE(ReachablePosition({1550, 100, 400, 300}, screens), QPoint(700, 100));
        QCOMPARE(ReachablePosition({-390, -5, 400, 300}, screens), QPoint(0, 0));
        QCOMPARE(ReachablePosition({780, 595, 20, 300}, screens.mid(0, 1)), QPoint(780, 580));
    }
};

QTEST_MAIN(TestWindowPlace)
#include "tst_windowplace.moc"
