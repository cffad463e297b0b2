#include "forms/TestForm.h"

#include "platform/forms/ChartWidget.h"
#include "platform/forms/ControlFactory.h"
#include "platform/forms/DatePicker.h"
#include "platform/forms/GridControl.h"
#include "platform/forms/LineWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QTableWidget>
#include <QTest>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

// What the text store sees of controls, under a locale that writes decimal commas and dates of its own.
class TestControls : public QObject
{
    Q_OBJECT

private:
    RememberingServices services_;

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Danish)); }

    void PeoplesTextsArePlain()
    {
        TestForm form(services_);
        Control *label = form.At(u"Labels(0)"_s);
        label->SetCaption(u"<b>1</b>"_s);
        QCOMPARE(form.WidgetAt<QLabel>(u"Labels(0)"_s)->textFormat(), Qt::PlainText);
        for (Control *control : {label, form.At(u"mnuAdmin"_s)}) {
            control->SetToolTip(u"<b>bold</b> & more"_s);
            QCOMPARE(control->ToolTip(), u"<b>bold</b> & more"_s);
        }
        QVERIFY(label->Widget()->toolTip().contains(u"&lt;b&gt;bold"_s));
        label->SetToolTip(u"1 < 2 & so on"_s);
        QCOMPARE(label->Widget()->toolTip(), u"1 < 2 & so on"_s);
    }

    void GridColumns()
    {
        const QList<QStringList> cases = {
            // captions, widths, and both afterwards
            {u"A|B|C|"_s, u"1200;800;1004.5;"_s, u"A|B|C|"_s, u"1200;800;1004.5;"_s},
            {u"A|B"_s, u"1200;800;"_s, u"A|B|To|"_s, u"1200;800;1500;"_s}, // fewer
            {u"A|B|C|D|"_s, u"1200;800;900;700;"_s, u"A|B|C|"_s, u"1200;800;900;"_s},
            {u"|B||"_s, u"x;-1;0;"_s, u"|B||"_s, u"1500;1500;0;"_s}, // no numbers
            {QString(), u"1200,5;800;"_s, u"Job|From|To|"_s, u"1500;800;1500;"_s},
        };
        for (const QStringList &each : cases) {
            TestForm form(services_);
            QTableWidget flex(0, 3);
            flex.setHorizontalHeaderLabels({u"Job"_s, u"From"_s, u"To"_s});
            GridControl flexGrid({u"Flex"_s, std::nullopt, u"MSFlexGrid"_s}, flex);
            for (Control *grid : {form.At(u"Grid"_s), static_cast<Control *>(&flexGrid)}) {
                qobject_cast<QTableView *>(grid->Widget())->horizontalHeader()->setDefaultSectionSize(100);
                grid->SetCaption(each[0]);
                grid->SetValue(each[1]);
                QCOMPARE(QStringList({*grid->Caption(), *grid->Value()}), each.mid(2));
            }
        }
        TestForm form(services_);
        Control *grid = form.At(u"Grid"_s);
        static_cast<GridControl *>(grid)->SetLeastWidth(1, 90); // of a larger font
        grid->SetValue(u"600;600;0;"_s);
        QCOMPARE(form.WidgetAt<QTableView>(u"Grid"_s)->columnWidth(1), 90);
        QCOMPARE(*grid->Value(), u"600;600;0;"_s);
    }

    void ValuesAreFreeOfTheLocale()
    {
        QDateEdit date;
        QComboBox closed;
        closed.addItems({u"C:"_s, u"D:"_s});
        QCheckBox check;
        LineWidget line;
        const auto roundTrip = [](QWidget &widget, const QString &value) {
            widget.setObjectName(u"X"_s);
            const auto control = MakeControl(widget);
            control->SetValue(value);
            return control->Value().value_or(u"none"_s);
        };
        QCOMPARE(roundTrip(date, u"45292.75"_s), u"45292"_s);
        QCOMPARE(date.date(), QDate(2024, 1, 1));
        QCOMPARE(roundTrip(date, u"1. januar"_s), u"45292"_s);
        QCOMPARE(roundTrip(closed, u"D:"_s), u"D:"_s);
        QCOMPARE(roundTrip(closed, u"E:"_s), u"D:"_s);
        QCOMPARE(roundTrip(check, u"-1"_s), u"1"_s);
        QCOMPARE(roundTrip(check, u"yes"_s), u"1"_s); // no number: left alone
        QCOMPARE(roundTrip(line, u"32832"_s), u"32832"_s);
        QCOMPARE(line.BorderColor(), QColor(64, 128, 0));
    }

    void Charts()
    {
        ChartWidget chart;
        // Far too many at any size, with sums that no clock gives.
        QList<ChartWidget::Bar> bars{{u"A-%1"_s, {}, 1.125}, {u"B"_s, {}, -2}, {u"C"_s, {}, qInf()}};
        bars.resize(10'000);
        for (const auto layout : {ChartWidget::Layout::Rows, ChartWidget::Layout::Columns}) {
            chart.SetBars(bars, layout);
            for (const QSize size : {QSize(0, 0), QSize(1, 300), QSize(300, 1), QSize(60, 60), QSize(400, 300)}) {
                chart.resize(size);
                QVERIFY(chart.MostBars(layout) >= 1);
                chart.grab();
            }
        }
        QVERIFY(chart.accessibleDescription().startsWith(u"A-%1: 1,13 hours; B: -2,00 hours; C: 0,00 hours; "_s));
        QVERIFY(chart.accessibleDescription().endsWith(u"; and 9970 more"_s));

        chart.SetBars({{u"A"_s, u"<b>A</b>"_s, 1}, {u"B"_s, u"B in full"_s, 2}}, ChartWidget::Layout::Rows);
        QStringList tips;
        for (int y = 0; y < chart.height(); y += 4) {
            QHelpEvent asked(QEvent::ToolTip, {20, y}, {20, y});
            QCoreApplication::sendEvent(&chart, &asked);
            if (QToolTip::isVisible() && !tips.contains(QToolTip::text()))
                tips.append(QToolTip::text());
        }
        QCOMPARE(tips, (QStringList{AsPlainToolTip(u"<b>A</b>"_s), u"B in full"_s}));
    }

    void DatesAreTypedAsTheyAreWritten()
    {
        // From a month of 30 days, over a part and over the whole of the old date.
        for (const auto &typed : {u"31.10.2026"_s, u"31102026"_s, u"31/10-2026"_s}) {
            for (const bool isSelected : {false, true}) {
                DatePicker picker;
                picker.setDisplayFormat(u"dd.MM.yyyy"_s);
                picker.setDate({2026, 11, 21});
                picker.setSelectedSection(QDateEdit::DaySection);
                if (isSelected)
                    picker.selectAll();
                for (const QChar key : typed) {
                    QTest::keyClick(&picker, Qt::Key_Shift); // some separators need it
                    QTest::keyClicks(&picker, key);
                }
                QCOMPARE(picker.date(), QDate(2026, 10, 31));
            }
        }
    }

    void OptionButtonsExcludeEachOtherByFrame()
    {
        TestForm form(services_);
        const auto values = [&] {
            QStringList list;
            for (const auto &key : {u"Options(1)"_s, u"Options(2)"_s, u"Options(12)"_s})
                list.append(*form.At(key)->Value());
            return list.join(u' ');
        };
        form.At(u"Options(1)"_s)->SetValue(u"-1"_s);
        form.At(u"Options(12)"_s)->SetValue(u"1"_s);
        form.At(u"Options(2)"_s)->SetValue(u"-1"_s);
        QCOMPARE(values(), u"0 -1 -1"_s);
        form.SetContainer(*form.At(u"Options(12)"_s), form.At(u"Frames(0)"_s)->Widget());
        QCOMPARE(values(), u"0 -1 0"_s);
        QCOMPARE(form.At(u"Options(12)"_s)->Place()->left, 150.0);
    }
};

QTEST_MAIN(TestControls)
#include "tst_controls.moc"
