#include "platform/forms/RowsModel.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestRowsModel : public QObject
{
    Q_OBJECT

private slots:
    void TellsNoMoreThanChanged()
    {
        RowsModel model({u"Job"_s, u"Hours"_s});
        model.SetRows({{u"A"_s, 1.5}, {u"B"_s, 2}});
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);

        model.SetRows({{u"A"_s, 1.5}, {u"B"_s, 2}});
        QCOMPARE(changes.size(), 0);
        model.SetRows({{u"A"_s, 1.5}, {u"B"_s, 3}});
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes.first().first().toModelIndex().row(), 1);
        QCOMPARE(resets.size(), 0);
        model.SetRows({{u"A"_s}});
        QCOMPARE(resets.size(), 1);
        QCOMPARE(model.rowCount(), 1);
        QVERIFY(!model.index(0, 1).data().isValid()); // a short row
    }

    void ShowsValuesByFormatter()
    {
        RowsModel model({u"Job"_s, u"Hours"_s});
        model.SetFormatter(1, [](const QVariant &value) { return value.isNull() ? u"-"_s : value.toString() + u" h"; });
        model.SetRows({{u"<b>"_s, 2}, {u"B"_s, QVariant()}});
        QCOMPARE(model.index(0, 0).data().toString(), u"<b>"_s);
        QCOMPARE(model.index(0, 1).data().toString(), u"2 h"_s);
        QCOMPARE(model.index(0, 1).data(Qt::EditRole).toInt(), 2);
        QCOMPARE(model.index(1, 1).data().toString(), u"-"_s);
        QVERIFY(model.index(0, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
        QVERIFY(model.index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    }
};

QTEST_GUILESS_MAIN(TestRowsModel)
#include "tst_rowsmodel.moc"
