#include "platform/forms/TextEdits.h"

#include <QMimeData>

namespace {

bool IsEmpty(const QMimeData *clipboard)
{
    return !clipboard || clipboard->formats().isEmpty();
}

} // namespace

void PlainTextEdit::insertFromMimeData(const QMimeData *source)
{
    if (!IsEmpty(source))
        QPlainTextEdit::insertFromMimeData(source);
}

void TextEdit::insertFromMimeData(const QMimeData *source)
{
    if (!IsEmpty(source))
        QTextEdit::insertFromMimeData(source);
}
