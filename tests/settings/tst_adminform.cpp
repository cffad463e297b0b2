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

PathJudgement Judgement(const QString &path)
{
    if (path == newPath || path == oldPath)
        return {PathJudgement::Outcome::Found, false, true, 40, 300};
    if (path == ownPath)
        return {PathJudgement::Outcome::Found, true};
    return {PathJudgement::Outcome::Missing};
}

// The settings on the screen, with a company database in effect.
struct Settings : AtWindow
{
    bool answersLater = false;
    QList<std::function<void()>> answers; // that are to come
    AdminForm form{texts, prompts, [this](const QString &path, const auto &done) {
                       const auto answer = [path, done] { done(Judgement(path)); };
                       answersLater ? answers.append(answer) : answer();
                   }};
    QSignalSpy accepted{&form, &AdminForm::Accepted};

    Settings()
    {
        texts.stored = [this](Form &) {
            Path()->setText(oldPath);
            Check("AutoCheck")->setChecked(true);
            Check("AutoCheck")->move(16, 330); // where the line below the path has come to stand
        };
        Open(form);
        if (Find<QWidget>("PathLabel")->geometry().intersects(Check("AutoCheck")->geometry()))
            qFatal("the path's line is covered");
    }

    QLineEdit *Path() const { return Box("EnterpriseMDBText"); }
    QCheckBox *Check(const char *name) const { return Find<QCheckBox>(name); }
    void EditAll() const
    {
        for (const char *name : {"AdminCheck", "SuperCheck", "AutoCheck", "PopCheck", "ShowJobCheck", "TipsCheck"})
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
            QString saved;
            settings.texts.saved = [&](Form &) { saved = settings.Box("DaysInGrid")->text(); };
            settings.EditAll();
            if (way == "escape")
                QTest::keyClick(settings.Path(), Qt::Key_Escape);
            else if (way == "frame")
                settings.form.close();
            else
                settings.form.Unload();
            QVERIFY(!settings.form.isVisible());
            QCOMPARE(settings.form.IsLoaded(), way != "unload");
            QCOMPARE(saved, way == "unload" ? u"7"_s : QString());
            QVERIFY(settings.accepted.isEmpty());
            QVERIFY(settings.Check("TipsCheck")->isChecked() && !settings.Check("AdminCheck")->isChecked());
            QVERIFY(settings.Check("AutoCheck")->isChecked() && settings.Check("ShowJobCheck")->isChecked()
                    && !settings.Find<QRadioButton>("Round1Hour")->isChecked());
            QCOMPARE(settings.Box("UserName")->text() + settings.Box("PollDelay")->text(), u"15"_s);
            QCOMPARE(settings.Path()->text(), oldPath);
        }
    }

    void Path()
    {
        const QString found = u"Found. People: 40, jobs: 300"_s;
        const QString missing = u"There is no such file, or it cannot be read. OK keeps the file in use."_s;
        for (const auto &[typed, line, canUpdate, kept, keptCanUpdate] :
             {std::tuple{newPath, found, true, newPath, true},
              {u"/nowhere/Jobs.mdb"_s, missing, false, oldPath, true},
              {u" "_s, missing.mid(missing.indexOf(u" OK")), false, oldPath, true},
              {ownPath, u"Found. People: 0, jobs: 0"_s, false, ownPath, false},
              {oldPath, found, true, oldPath, true}}) {
            Settings settings;
            TypeInto(settings.Path(), typed);
            QCOMPARE(settings.Text("PathLabel"), line);
            QCOMPARE(settings.Check("AutoCheck")->isEnabled(), canUpdate);
            QVERIFY(settings.Check("AutoCheck")->isChecked()); // until OK
            settings.Press("OKButton");
            QVERIFY(!settings.form.isVisible());
            QCOMPARE(settings.form.CurrentOptions().EnterpriseMDBText, kept);
            QCOMPARE(settings.Path()->text(), kept);
            QCOMPARE(settings.form.CurrentOptions().AutoUpdate, keptCanUpdate);
            QCOMPARE(settings.Check("AutoCheck")->isEnabled(), keptCanUpdate);
            QCOMPARE(settings.Check("AutoCheck")->isChecked(), keptCanUpdate);
        }
    }

    void WaitsForNoFile()
    {
        Settings settings;
        settings.answersLater = true;
        settings.Path()->setText(newPath);
        settings.Press("OKButton"); // goes on when the file has answered
        settings.Path()->setText(ownPath);
        settings.answers.takeFirst()(); // of a text that is there no more
        QCOMPARE(settings.Text("PathLabel"), QString());
        QVERIFY(settings.accepted.isEmpty() && settings.form.isVisible());
        settings.Press("OKButton");
        QVERIFY(settings.accepted.isEmpty());
        settings.answers.takeFirst()();
        QCOMPARE(settings.accepted.size(), 1);
        QCOMPARE(settings.form.CurrentOptions().EnterpriseMDBText, ownPath);
    }

    // Another file may stand in for the chosen one, which is stored all the same.
    void KeepsTheChosenPath()
    {
        for (const bool isPicked : {false, true}) {
            Settings settings;
            settings.form.ShowPathInEffect(ownPath);
            QVERIFY(settings.Text("PathLabel").contains(oldPath));
            settings.prompts.file = isPicked ? ownPath : QString();
            settings.Press("BrowseButton");
            settings.Press("OKButton");
            QString stored;
            settings.texts.saved = [&](Form &) { stored = settings.Path()->text(); };
            settings.form.Unload();
            QCOMPARE(stored, isPicked ? ownPath : oldPath);
        }
    }

    void PicksTheFile()
    {
        for (const QByteArray way : {"mouse", "button", "F4", "Alt+Down", "cancelled"}) {
            const QString picked = way == "cancelled" ? QString() : ownPath;
            Settings settings;
            settings.prompts.file = QDir::fromNativeSeparators(picked);
            settings.Path()->setFocus();
            if (way == "mouse")
                QTest::mouseClick(settings.Path(), Qt::LeftButton);
            else if (way == "button")
                settings.Press("BrowseButton");
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
    }

    void NumbersAsTyped()
    {
        Settings settings;
        settings.Box("PollDelay")->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&settings.form));
        TypeInto(settings.Box("PollDelay"), u"61"_s);
        QTest::keyClick(settings.Box("PollDelay"), Qt::Key_Tab);
        QCOMPARE(settings.Box("PollDelay")->text(), u"60"_s); // what counts is seen
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
