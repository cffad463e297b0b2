#include "texts/EditView.h"

#include "platform/forms/ChartWidget.h"
#include "platform/forms/ControlFactory.h"
#include "platform/forms/LineWidget.h"
#include "platform/forms/TextEdits.h"
#include "texts/EditedPlace.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int chartMargin = 8; // around its title
constexpr int frameMargin = 8; // beside a frame's title
constexpr int buttonBorder = 3;

// A line edit keeps these free around its text, other widgets do not.
constexpr QMargins lineEditMargins(2, 1, 2, 1);

bool HasEditedText(const QString &type)
{
    static const QStringList types{u"Label"_s,    u"SSPanel"_s, u"Frame"_s,        u"CommandButton"_s, u"SSCommand"_s,
                                   u"CheckBox"_s, u"SSCheck"_s, u"OptionButton"_s, u"MSChart"_s};
    return types.contains(type);
}

// Black on pink, whatever the colours of the desktop.
void MarkAsEdited(QWidget &widget)
{
    constexpr QColor pink(255, 128, 255);
    QPalette colors = widget.palette();
    for (const auto role : {QPalette::Base, QPalette::Window})
        colors.setColor(role, pink);
    for (const auto role : {QPalette::Text, QPalette::WindowText})
        colors.setColor(role, Qt::black);
    colors.setColor(QPalette::Highlight, QColor(96, 0, 96));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    widget.setPalette(colors);
    widget.setBackgroundRole(QPalette::Window); // not the surface's own role
    widget.setForegroundRole(QPalette::WindowText);
    widget.setAutoFillBackground(true);
}

Qt::Alignment AlignmentOf(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return label->alignment();
    if (const auto *box = qobject_cast<const QGroupBox *>(&widget))
        return box->alignment() | Qt::AlignVCenter;
    return (qobject_cast<const QPushButton *>(&widget) ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

QLabel *NewNamePlate(const QString &name, QWidget *parent)
{
    auto *plate = new QLabel(parent);
    plate->setTextFormat(Qt::PlainText);
    plate->setText(name);
    plate->setAlignment(Qt::AlignCenter);
    plate->setFrameShape(QFrame::Box);
    return plate;
}

// What a person would know the control by, besides its text.
void CopyContent(const QWidget &from, QWidget &look)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(&from)) {
        static_cast<QLineEdit &>(look).setText(edit->displayText());
        static_cast<QLineEdit &>(look).home(false);
    } else if (const auto *text = qobject_cast<const QPlainTextEdit *>(&from)) {
        static_cast<QPlainTextEdit &>(look).setPlainText(text->toPlainText());
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(&from)) {
        auto &copy = static_cast<QAbstractButton &>(look);
        copy.setCheckable(button->isCheckable());
        copy.setChecked(button->isChecked());
    } else if (auto *frame = qobject_cast<QGroupBox *>(&look)) {
        frame->setTitle(u" "_s); // which takes its room
    } else if (const auto *line = qobject_cast<const LineWidget *>(&from)) {
        static_cast<LineWidget &>(look).SetBorderColor(line->BorderColor());
    }
}

QRect TitleRect(const QGroupBox &frame)
{
    QStyleOptionGroupBox option;
    option.initFrom(&frame);
    option.text = u"X"_s;
    option.textAlignment = frame.alignment();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    QRect title = frame.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &frame);
    if (frame.alignment() & (Qt::AlignHCenter | Qt::AlignRight))
        title.setLeft(frameMargin);
    if (!(frame.alignment() & Qt::AlignRight))
        title.setRight(frame.width() - 1 - frameMargin);
    return title;
}

} // namespace

EditView::EditView(const Control &control, QWidget &editor) : editor_(editor)
{
    const auto caption = control.Caption();
    const bool hasText = caption && HasEditedText(control.TypeName());
    MakeLook(control, hasText);
    if (hasText)
        MakeText(*caption);
    for (QWidget *child : {look_, static_cast<QWidget *>(line_), static_cast<QWidget *>(lines_)})
        if (child)
            child->show();
}

void EditView::MakeLook(const Control &control, bool hasText)
{
    const QWidget &widget = *control.Widget();
    const bool isKnown = hasText || control.TypeName() == "TextBox"_L1 || control.TypeName() == "Line"_L1;
    if (isKnown)
        look_ =
            qobject_cast<const ChartWidget *>(&widget) ? new ChartWidget(&editor_) : NewWidgetLike(widget, &editor_);
    if (look_)
        CopyContent(widget, *look_);
    else
        look_ = NewNamePlate(control.Name(), &editor_);
    look_->setFont(widget.font());
    look_->setBackgroundRole(widget.backgroundRole());
    look_->setAutoFillBackground(widget.autoFillBackground());
    look_->setAttribute(Qt::WA_TransparentForMouseEvents);
    look_->setFocusPolicy(Qt::NoFocus);
    if (qobject_cast<LineWidget *>(look_))
        MarkAsEdited(editor_);
    else if (!hasText || qobject_cast<QLabel *>(look_))
        MarkAsEdited(*look_);
}

