#include "clock/User.h"
#include "support/AnsweredPrompts.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString RefuseCon(const QString &initials)
{
    return initials == "CON"_L1 ? u"no file of that name"_s : QString();
}

QLineEdit *Box(const User &user, const char *name)
{
    return user.findChild<QLineEdit *>(QLatin1String(name));
}

} // namespace

class TestUser : public QObject
{
    Q_OBJECT

private slots:
    void StaysUntilInitialsServe()
    {
        AnsweredPrompts prompts;
        User user(RefuseCon, prompts);
        user.Load();
        user.show();
        QTest::keyClicks(Box(user, "UserName"), u"  "_s);
        QVERIFY(!user.close());
        QTest::keyClick(Box(user, "FullName"), Qt::Key_Return);
        QVERIFY(user.isVisible());
        QVERIFY(prompts.messages.isEmpty());

        Box(user, "UserName")->clear();
        QTest::keyClicks(Box(user, "UserName"), u" con "_s);
        QTest::mouseClick(user.findChild<QPushButton *>(u"Command1"_s), Qt::LeftButton);
        QVERIFY(user.isVisible());
        QCOMPARE(prompts.messages, QStringList{u"no file of that name"_s});
        QCOMPARE(Box(user, "UserName")->selectedText(), u" con "_s);

        QTest::keyClicks(Box(user, "UserName"), u"æø"_s);
        QTest::keyClick(Box(user, "UserName"), Qt::Key_Return);
        QVERIFY(!user.isVisible() && user.HasInitials());
        QCOMPARE(user.Initials(), u"ÆØ"_s);
        QCOMPARE(user.FullName(), QString()); // the placeholder is no name
    }
};

QTEST_MAIN(TestUser)
#include "tst_user.moc"
