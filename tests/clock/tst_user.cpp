#include "clock/User.h"
#include "support/AnsweredPrompts.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

QString RefuseCon(const QString &initials)
{
    return initials == QLatin1String("CON") ? QStringLiteral("no file of that name") : QString();
}

QLineEdit *Box(const User &user, const char *name)
{
    return user.findChild<QLineEdit *>(QLatin1String(name));
}

} // namespace

class tst_user : public QObject
{
    Q_OBJECT

private slots:
    void staysUntilInitialsServe();
    void suggestsWhatFits();
    void takesOverWhatWasTyped();
    void quitEndsIt();
};

void tst_user::staysUntilInitialsServe()
{
    AnsweredPrompts prompts;
    User user(RefuseCon, prompts);
    user.Load();
    user.show();
    QTest::keyClicks(Box(user, "UserName"), QStringLiteral("  "));
    QVERIFY(!user.close());
    QTest::keyClick(Box(user, "FullName"), Qt::Key_Return);
    QVERIFY(user.isVisible());
    QVERIFY(prompts.messages.isEmpty());

    Box(user, "UserName")->clear();
    QTest::keyClicks(Box(user, "UserName"), QStringLiteral(" con "));
    QTest::mouseClick(user.findChild<QPushButton *>(QStringLiteral("Command1")), Qt::LeftButton);
    QVERIFY(user.isVisible());
    QCOMPARE(prompts.messages, QStringList{QStringLiteral("no file of that name")});
    QCOMPARE(Box(user, "UserName")->selectedText(), QStringLiteral(" con "));

    QTest::keyClicks(Box(user, "UserName"), QStringLiteral("æø"));
    QTest::keyClick(Box(user, "UserName"), Qt::Key_Return);
    QVERIFY(!user.isVisible() && user.HasInitials());
    QCOMPARE(user.Initials(), QStringLiteral("ÆØ"));
    QCOMPARE(user.FullName(), QString()); // the placeholder is no name
}

void tst_user::suggestsWhatFits()
{
    AnsweredPrompts prompts;
    User user(RefuseCon, prompts);
    user.Suggest(QStringLiteral("ANNAJENSEN"), QStringLiteral("Anna"));
    QCOMPARE(user.Initials(), QStringLiteral("ANNAJENSEN"));
    QCOMPARE(user.FullName(), QStringLiteral("Anna"));
    user.Suggest(QStringLiteral("ANNAJENSEN2"), QString());
    QCOMPARE(user.Initials(), QStringLiteral("ANNAJENSEN"));
    QCOMPARE(user.FullName(), QStringLiteral("Anna"));
}

void tst_user::takesOverWhatWasTyped()
{
    AnsweredPrompts prompts;
    QString initials = QStringLiteral("ROOT");
    QString fullName = QStringLiteral("root");
    QTimer::singleShot(0, this, [] {
        QWidget *window = QApplication::activeModalWidget();
        QTest::keyClicks(window->focusWidget(), QStringLiteral("aj")); // replaces the suggestion, which is selected
        QTest::keyClick(window->focusWidget(), Qt::Key_Enter);
    });
    QVERIFY(AskInitials(initials, fullName, RefuseCon, prompts));
    QCOMPARE(initials, QStringLiteral("AJ"));
    QCOMPARE(fullName, QStringLiteral("root"));
}

void tst_user::quitEndsIt()
{
    AnsweredPrompts prompts;
    QString initials = QStringLiteral("ROOT");
    QString fullName = QStringLiteral("root");
    QTimer::singleShot(0, this, [] {
        QEvent quit(QEvent::Quit);
        QApplication::sendEvent(qApp, &quit);
    });
    QVERIFY(!AskInitials(initials, fullName, RefuseCon, prompts));
    QCOMPARE(initials, QStringLiteral("ROOT"));
}

QTEST_MAIN(tst_user)
#include "tst_user.moc"
