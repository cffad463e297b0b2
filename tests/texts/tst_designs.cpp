#include "platform/forms/Application.h"
#include "texts/Danish.h"
#include "ui_AdminForm.h"
#include "ui_IOQuery.h"
#include "ui_MessageBoard.h"
#include "ui_StempWin.h"
#include "ui_User.h"

#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QXmlStreamReader>

#include <functional>
#include <memory>

namespace {

template <class Design> std::unique_ptr<QMainWindow> Make()
{
    auto window = std::make_unique<QMainWindow>();
    Design().setupUi(window.get());
    return window;
}

struct Window
{
    QString file; // below src/
    std::function<std::unique_ptr<QMainWindow>()> make;
};

const QMap<QString, Window> &Windows()
{
    static const QMap<QString, Window> windows{
        {QStringLiteral("StempWin"), {QStringLiteral("clock/StempWin.ui"), Make<Ui::StempWin>}},
        {QStringLiteral("IOQuery"), {QStringLiteral("clock/IOQuery.ui"), Make<Ui::IOQuery>}},
        {QStringLiteral("User"), {QStringLiteral("clock/User.ui"), Make<Ui::User>}},
        {QStringLiteral("AdminForm"), {QStringLiteral("settings/AdminForm.ui"), Make<Ui::AdminForm>}},
        {QStringLiteral("MessageBoard"), {QStringLiteral("board/MessageBoard.ui"), Make<Ui::MessageBoard>}},
    };
    return windows;
}

// Controls and menu entries alike: what has texts of its own.
QObjectList ControlsOf(const QMainWindow &window)
{
    QObjectList controls;
    const QWidget *surface = window.centralWidget();
    for (QWidget *widget : surface->findChildren<QWidget *>()) {
        const bool ofDesign = widget->parentWidget() == surface || qobject_cast<QGroupBox *>(widget->parentWidget());
        if (ofDesign && !widget->objectName().startsWith(QLatin1String("qt_")))
            controls.append(widget);
    }
    for (QAction *action : window.findChildren<QAction *>(QRegularExpression(QStringLiteral("^mnu"))))
        controls.append(action);
    return controls;
}

bool IsBox(const QObject &control)
{
    return qobject_cast<const QLineEdit *>(&control) != nullptr;
}

const char *CaptionProperty(const QObject &control)
{
    return qobject_cast<const QGroupBox *>(&control) ? "title" : "text";
}

QString Caption(const QObject &control)
{
    return IsBox(control) ? QString() : control.property(CaptionProperty(control)).toString();
}

void TurnDanish(const QMainWindow &window, const QString &form)
{
    for (QObject *control : ControlsOf(window))
        if (!Caption(*control).isEmpty())
            control->setProperty(CaptionProperty(*control), DanishText(form, Caption(*control)));
}

// What its text takes, at the least; lists and grids scroll.
QSize Need(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget); label && label->wordWrap())
        return {0, label->heightForWidth(label->width())};
    return qobject_cast<const QAbstractItemView *>(&widget) ? QSize() : widget.minimumSizeHint();
}

QString Clash(const QWidget &widget)
{
    if (!widget.parentWidget()->rect().contains(widget.geometry()))
        return widget.objectName() + QStringLiteral(" leaves its container");
    for (const QWidget *other : widget.parentWidget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (other != &widget && !other->isHidden() && other->geometry().intersects(widget.geometry()))
            return widget.objectName() + QStringLiteral(" lies over ") + other->objectName();
    return {};
}

} // namespace

class tst_designs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { ApplyApplicationFont(*qApp); }
    void saysEverythingInBothLanguages_data() { AddWindows(); }
    void saysEverythingInBothLanguages();
    void hasRoomForItsTexts_data() { AddWindowsInBothLanguages(); }
    void hasRoomForItsTexts();
    void accessKeysDiffer_data() { AddWindowsInBothLanguages(); }
    void accessKeysDiffer();
    void namesDiffer_data() { AddWindows(); }
    void namesDiffer();

