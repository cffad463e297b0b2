#include "platform/forms/ScreenReaders.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <chrono>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace {

// A text that changes with each key is read out when the person pauses.
constexpr std::chrono::milliseconds pause{500};

// Announces the texts that a label comes to show. A label tells nobody of them, but it is painted with each.
class Announcer : public QObject
{
public:
    explicit Announcer(QLabel &label) : QObject(&label), label_(label), text_(label.text())
    {
        label.installEventFilter(this);
        pause_.setSingleShot(true);
        pause_.callOnTimeout(this, [this] {
            if (!label_.isVisible() || text_.isEmpty())
                return;
            QAccessibleEvent alert(&label_, QAccessible::Alert);
            QAccessible::updateAccessibility(&alert);
        });
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && label_.text() != text_) {
            text_ = label_.text();
            pause_.start(pause);
        }
        return false;
    }

private:
    QLabel &label_;
    QString text_;
    QTimer pause_;
};

bool ShowsItsName(const QWidget &widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    return (button && !button->text().isEmpty()) || qobject_cast<const QGroupBox *>(&widget);
}

// Its own text is no name of a picture.
bool IsText(const Control &control)
{
    return qobject_cast<const QLabel *>(control.Widget()) && control.TypeName() == "Label"_L1;
}

void LetSpeak(QLabel &label)
{
    if (label.accessibleDescription().isEmpty())
        label.setAccessibleDescription(label.accessibleName());
    label.setAccessibleName({});
    new Announcer(label); // which the label owns
}

QString Bare(QString caption)
{
    return caption.remove(u'&').remove(u':').trimmed();
}

} // namespace

void SpeakToScreenReaders(const std::vector<std::unique_ptr<Control>> &controls)
{
    std::map<const QWidget *, QString> labels; // of the widgets that belong to one
    for (const auto &control : controls)
        if (const auto *label = qobject_cast<const QLabel *>(control->Widget()); label && label->buddy())
            labels[label->buddy()] = Bare(label->text());
    for (const auto &control : controls) {
        QWidget *widget = control->Widget();
        if (!widget)
            continue;
        const auto label = labels.find(widget);
        if (IsText(*control))
            LetSpeak(static_cast<QLabel &>(*widget));
        else if (!ShowsItsName(*widget) && label == labels.end() && widget->accessibleName().isEmpty())
            widget->setAccessibleName(control->ToolTip());
        const QString name =
            widget->accessibleName().isEmpty() && label != labels.end() ? label->second : widget->accessibleName();
        const bool hasField = qobject_cast<QComboBox *>(widget) || qobject_cast<QAbstractSpinBox *>(widget);
        auto *field = widget->findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
        if (hasField && field)
            field->setAccessibleName(name);
    }
}
