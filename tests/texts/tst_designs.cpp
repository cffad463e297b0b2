#include "Windows.h" // made by the build
#include "platform/forms/Application.h"
#include "platform/system/Say.h"
#include "texts/Danish.h"

#include <QAbstractSpinBox>
#include <QDirIterator>
#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

template <class Design> std::unique_ptr<QMainWindow> Make()
{
    auto window = std::make_unique<QMainWindow>();
    Design().setupUi(window.get());
    return window;
}

#define ENTRY(window) {u"" #window##_s, Make<Ui::window>},
const QMap<QString, std::function<std::unique_ptr<QMainWindow>()>> windows{WINDOWS(ENTRY)};
#undef ENTRY

// Controls and menu entries alike: what has texts of its own.
QObjectList ControlsOf(const QMainWindow &window)
{
    QObjectList controls;
    const QWidget *surface = window.centralWidget();
    for (QWidget *widget : surface->findChildren<QWidget *>()) {
        const bool ofDesign = widget->parentWidget() == surface || qobject_cast<QGroupBox *>(widget->parentWidget());
        if (ofDesign && !widget->objectName().startsWith("qt_"_L1))
            controls.append(widget);
    }
    for (QAction *action : window.findChildren<QAction *>(QRegularExpression(u"^mnu"_s)))
        controls.append(action);
    for (QMenu *menu : window.findChildren<QMenu *>(QRegularExpression(u"^mnu"_s)))
        controls.append(menu);
    return controls;
}

bool IsBox(const QObject &control)
{
    return qobject_cast<const QLineEdit *>(&control) || qobject_cast<const QAbstractSpinBox *>(&control);
}

const char *CaptionProperty(const QObject &control)
{
    const bool hasTitle = qobject_cast<const QGroupBox *>(&control) || qobject_cast<const QMenu *>(&control);
    return hasTitle ? "title" : "text";
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

// What its text takes, at the least; lists, grids and long texts scroll.
QSize Need(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget); label && label->wordWrap())
        return {0, label->heightForWidth(label->width())};
    return qobject_cast<const QAbstractScrollArea *>(&widget) ? QSize() : widget.minimumSizeHint();
}

// The text of literals that stand side by side, as they are written in a source.
QString Unescaped(QString literals)
{
    static const QRegularExpression seam(u"\"\\s*\""_s);
    literals = literals.trimmed().remove(seam).chopped(1).sliced(1);
    return literals.replace(u"\\n"_s, u"\n"_s).replace(u"\\r"_s, u"\r"_s).replace(u"\\\""_s, u"\""_s);
}

// %1, %2 …: how often each occurs
QMap<QString, int> PlacesIn(const QString &text)
{
    static const QRegularExpression place(u"%\\d"_s);
    QMap<QString, int> places;
    for (auto found = place.globalMatch(text); found.hasNext();)
        ++places[found.next().captured()];
    return places;
}

QString Clash(const QWidget &widget)
{
    if (!widget.parentWidget()->rect().contains(widget.geometry()))
        return widget.objectName() + u" leaves its container"_s;
    for (const QWidget *other : widget.parentWidget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (other != &widget && !other->isHidden() && other->geometry().intersects(widget.geometry()))
            return widget.objectName() + u" lies over "_s + other->objectName();
    return {};
}

} // namespace

