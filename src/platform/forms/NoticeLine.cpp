#include "platform/forms/NoticeLine.h"

#include <QAccessibleWidget>

namespace {

constexpr QRgb noticeColor = 0xffe4ecf4; // quieter than the yellow of messages
constexpr int noticeMargin = 5;

QAccessibleInterface *MakeAlert(const QString &, QObject *object)
{
    auto *line = qobject_cast<NoticeLine *>(object);
    return line ? new QAccessibleWidget(line, QAccessible::AlertMessage) : nullptr;
}

} // namespace

NoticeLine::NoticeLine(QWidget *window) : QLabel(window)
{
    [[maybe_unused]] static const bool isKnown = (QAccessible::installFactory(MakeAlert), true);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(noticeMargin);
    setAutoFillBackground(true);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, QColor(noticeColor));
    colors.setColor(QPalette::WindowText, Qt::black);
    setPalette(colors);
    hide();
}

void NoticeLine::ShowText(const QString &text)
{
    setText(text);
    setAccessibleName(text);
    setHidden(text.isEmpty());
    if (!text.isEmpty()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}
