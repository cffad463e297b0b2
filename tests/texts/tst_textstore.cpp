#include "platform/forms/Form.h"
#include "platform/forms/LineWidget.h"
#include "support/AnsweredPrompts.h"
#include "support/ProgramFolder.h"
#include "texts/Common.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString awkward = u"Æblegrød 100%1 'n' \"%2\" & æøå <b>;|"_s;
const QString okTip = u"Some changes will require a program restart"_s;
constexpr qsizetype controlCount = 13;

// A small window with the kinds of controls that the store treats differently.
class Window : public Form
{
public:
    explicit Window(FormServices &services) : Form(u"AdminForm"_s, services)
    {
        setCentralWidget(new QWidget);
        setWindowTitle(u"Stemp Administration"_s);
        resize(600, 400);
        for (int i = 0; i < 3; ++i)
            Add<QLabel>(u"Labels_%1"_s.arg(i), {10, 10 + 20 * i, 80, 20}, i)->setText(u"User Name:"_s);
        auto *ok = Add<QPushButton>(u"OKButton"_s, {100, 10, 80, 24});
        ok->setText(u"&OK"_s);
        ok->setToolTip(okTip);
        ok->setWhatsThis(okTip);
        ok->setProperty("Tag", u"design"_s);
        days = Add<QLineEdit>(u"DaysInGrid"_s, {100, 50, 80, 24});
        days->setText(u"7"_s);
        check = Add<QCheckBox>(u"TipsCheck"_s, {100, 90, 80, 24});
        check->setText(u"&ToolTips"_s);
        Add<QLabel>(u"Secret"_s, {200, 10, 80, 20})->hide();
        Add<LineWidget>(u"Line1"_s, {10, 200, 300, 3});
        grid = Add<QTableWidget>(u"UserGrid"_s, {300, 10, 250, 100});
        grid->setColumnCount(3);
        grid->setHorizontalHeaderLabels({u"User"_s, u"State"_s, u"Job"_s});
        for (int i = 0; i < 2; ++i) {
            Add<QGroupBox>(u"Frames_%1"_s.arg(i), {10 + 200 * i, 220, 190, 150}, i);
            option[i] = Add<QRadioButton>(u"Options_%1"_s.arg(i), {20, 240 + 30 * i, 100, 24}, i);
        }
        option[0]->setChecked(true);
        RegisterControls();
    }

    Control &At(const QString &key) const { return *ControlAt(Common::FindControlIndex(*this, key)); }

    QLineEdit *days = nullptr;
    QCheckBox *check = nullptr;
    QTableWidget *grid = nullptr;
    QRadioButton *option[2] = {};

protected:
    void Form_Load() override { LoadTexts(); }
    void Form_Unload() override { SaveTexts(); }

private:
    template <class Widget> Widget *Add(const QString &name, const QRect &place, std::optional<int> index = {})
    {
        auto *widget = new Widget(centralWidget());
        widget->setObjectName(name);
        widget->setGeometry(place);
        if (index)
            widget->setProperty("Index", *index);
        return widget;
    }
};

// One run of the program, with the window loaded.
struct Run
{
    explicit Run(dao::Database &database, TextState textState = {{}, true, false})
        : state(std::move(textState)), common(database, state, prompts), window(common)
    {
        window.Load();
    }
    ~Run() { window.Unload(); }

    AnsweredPrompts prompts;
    TextState state;
    Common common;
    Window window;
};

const TextState tipsOff{{}, false, false};

class TextStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        db_.reset();
        folder_ = std::make_unique<ProgramFolder>();
        db_ = std::make_unique<dao::Database>(dao::Database::OpenDatabase(folder_->File(u"blank Stemp.mdb"_s)));
    }

    void MissingRowsAreSeededAndUnknownOnesKept()
    {
        Seed();
        Sql(u"DELETE FROM AdminForm WHERE Name = 'OKButton'"_s);
        for (const QString &key : {u"Gone"_s, u"Labels(x)"_s, u"Shapes(1)"_s, u"Labels(08)"_s, u"Commands(1)"_s})
            Sql(u"INSERT INTO AdminForm (Name, CapEnglish) VALUES (?, 'x')"_s, {key});
        QCOMPARE(qsizetype(Run(*db_, tipsOff).window.Controls().size()), controlCount);
        QCOMPARE(AllRows().size(), controlCount + 1 + 5);
        for (const QString &field : {u"TipEnglish"_s, u"HelpEnglish"_s})
            QCOMPARE(Stored(u"OKButton"_s, field), okTip);
        QVERIFY(Stored(u"DaysInGrid"_s, u"CapEnglish"_s).isNull()); // a text box has no caption
        QCOMPARE(Stored(u"Line1"_s, u"Width"_s), 4635.0);           // the end point
        QCOMPARE(Stored(u"Gone"_s, u"CapEnglish"_s), u"x"_s);
    }

    void ChangesLiveThroughARestart()
    {
        const Geometry windowPlace{1500, 750, 9000, 6280};
        const Geometry okPlace{100.5, 200.25, 1500, 360};
        const Geometry lineEnds{3000, 4000, 150.5, 3000}; // from the right, upwards
        {
            Run run(*db_);
            Window &window = run.window;
            window.setWindowTitle(awkward);
            window.SetStoredGeometry(windowPlace);
            Control &ok = window.At(u"OKButton"_s);
            ok.SetCaption(awkward);
            ok.SetToolTip(awkward);
            ok.SetTag({});
            ok.SetPlace(okPlace);
            window.At(u"Line1"_s).SetPlace(lineEnds);
            window.days->setText(QString());
            window.check->setChecked(true);
            window.option[1]->setChecked(true);
            window.grid->setColumnWidth(1, 80);
            window.grid->horizontalHeaderItem(2)->setText(u"Opgave"_s);
        }
        Store(u"Me"_s, u"Value"_s, u"42"_s);
        for (int restart = 0; restart < 2; ++restart) {
            const Run run(*db_);
            const Window &window = run.window;
            QCOMPARE(window.FormValue, 42);
            QCOMPARE(window.windowTitle(), awkward);
            QCOMPARE(window.StoredGeometry(), windowPlace);
            const Control &ok = window.At(u"OKButton"_s);
            // What was emptied does not come back from the design.
            QCOMPARE(QStringList({*ok.Caption(), ok.ToolTip(), ok.Tag()}), QStringList({awkward, awkward, {}}));
            QCOMPARE(ok.Place(), okPlace);
            QCOMPARE(window.At(u"Line1"_s).Place(), lineEnds);
            QCOMPARE(window.days->text(), QString());
            QVERIFY(window.check->isChecked() && window.option[1]->isChecked() && !window.option[0]->isChecked());
            QCOMPARE(window.grid->columnWidth(1), 80);
            QCOMPARE(window.At(u"UserGrid"_s).Caption(), u"User|State|Opgave|"_s);
        }
    }

    void RepeatedLoadingChangesNoNumber()
    {
        Seed();
        Sql(u"UPDATE AdminForm SET \"Left\" = \"Left\" + 6.3, Top = Top + 6.3, Width = Width + 6.3, Height = Height + 6.3"_s);
        Sql(u"UPDATE AdminForm SET \"Left\" = 6.3, Top = 6.3 WHERE Name = 'Me'"_s); // on a screen of any size
        const QList<QVariantList> before = AllRows();
        for (int i = 0; i < 5; ++i) {
            Run run(*db_);
            run.window.show();
        }
        QCOMPARE(AllRows(), before);
    }

    void ATableThatLacksItsIndexOrIdIsMended()
    {
        Seed();
        Store(u"OKButton"_s, u"CapEnglish"_s, u"Fine"_s);
        for (const bool isCopy : {false, true}) { // which has neither
            Sql(u"DROP INDEX \"AdminForm.NameIndex\""_s);
            if (isCopy) {
                Sql(u"CREATE TABLE T AS SELECT Name, CapEnglish FROM AdminForm"_s);
                Sql(u"DROP TABLE AdminForm"_s), Sql(u"ALTER TABLE T RENAME TO AdminForm"_s);
            }
            Run run(*db_);
            QCOMPARE(run.window.At(u"OKButton"_s).Caption(), u"Fine"_s);
            run.window.At(u"OKButton"_s).SetTag(u"new"_s);
            run.window.Unload();
            QCOMPARE(Stored(u"OKButton"_s, u"Tag"_s), u"new"_s);
        }
    }

    void FieldsThatDoNotFitAreSkipped()
    {
        Seed();
        Store(u"OKButton"_s, u"Left"_s, {});
        Store(u"OKButton"_s, u"Top"_s, u"12,5"_s);
        Store(u"OKButton"_s, u"Width"_s, 1e300);
        Store(u"OKButton"_s, u"Height"_s, 450);
        Store(u"TipsCheck"_s, u"Value"_s, u"maybe"_s);
        Store(u"TipsCheck"_s, u"CapEnglish"_s, u""_s);
        Store(u"Me"_s, u"Value"_s, u"99999"_s);
        Store(u"Me"_s, u"Left"_s, -500);
        Sql(u"ALTER TABLE AdminForm ADD COLUMN visible INTEGER"_s); // that most tables lack
        Store(u"Secret"_s, u"Visible"_s, -1);
        db_->ExecuteOnLarge(u"UPDATE AdminForm SET TipEnglish = hex(zeroblob(1000000)) WHERE Name = 'TipsCheck'"_s, {},
                            u"a test"_s);
        Run run(*db_);
        const Window &window = run.window;
        QVERIFY(window.At(u"Secret"_s).Visible() == true && window.At(u"OKButton"_s).Visible() == true);
        QCOMPARE(window.At(u"OKButton"_s).Place(), (Geometry{1500, 150, 1200, 450}));
        QVERIFY(!window.check->isChecked());
        QCOMPARE(window.check->text(), QString()); // an empty caption is one
        QCOMPARE(window.FormValue, 0);
        QCOMPARE(window.StoredGeometry().left, 0.0);
        run.window.Unload();
        QVERIFY(Stored(u"OKButton"_s, u"Visible"_s).isNull()); // of a window that was not shown
    }

    void DanishFallsBackToEnglish()
    {
        Seed();
        Store(u"Labels(1)"_s, u"CapDanish"_s, u""_s);
        Store(u"OKButton"_s, u"TipDanish"_s, {});
        Store(u"Me"_s, u"CapDanish"_s, u""_s);
        {
            const Run run(*db_, {{u"Danish"_s}, true, false});
            QCOMPARE(run.window.At(u"Labels(0)"_s).Caption(), u"Brugernavn:"_s);
            QCOMPARE(run.window.At(u"Labels(1)"_s).Caption(), u"User Name:"_s);
            QCOMPARE(run.window.At(u"OKButton"_s).ToolTip(), okTip);
            QCOMPARE(run.window.windowTitle(), QString());
            run.window.check->setText(u"Tips vises"_s);
        }
        QCOMPARE(Stored(u"Labels(1)"_s, u"CapDanish"_s), u"User Name:"_s); // as it was shown
        QCOMPARE(Stored(u"TipsCheck"_s, u"CapDanish"_s), u"Tips vises"_s);
        QCOMPARE(Stored(u"TipsCheck"_s, u"CapEnglish"_s), u"&ToolTips"_s);
    }

    void RowsBringMembersToLife()
    {
        Seed();
        const QString insert = u"INSERT INTO AdminForm (Name, CapEnglish, Value, \"Left\", Top, Width, Height) "
                               "VALUES (?, ?, ?, 150, 300, 1500, 300)"_s;
        Sql(insert, {u"Labels(7)"_s, u"Seven"_s, {}});
        Sql(insert, {u"Options(12)"_s, u"Twelve"_s, u"-1"_s});
        Sql(insert, {u"Options(13)"_s, u"Thirteen"_s, u"0"_s});
        for (int restart = 0; restart < 2; ++restart) {
            const Run run(*db_);
            const Window &window = run.window;
            const Control &seven = window.At(u"Labels(7)"_s);
            QVERIFY(seven.Visible() == true && seven.Caption() == u"Seven"_s);
            QCOMPARE(seven.Place(), (Geometry{150, 300, 1500, 300}));
            const Control &twelve = window.At(u"Options(12)"_s);
            QCOMPARE(twelve.Widget()->parentWidget(), window.At(u"Frames(1)"_s).Widget());
            QVERIFY(twelve.Visible() == true && twelve.Value() == u"-1"_s);
            QCOMPARE(window.At(u"Options(13)"_s).Value(), u"0"_s);
            QVERIFY(window.option[0]->isChecked());                     // in frame 0
            QCOMPARE(Common::FindControlIndex(window, u"Labels"_s), 0); // a bare name means the first member
            QCOMPARE(Common::FindControlIndex(window, u"OKButton(0)"_s), -1);
        }
    }

    void ToolTipsLiveThroughBeingOff()
    {
        {
            const Run run(*db_, tipsOff);
            QCOMPARE(run.window.At(u"OKButton"_s).ToolTip(), QString()); // though its table was only just made
            run.window.At(u"OKButton"_s).SetToolTip(u"not to be kept"_s);
        }
        QCOMPARE(Stored(u"OKButton"_s, u"TipEnglish"_s), okTip);
        Store(u"OKButton"_s, u"TipEnglish"_s, awkward);
        for (const bool show : {false, true, false, true}) {
            const QString expected = show ? awkward : QString();
            Run run(*db_, {}); // loads before the option is known
            run.common.SetShowToolTips(show);
            QCOMPARE(run.window.At(u"OKButton"_s).ToolTip(), expected);
            run.window.Unload();
            run.window.Load();
            QCOMPARE(run.window.At(u"OKButton"_s).ToolTip(), expected);
        }
        Store(u"OKButton"_s, u"TipEnglish"_s, {});
        QCOMPARE(Run(*db_).window.At(u"OKButton"_s).ToolTip(), okTip); // as nobody has said otherwise
    }

    void AFailingDatabaseLosesNothing()
    {
        {
            const Run run(*db_);
            run.window.days->setText(u"30"_s);
        }
        db_->SetBusyWait(std::chrono::milliseconds(0));
        const QRegularExpression logged(u"AdminForm"_s);
        {
            QTest::ignoreMessage(QtWarningMsg, logged);
            Holder other(db_->Path());
            const Run unread(*db_);
            other.LetGo();
            QCOMPARE(unread.window.days->text(), u"7"_s);
        }
        QCOMPARE(Stored(u"DaysInGrid"_s, u"Value"_s), u"30"_s);
        Run unwritten(*db_);
        unwritten.window.days->setText(u"31"_s);
        QTest::ignoreMessage(QtWarningMsg, logged);
        Holder other(db_->Path(), Holder::Writing);
        unwritten.window.Unload();
        other.LetGo();
        QCOMPARE(Stored(u"DaysInGrid"_s, u"Value"_s), u"30"_s);
    }

private:
    void Sql(const QString &statement, const QVariantList &values = {}) { db_->Execute(statement, values, u"test"_s); }
    void Store(const QString &key, const QString &field, const QVariant &value)
    {
        Sql(u"UPDATE AdminForm SET %1 = ? WHERE Name = ?"_s.arg(dao::Quoted(field)), {value, key});
    }
    QVariant Stored(const QString &key, const QString &field)
    {
        const QString select = u"SELECT %1 FROM AdminForm WHERE Name = ?"_s.arg(dao::Quoted(field));
        return db_->Select(select, {key}, u"test"_s).value(0).value(0, u"no row"_s);
    }
    QList<QVariantList> AllRows() { return db_->Select(u"SELECT * FROM AdminForm ORDER BY Id"_s, {}, u"test"_s); }
    void Seed() { const Run run(*db_); }

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<dao::Database> db_;
};

} // namespace

QTEST_MAIN(TextStoreTest)
#include "tst_textstore.moc"