void EditView::MakeText(const QString &caption)
{
    const auto *label = qobject_cast<const QLabel *>(look_);
    const bool wraps = label && label->wordWrap();
    const Qt::Alignment alignment = AlignmentOf(*look_);
    QFont font = look_->font();
    if (qobject_cast<const ChartWidget *>(look_)) // which writes its title so
        font.setBold(true);
    if (wraps || caption.contains(u'\n')) {
        lines_ = new TextEdit(&editor_);
        lines_->setAcceptRichText(false);
        lines_->setFrameShape(QFrame::NoFrame);
        lines_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        lines_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        lines_->setLineWrapMode(wraps ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
        lines_->setFont(font);
        lines_->document()->setDocumentMargin(0);
        lines_->document()->setDefaultTextOption(QTextOption(alignment & Qt::AlignHorizontal_Mask));
        lines_->setPlainText(caption);
        lines_->selectAll();
        MarkAsEdited(*lines_);
        QObject::connect(lines_, &QTextEdit::textChanged, lines_, [this] { ArrangeText(); });
    } else {
        line_ = new QLineEdit(caption, &editor_);
        line_->setFrame(false);
        line_->setTextMargins(-lineEditMargins);
        line_->setAlignment(alignment);
        line_->setFont(font);
        line_->selectAll();
        MarkAsEdited(*line_);
    }
    FocusArea().setContextMenuPolicy(Qt::PreventContextMenu);
}

void EditView::Arrange(const EditedPlace &place)
{
    look_->setGeometry(editor_.rect());
    if (const auto line = place.Line()) {
        const QPoint corner = editor_.pos();
        static_cast<LineWidget *>(look_)->SetEnds(line->p1() - corner, line->p2() - corner);
    }
    ArrangeText();
}

QWidget *EditView::TextArea() const
{
    return lines_ ? lines_->viewport() : line_;
}

QWidget &EditView::FocusArea() const
{
    return lines_ ? *lines_ : line_ ? static_cast<QWidget &>(*line_) : editor_;
}

std::optional<QString> EditView::ChangedText() const
{
    if (line_ && line_->isModified())
        return line_->text();
    if (lines_ && lines_->document()->isModified())
        return lines_->toPlainText();
    return std::nullopt;
}

void EditView::ArrangeText()
{
    QRect area = TextRect();
    if (line_)
        line_->setGeometry(area);
    if (!lines_)
        return;
    // A box of several lines has no alignment upwards of its own.
    lines_->resize(area.size()); // what it wraps at
    const int needed = static_cast<int>(std::ceil(lines_->document()->size().height()));
    if (needed < area.height()) {
        const Qt::Alignment alignment = AlignmentOf(*look_);
        const int spare = area.height() - needed;
        area.setTop(area.top() + (alignment & Qt::AlignTop ? 0 : alignment & Qt::AlignBottom ? spare : spare / 2));
    }
    lines_->setGeometry(area);
}

// Where the look has its text; beside it there is room to write more.
QRect EditView::TextRect() const
{
    const QRect whole = look_->rect();
    if (const auto *label = qobject_cast<const QLabel *>(look_)) {
        const int margin = label->margin();
        return label->contentsRect().adjusted(margin, margin, -margin, -margin);
    }
    const int height = look_->fontMetrics().height() + 2;
    if (qobject_cast<const ChartWidget *>(look_))
        return whole.intersected({chartMargin, chartMargin - 1, whole.width() - 2 * chartMargin, height});
    if (const auto *frame = qobject_cast<const QGroupBox *>(look_))
        return whole.intersected(TitleRect(*frame));

    QStyleOptionButton option;
    option.initFrom(look_);
    const QStyle::SubElement contents = qobject_cast<const QCheckBox *>(look_)      ? QStyle::SE_CheckBoxContents
                                        : qobject_cast<const QRadioButton *>(look_) ? QStyle::SE_RadioButtonContents
                                                                                    : QStyle::SE_PushButtonContents;
    QRect area = look_->style()->subElementRect(contents, &option, look_).intersected(whole);
    if (contents == QStyle::SE_PushButtonContents)
        area.adjust(buttonBorder, 0, -buttonBorder, 0);
    if (!lines_ && height < area.height()) {
        area.setTop(area.top() + (area.height() - height) / 2);
        area.setHeight(height);
    }
    return area;
}