private:
    static void AddWindows()
    {
        QTest::addColumn<QString>("form");
        for (const QString &form : Windows().keys())
            QTest::newRow(qPrintable(form)) << form;
    }
    static void AddWindowsInBothLanguages()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<bool>("danish");
        for (const QString &form : Windows().keys()) {
            QTest::addRow("%s, English", qPrintable(form)) << form << false;
            QTest::addRow("%s, Danish", qPrintable(form)) << form << true;
        }
    }
};

void tst_designs::saysEverythingInBothLanguages()
{
    QFETCH(QString, form);
    const auto window = Windows()[form].make();
    QStringList wanting;
    const auto check = [&](const QObject &object, const char *property, bool mayBeEmpty) {
        const QString english = object.property(property).toString();
        if (english.isEmpty() ? !mayBeEmpty : DanishText(form, english).isEmpty())
            wanting.append(object.objectName() + QLatin1Char('.') + QLatin1String(property));
    };
    check(*window, "windowTitle", false);
    check(*window, "whatsThis", false);
    for (const QObject *control : ControlsOf(*window)) {
        check(*control, "toolTip", false);
        check(*control, "whatsThis", false);
        if (!IsBox(*control))
            check(*control, CaptionProperty(*control), true);
        const bool nameless = control->isWidgetType() && Caption(*control).isEmpty();
        check(*control, "accessibleName", !nameless || control->property("ControlType") == QLatin1String("PictureBox"));
    }
    QCOMPARE(wanting.join(QLatin1Char(' ')), QString());
}

void tst_designs::hasRoomForItsTexts()
{
    QFETCH(QString, form);
    QFETCH(bool, danish);
    const auto window = Windows()[form].make();
    if (danish)
        TurnDanish(*window, form);
    window->show();
    QStringList tooSmall;
    for (const QObject *control : ControlsOf(*window)) {
        const auto *widget = qobject_cast<const QWidget *>(control);
        if (!widget)
            continue;
        const QSize need = Need(*widget);
        if (need.width() > widget->width() || need.height() > widget->height())
            tooSmall.append(widget->objectName());
        if (!widget->isHidden())
            QCOMPARE(Clash(*widget), QString());
    }
    QCOMPARE(tooSmall.join(QLatin1Char(' ')), QString());
    const QMenuBar *menus = window->findChild<QMenuBar *>();
    QVERIFY(!menus || menus->sizeHint().width() <= window->width());
}

void tst_designs::accessKeysDiffer()
{
    QFETCH(QString, form);
    QFETCH(bool, danish);
    const auto window = Windows()[form].make();
    if (danish)
        TurnDanish(*window, form);
    QMap<QString, QString> owners;
    if (form == QLatin1String("StempWin")) // of the button, which says IN and OUT, or IND and UD, at run time
        for (const char *key : {"Alt+I", "Alt+O", "Alt+U"})
            owners.insert(QLatin1String(key), QStringLiteral("InOutButton"));
    for (const QObject *control : ControlsOf(*window)) {
        const QString key = QKeySequence::mnemonic(Caption(*control)).toString();
        if (key.isEmpty())
            continue;
        const QString owner = owners.value(key, control->objectName());
        QVERIFY2(owner == control->objectName(), qPrintable(key + QStringLiteral(" is also that of ") + owner));
        owners.insert(key, owner);
        if (const auto *label = qobject_cast<const QLabel *>(control))
            QVERIFY(label->buddy());
    }
}

// The compiler of the designs renames a second control of the same name.
void tst_designs::namesDiffer()
{
    QFETCH(QString, form);
    QFile file(QStringLiteral(STEMP_SOURCE_FOLDER "/") + Windows()[form].file);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QSet<QString> names;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement() || (xml.name() != QLatin1String("widget") && xml.name() != QLatin1String("action")))
            continue;
        const QString name = xml.attributes().value(QLatin1String("name")).toString();
        QVERIFY2(!names.contains(name), qPrintable(name));
        names.insert(name);
    }
    QVERIFY(!xml.hasError() && names.size() > 2);
}

QTEST_MAIN(tst_designs)
#include "tst_designs.moc"