class TestDesigns : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { ApplyApplicationFont(*qApp); }
    void SaysEverythingInBothLanguages()
    {
        QStringList wanting;
        for (const QString &form : windows.keys()) {
            const auto window = windows[form]();
            const auto check = [&](const QObject &object, const char *property, bool mayBeEmpty) {
                const QString english = object.property(property).toString();
                if (english.isEmpty() ? !mayBeEmpty : DanishText(form, english).isEmpty())
                    wanting.append(form + u'.' + object.objectName() + u'.' + QLatin1String(property));
            };
            check(*window, "windowTitle", false);
            check(*window, "whatsThis", false);
            for (const QObject *control : ControlsOf(*window)) {
                check(*control, "toolTip", false);
                check(*control, "whatsThis", false);
                if (!IsBox(*control))
                    check(*control, CaptionProperty(*control), true);
                const bool nameless = control->isWidgetType() && Caption(*control).isEmpty();
                check(*control, "accessibleName", !nameless || control->property("ControlType") == "PictureBox"_L1);
            }
        }
        QCOMPARE(wanting.join(u' '), QString());
    }

    // The help of what no design holds (timers, data), the captions of lists, and what is said at run time.
    void SaysInDanishWhatTheSourcesSay()
    {
        const QString chain = u"((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)\\)"_s;
        const QRegularExpression marked(u"(?:QT_TRANSLATE_NOOP\\(\\s*\"(\\w+)\",|\\bSay\\()\\s*"_s + chain);
        const QRegularExpression unsaid(
            u"(?:\\bu|QStringLiteral\\(\\s*|QLatin1String(?: \\w+)?\\(\\s*)"
            "(\"(?:\\\\n|\\\\\")*[&( ]*(?:[A-Z][a-z]+|%\\d)[:\\\\\"]* [a-z\"][^\"\\n]*|\"\\([a-z]{3})"_s);
        QStringList wanting;
        int said = 0;
        QDirIterator files(QStringLiteral(SOURCE_FOLDER), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QFile::ReadOnly));
            const QString source = QString::fromUtf8(file.readAll());
            for (auto found = marked.globalMatch(source); found.hasNext(); ++said) {
                const QRegularExpressionMatch match = found.next();
                const QString english = Unescaped(match.captured(2));
                const QString danish =
                    DanishText(match.captured(1).isEmpty() ? u"Messages"_s : match.captured(1), english);
                if (danish.isEmpty() || PlacesIn(danish) != PlacesIn(english))
                    wanting.append(file.fileName() + u": "_s + english);
            }
            for (auto found = unsaid.globalMatch(source); found.hasNext();)
                wanting.append(file.fileName() + u" does not say "_s + found.next().captured(1));
        }
        QVERIFY(said > 100);
        QCOMPARE(wanting.join(u'\n'), QString());

        SayInDanish(true);
        QCOMPARE(Say("&Try again"), u"&Prøv igen"_s);
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "&Yes"), u"&Ja"_s);  // of a box's buttons
        QCOMPARE(QCoreApplication::translate("StempWin", "&Recent"), u"&Recent"_s); // a design's
        SayInDanish(false);
        QCOMPARE(Say("&Try again"), u"&Try again"_s);
    }

    void HasRoomAndKeysForItsTexts_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<bool>("danish");
        for (const QString &form : windows.keys()) {
            QTest::addRow("%s, English", qPrintable(form)) << form << false;
            QTest::addRow("%s, Danish", qPrintable(form)) << form << true;
        }
    }
    void HasRoomAndKeysForItsTexts()
    {
        QFETCH(QString, form);
        QFETCH(bool, danish);
        const auto window = windows[form]();
        if (danish)
            TurnDanish(*window, form);
        window->show();
        QStringList tooSmall;
        for (const QObject *control : ControlsOf(*window)) {
            const auto *widget = qobject_cast<const QWidget *>(control);
            if (!widget || widget->isWindow()) // a menu makes its own room
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

        QMap<QString, QString> owners; // of the access keys
        if (form == "StempWin"_L1)     // of the button, which says IN and OUT, or IND and UD, at run time
            for (const char *key : {"Alt+I", "Alt+O", "Alt+U"})
                owners.insert(QLatin1String(key), u"InOutButton"_s);
        for (const QObject *control : ControlsOf(*window)) {
            const QString key = QKeySequence::mnemonic(Caption(*control)).toString();
            if (key.isEmpty())
                continue;
            const QString owner = owners.value(key, control->objectName());
            QVERIFY2(owner == control->objectName(), qPrintable(key + u" is also that of "_s + owner));
            owners.insert(key, owner);
            if (const auto *label = qobject_cast<const QLabel *>(control))
                QVERIFY(label->buddy());
        }
    }
};

QTEST_MAIN(TestDesigns)
#include "tst_designs.moc"
