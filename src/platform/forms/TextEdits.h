#pragma once

#include <QPlainTextEdit>
#include <QTextEdit>

// Texts of several lines, to be used in place of Qt's own, which crash on pasting from an empty clipboard.

class PlainTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    void insertFromMimeData(const QMimeData *source) override;
};

class TextEdit : public QTextEdit
{
    Q_OBJECT

public:
    using QTextEdit::QTextEdit;

protected:
    void insertFromMimeData(const QMimeData *source) override;
};
