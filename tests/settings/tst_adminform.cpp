#include "settings/AdminForm.h"
#include "support/AnsweredPrompts.h"
#include "support/NoTexts.h"

#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

namespace {

const QString oldPath = QDir::toNativeSeparators(QStringLiteral("/share/old/Jobs.mdb"));
const QString newPath = QDir::toNativeSeparators(QStringLiteral("/share/new/Jobs.mdb"));
const QString ownPath = QDir::toNativeSeparators(QStringLiteral("/program/Jobs.mdb"));

// The settings on the screen, with a company database in effect.
struct Settings
{
    AnsweredPrompts prompts;
    NoTexts texts;
    AdminForm form{texts, prompts, [](const QString &path) { return path == newPath || path == ownPath; },
                   [](const QString &path) { return path == ownPath; }};
    QSignalSpy accepted{&form, &AdminForm::Accepted};

    Settings()
    {
        texts.stored = [this](Form &) {
            Path()->setText(oldPath);
            Check("AutoCheck")->setChecked(true);
        };
        form.Load();
        form.show();
    }

    QLineEdit *Box(const char *name) const { return form.findChild<QLineEdit *>(QLatin1String(name)); }
    QLineEdit *Path() const { return Box("EnterpriseMDBText"); }
    QCheckBox *Check(const char *name) const { return form.findChild<QCheckBox *>(QLatin1String(name)); }
    QRadioButton *Option(const char *name) const { return form.findChild<QRadioButton *>(QLatin1String(name)); }

    static void Type(QLineEdit *box, const QString &text)
    {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
    }
    void PressOK() const
    {
        QTest::mouseClick(form.findChild<QPushButton *>(QStringLiteral("OKButton")), Qt::LeftButton);
    }
    void EditAll() const
    {
        for (const char *name : {"AdminCheck", "SuperCheck", "AutoCheck", "PopCheck", "TipsCheck"})
            QTest::mouseClick(Check(name), Qt::LeftButton, {}, QPoint(10, 10));
        QTest::mouseClick(Option("Round1Hour"), Qt::LeftButton, {}, QPoint(10, 10));
        Type(Box("UserName"), QStringLiteral("aj"));
        Type(Box("DaysInGrid"), QStringLiteral("30"));
        Type(Box("PollDelay"), QStringLiteral("5"));
        Type(Path(), newPath);
    }
};

} // namespace

class tst_adminform : public QObject
{
    Q_OBJECT

private slots:
    void firstRun();
    void enterAccepts();
    void putsBackWhatWasNotAccepted_data();
    void putsBackWhatWasNotAccepted();
    void path_data();
    void path();
    void picksTheFile_data();
    void picksTheFile();
    void locksTheName();
    void tickOutlivesAListOutOfReach();
    void pathFoundWhileEditing();
};

void tst_adminform::firstRun()
{
    AnsweredPrompts prompts;
    NoTexts texts;
    const auto never = [](const QString &) { return false; };
    AdminForm form(texts, prompts, never, never);
    form.Load();
    const Options options = form.CurrentOptions();
    QVERIFY(options.SummaryRounding == Rounding::Quarters);
    QVERIFY(options.ShowToolTips && options.PopUpMessages);
    QVERIFY(!options.AdminMode && !options.CanSetOthersStatus && !options.AutoUpdate);
    QCOMPARE(options.DaysInGrid, QStringLiteral("7"));
    QCOMPARE(options.PollDelay, QStringLiteral("15"));
    QVERIFY(options.UserName.isEmpty() && options.EnterpriseMDBText.isEmpty());
}

void tst_adminform::enterAccepts()
{
    Settings settings;
    settings.EditAll();
    QCOMPARE(settings.form.CurrentOptions().DaysInGrid, QStringLiteral("7")); // not yet
    QTest::keyClick(settings.form.focusWidget(), Qt::Key_Return);
    const Options options = settings.form.CurrentOptions();
    QVERIFY(options.SummaryRounding == Rounding::WholeHours);
    QVERIFY(!options.ShowToolTips && !options.PopUpMessages && !options.AutoUpdate);
    QVERIFY(options.AdminMode && options.CanSetOthersStatus);
    QCOMPARE(options.DaysInGrid, QStringLiteral("30"));
    QCOMPARE(options.PollDelay, QStringLiteral("5"));
    QCOMPARE(options.UserName, QStringLiteral("aj"));
    QCOMPARE(options.EnterpriseMDBText, newPath);
    QCOMPARE(settings.accepted.size(), 1);
    QVERIFY(!settings.form.isVisible() && settings.form.IsLoaded());
}

void tst_adminform::putsBackWhatWasNotAccepted_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"escape", "frame", "unloaded"})
        QTest::newRow(way) << way;
}

