#pragma once

#include <QRect>
#include <QString>

#include <optional>

class Control;
class EditedPlace;
class QLineEdit;
class QTextEdit;
class QWidget;

// What a control looks like while it is edited: a widget of its kind that fills the editor and, where the text can be
// edited, a pink box in the place of the text, in the control's font and alignment. Other controls show their name.
class EditView
{
public:
    EditView(const Control &control, QWidget &editor); // makes children of the editor

    void Arrange(const EditedPlace &place); // the visible editor has its new size already

    // Where keys and presses for the text go: the box, or the inner part of one with several lines. Nothing when
    // there is no text.
    QWidget *TextArea() const;
    QWidget &FocusArea() const;
    bool HasSeveralLines() const { return lines_ != nullptr; }
    std::optional<QString> ChangedText() const;

private:
    void MakeLook(const Control &control, bool hasText);
    void MakeText(const QString &caption);
    void ArrangeText();
    QRect TextRect() const;

    QWidget &editor_;
    QWidget *look_ = nullptr;
    QLineEdit *line_ = nullptr; // one of the two, or none
    QTextEdit *lines_ = nullptr;
};
