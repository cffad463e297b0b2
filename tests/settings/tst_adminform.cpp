#include "settings/AdminForm.h"
#include "support/AtWindow.h"

#include <QCheckBox>
#include <QDir>
#include <QRadioButton>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString oldPath = QDir::toNativeSeparators(u"/share/old/Jobs.mdb"_s);
const QString newPath = QDir::toNativeSeparators(u"/share/new/Jobs.mdb"_s);
const QString ownPath = QDir::toNativeSeparators(u"/program/Jobs.mdb"_s);

// The settings on the screen, with a company database in effect.
struct Settings : AtWindow
{
    QStringList asked; // whether it is the own file
    AdminForm form{texts, prompts, [](const QString &path) { return path == newPath || path == ownPath; },
                   [this](const QString &path) {
                       asked.append(path);
                       return path == ownPath;
                   }};
    QSignalSpy accepted{&form, &AdminForm::Accepted};

    Settings()
    {
        texts.stored = [this](Form &) {
            Path()->setText(oldPath);
            Check("AutoCheck")->setChecked(true);
        };
        Open(form);
    }

    QLineEdit *Path() const { return Box("EnterpriseMDBText"); }
    QCheckBox *Check(const char *name) const { return Find<QCheckBox>(name); }
    void EditAll() const
    {
        for (const char *name : {"AdminCheck", "SuperCheck", "AutoCheck", "PopCheck", "TipsCheck"})
            QTest::mouseClick(Check(name), Qt::LeftButton, {}, QPoint(10, 10));
        QTest::mouseClick(Find<QRadioButton>("Round1Hour"), Qt::LeftButton, {}, QPoint(10, 10));
        TypeInto(Box("UserName"), u"aj"_s);
        TypeInto(Box("DaysInGrid"), u"30"_s);
        TypeInto(Box("PollDelay"), u"5"_s);
        TypeInto(Path(), newPath);
    }
};

} // namespace

class TestAdminForm : public QObject
{
    Q_OBJECT

private slots:
    void PutsBackWhatWasNotAccepted()
    {
        for (const QByteArray way : {"escape", "frame", "unload"}) {
            Settings settings;
            bool saved = false;
            settings.texts.saved = [&](Form &) { saved = settings.Box("DaysInGrid")->text() == "7"_L1; };
            settings.EditAll();
            if (way == "escape")
                QTest::keyClick(settings.Path(), Qt::Key_Escape);
            else if (way == "frame")
                settings.form.close();
            else
                settings.form.Unload();
            QVERIFY(!settings.form.isVisible());
            QCOMPARE(settings.form.IsLoaded(), way != "unload");
            QVERIFY(saved);
            QVERIFY(settings.accepted.isEmpty());
            QVERIFY(settings.Check("TipsCheck")->isChecked() && !settings.Check("AdminCheck")->isChecked());
            QVERIFY(settings.Check("AutoCheck")->isChecked()
                    && !settings.Find<QRadioButton>("Round1Hour")->isChecked());
            QCOMPARE(settings.Box("UserName")->text() + settings.Box("PollDelay")->text(), u"15"_s);
            QCOMPARE(settings.Path()->text(), oldPath);
        }
    }

    void Path()
    {
        for (const auto &[typed, kept, autoUpdate] : {std::tuple{newPath, newPath, true},
                                                      {u"/nowhere/Jobs.mdb"_s, oldPath, true},
                                                      {ownPath, ownPath, false},
                                                      {oldPath, oldPath, true}}) { // unchanged though out of reach
            Settings settings;
            TypeInto(settings.Path(), typed);
            settings.Press("OKButton");
            QCOMPARE(settings.form.CurrentOptions().EnterpriseMDBText, kept);
            QCOMPARE(settings.Path()->text(), kept);
            QCOMPARE(settings.form.CurrentOptions().AutoUpdate, autoUpdate);
            QCOMPARE(settings.Check("AutoCheck")->isEnabled(), autoUpdate);
            QCOMPARE(settings.Check("AutoCheck")->isChecked(), autoUpdate);
        }
    }

    void PicksTheFile()
    {
        for (const QByteArray way : {"mouse", "F4", "Alt+Down", "cancelled"}) {
            const QString picked = way == "cancelled" ? QString() : ownPath;
            Settings settings;
            settings.prompts.file = QDir::fromNativeSeparators(picked);
            settings.Path()->setFocus();
            if (way == "mouse")
                QTest::mouseClick(settings.Path(), Qt::LeftButton);
            else if (way == "Alt+Down")
                QTest::keyClick(settings.Path(), Qt::Key_Down, Qt::AltModifier);
            else
                QTest::keyClick(settings.Path(), Qt::Key_F4);
            QTRY_COMPARE(settings.prompts.messages, QStringList{u"Locate Company Data Base"_s});
            QCOMPARE(settings.Path()->text(), picked.isEmpty() ? oldPath : picked);
            settings.form.close();
            QCOMPARE(settings.Path()->text(), oldPath);
        }
    }

    void TickOutlivesAListOutOfReach()
    {
        Settings settings;
        settings.form.SetSharedListPossible(false);
        settings.form.SetUserName(u"AJ"_s, true);
        QVERIFY(!settings.form.CurrentOptions().AutoUpdate);
        settings.Press("OKButton");
        QCOMPARE(settings.form.CurrentOptions().UserName, u"AJ"_s);
        QVERIFY(!settings.form.CurrentOptions().AutoUpdate);
        settings.form.SetSharedListPossible(true);
        QVERIFY(settings.form.CurrentOptions().AutoUpdate);
        settings.form.ShowPathInEffect(oldPath);
        QCOMPARE(settings.asked, QStringList{oldPath}); // each question may cost a wait
    }

    // The answer about the company database may come while the person edits.
    void PathFoundWhileEditing()
    {
        Settings settings;
        TypeInto(settings.Path(), newPath);
        settings.form.ShowPathInEffect(ownPath);
        QCOMPARE(settings.Path()->text(), newPath);
        settings.form.close();
        QCOMPARE(settings.Path()->text(), ownPath);
        QVERIFY(!settings.form.CurrentOptions().AutoUpdate);
    }

    void NumbersAsTyped()
    {
        const QMap<QString, QList<int>> numbers{
            {QString(), {0, 7, 15}},
            {u"inf"_s, {0, 7, 15}},
            {u"  7 days"_s, {7, 7, 7}},
            {u"2.5"_s, {2, 2, 2}}, // half to even
            {u"3.5"_s, {4, 4, 4}},
            {u"3,9"_s, {3, 3, 3}},
            {u"-3"_s, {-3, 7, 15}},
            {u"61"_s, {61, 61, 60}},
            {QString(400, u'9'), {32767, 32767, 60}},
        };
        for (const QString &text : numbers.keys())
            QCOMPARE(QList<int>({LeadingNumber(text), DaysToShow(text), static_cast<int>(PollPeriod(text).count())}),
                     numbers[text]);
    }
};

QTEST_MAIN(TestAdminForm)
#include "tst_adminform.moc"