void tst_adminform::putsBackWhatWasNotAccepted()
{
    QFETCH(QString, way);
    Settings settings;
    bool saved = false;
    settings.texts.saved = [&](Form &) { saved = settings.Box("DaysInGrid")->text() == QLatin1String("7"); };
    settings.EditAll();
    if (way == QLatin1String("escape"))
        QTest::keyClick(settings.Path(), Qt::Key_Escape);
    else if (way == QLatin1String("frame"))
        settings.form.close();
    else
        settings.form.Unload();
    QVERIFY(!settings.form.isVisible());
    QCOMPARE(settings.form.IsLoaded(), way != QLatin1String("unloaded"));
    QCOMPARE(saved, way == QLatin1String("unloaded"));
    QVERIFY(settings.accepted.isEmpty());
    QVERIFY(settings.Check("TipsCheck")->isChecked() && settings.Check("PopCheck")->isChecked());
    QVERIFY(!settings.Check("AdminCheck")->isChecked() && !settings.Check("SuperCheck")->isChecked());
    QVERIFY(settings.Check("AutoCheck")->isChecked() && settings.Option("Round15min")->isChecked());
    QCOMPARE(settings.Box("UserName")->text(), QString());
    QCOMPARE(settings.Box("PollDelay")->text(), QStringLiteral("15"));
    QCOMPARE(settings.Path()->text(), oldPath);
}

void tst_adminform::path_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<bool>("autoUpdate");
    QTest::newRow("another file") << newPath << newPath << true;
    QTest::newRow("no file") << "/nowhere/Jobs.mdb" << oldPath << true;
    QTest::newRow("the program's own") << ownPath << ownPath << false;
    QTest::newRow("unchanged though out of reach") << oldPath << oldPath << true;
}

void tst_adminform::path()
{
    QFETCH(QString, typed);
    QFETCH(QString, kept);
    QFETCH(bool, autoUpdate);
    Settings settings;
    settings.Type(settings.Path(), typed);
    settings.PressOK();
    QCOMPARE(settings.form.CurrentOptions().EnterpriseMDBText, kept);
    QCOMPARE(settings.Path()->text(), kept);
    QCOMPARE(settings.form.CurrentOptions().AutoUpdate, autoUpdate);
    QCOMPARE(settings.Check("AutoCheck")->isEnabled(), autoUpdate);
    QCOMPARE(settings.Check("AutoCheck")->isChecked(), autoUpdate);
}

void tst_adminform::picksTheFile_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("picked");
    for (const char *way : {"mouse", "F4", "Alt+Down"})
        QTest::newRow(way) << way << ownPath;
    QTest::newRow("cancelled") << "F4" << QString();
}

void tst_adminform::picksTheFile()
{
    QFETCH(QString, way);
    QFETCH(QString, picked);
    Settings settings;
    settings.prompts.file = QDir::fromNativeSeparators(picked);
    settings.Path()->setFocus();
    if (way == QLatin1String("mouse"))
        QTest::mouseClick(settings.Path(), Qt::LeftButton);
    else if (way == QLatin1String("F4"))
        QTest::keyClick(settings.Path(), Qt::Key_F4);
    else
        QTest::keyClick(settings.Path(), Qt::Key_Down, Qt::AltModifier);
    QTRY_COMPARE(settings.prompts.messages, QStringList{QStringLiteral("Locate Company Data Base")});
    QCOMPARE(settings.Path()->text(), picked.isEmpty() ? oldPath : picked);
    QCOMPARE(settings.Check("AutoCheck")->isEnabled(), picked.isEmpty());
    settings.form.close();
    QCOMPARE(settings.Path()->text(), oldPath);
    QVERIFY(settings.Check("AutoCheck")->isEnabled() && settings.form.CurrentOptions().AutoUpdate);
}

void tst_adminform::locksTheName()
{
    Settings settings;
    settings.form.SetUserName(QStringLiteral("AJ"), true);
    settings.Type(settings.Box("UserName"), QStringLiteral("other"));
    settings.PressOK();
    QCOMPARE(settings.form.CurrentOptions().UserName, QStringLiteral("AJ"));
}

void tst_adminform::tickOutlivesAListOutOfReach()
{
    Settings settings;
    settings.form.SetSharedListPossible(false);
    QVERIFY(!settings.form.CurrentOptions().AutoUpdate);
    settings.PressOK();
    QVERIFY(!settings.form.CurrentOptions().AutoUpdate);
    settings.form.SetSharedListPossible(true);
    QVERIFY(settings.form.CurrentOptions().AutoUpdate);
}

// The answer about the company database may come while the person edits.
void tst_adminform::pathFoundWhileEditing()
{
    Settings settings;
    settings.Type(settings.Path(), newPath);
    settings.form.ShowPathInEffect(ownPath);
    QCOMPARE(settings.Path()->text(), newPath);
    settings.form.close();
    QCOMPARE(settings.Path()->text(), ownPath);
    QVERIFY(!settings.form.CurrentOptions().AutoUpdate);
}

QTEST_MAIN(tst_adminform)
#include "tst_adminform.moc"
