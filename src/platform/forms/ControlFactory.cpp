#include "platform/forms/ControlFactory.h"

#include "platform/forms/ChartWidget.h"
#include "platform/forms/GridControl.h"
#include "platform/forms/LineWidget.h"
#include "platform/forms/TextEdits.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>

using namespace Qt::Literals::StringLiterals;

namespace {

// The adapter for one widget class: Adapter(ControlId, Widget &). Nothing when the widget is of another class.
template <class Adapter, class Widget> std::unique_ptr<Control> As(QWidget &widget, const QString &type)
{
    auto *wanted = qobject_cast<Widget *>(&widget);
    return wanted ? std::make_unique<Adapter>(IdOf(widget, type), *wanted) : nullptr;
}

struct Type
{
    std::unique_ptr<Control> (*make)(QWidget &, const QString &);
    QString name;
};

// A derived class stands before its base.
const std::vector<Type> &Types()
{
    static const std::vector<Type> types{
        {As<LineControl, LineWidget>, u"Line"_s},
        {As<ChartControl, ChartWidget>, u"MSChart"_s},
        {As<TextBoxControl, QLineEdit>, u"TextBox"_s},
        {As<MultiLineControl, QPlainTextEdit>, u"TextBox"_s},
        {As<OptionButtonControl, QRadioButton>, u"OptionButton"_s},
        {As<ButtonControl, QCheckBox>, u"CheckBox"_s},
        {As<ButtonControl, QAbstractButton>, u"CommandButton"_s},
        {As<ComboBoxControl, QComboBox>, u"ComboBox"_s},
        {As<GridControl, QTableWidget>, u"MSFlexGrid"_s},
        {As<GridControl, QTableView>, u"DBGrid"_s},
        {As<WidgetControl, QListView>, u"ListBox"_s},
        {As<ScrollBarControl, QScrollBar>, u"VScrollBar"_s},
        {As<TabControl, QTabWidget>, u"SSTab"_s},
        {As<DatePickerControl, QDateTimeEdit>, u"DTPicker"_s},
        {As<FrameControl, QGroupBox>, u"Frame"_s},
        {As<LabelControl, QLabel>, u"Label"_s},
        {As<WidgetControl, QFrame>, u"SSPanel"_s},
    };
    return types;
}

bool IsPicture(const QWidget &widget)
{
    const auto *label = qobject_cast<const QLabel *>(&widget);
    const QString type = widget.property("ControlType").toString();
    return label && (type == "Image"_L1 || type == "PictureBox"_L1 || !label->pixmap(Qt::ReturnByValue).isNull());
}

template <class Widget, class Made = Widget> Made *NewOf(const QWidget &pattern, QWidget *parent)
{
    return qobject_cast<const Widget *>(&pattern) ? new Made(parent) : nullptr;
}

} // namespace

ControlId IdOf(const QObject &object, const QString &classType)
{
    ControlId id{object.objectName(), std::nullopt, classType};
    if (const QVariant index = object.property("Index"); index.isValid()) {
        id.index = index.toInt();
        const QString suffix = u'_' + QString::number(*id.index);
        if (id.name.endsWith(suffix))
            id.name.chop(suffix.size());
    }
    if (const QVariant type = object.property("ControlType"); type.isValid())
        id.typeName = type.toString();
    return id;
}

std::unique_ptr<Control> MakeControl(QWidget &widget)
{
    std::unique_ptr<Control> control;
    if (IsPicture(widget))
        control = std::make_unique<WidgetControl>(IdOf(widget, u"PictureBox"_s), widget);
    for (auto type = Types().begin(); !control && type != Types().end(); ++type)
        control = type->make(widget, type->name);
    if (!control) {
        control =
            std::make_unique<WidgetControl>(IdOf(widget, QLatin1String(widget.metaObject()->className())), widget);
    }
    control->SetTag(widget.property("Tag").toString());
    return control;
}

bool IsFrame(const QWidget &widget)
{
    return qobject_cast<const QGroupBox *>(&widget) || widget.metaObject() == &QFrame::staticMetaObject;
}

QWidget *NewWidgetLike(const QWidget &pattern, QWidget *parent)
{
    QWidget *made = nullptr;
    if (auto *label = NewOf<QLabel>(pattern, parent)) {
        const auto &from = static_cast<const QLabel &>(pattern);
        label->setAlignment(from.alignment());
        label->setWordWrap(from.wordWrap());
        label->setFrameStyle(from.frameStyle());
        made = label;
    } else if (auto *edit = NewOf<QLineEdit>(pattern, parent)) {
        edit->setAlignment(static_cast<const QLineEdit &>(pattern).alignment());
        made = edit;
    } else if (auto *box = NewOf<QGroupBox>(pattern, parent)) {
        box->setAlignment(static_cast<int>(static_cast<const QGroupBox &>(pattern).alignment().toInt()));
        made = box;
    } else if (auto *text = NewOf<QPlainTextEdit, PlainTextEdit>(pattern, parent)) {
        made = text;
    } else if (auto *command = NewOf<QPushButton>(pattern, parent)) {
        made = command;
    } else if (auto *check = NewOf<QCheckBox>(pattern, parent)) {
        made = check;
    } else if (auto *option = NewOf<QRadioButton>(pattern, parent)) {
        made = option;
    } else {
        made = NewOf<LineWidget>(pattern, parent);
    }
    if (made) {
        made->setGeometry(pattern.geometry());
        if (pattern.testAttribute(Qt::WA_SetFont))
            made->setFont(pattern.font());
        made->hide();
    }
    return made;
}
