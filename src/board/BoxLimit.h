#pragma once

#include <QLineEdit>

// A box that takes only so many characters may cut within one that is made of two. Its first half then goes as well.
inline void KeepWholeCharacters(QLineEdit &box)
{
    QObject::connect(
        &box, &QLineEdit::textChanged, &box,
        [&box](const QString &text) {
            if (!text.isEmpty() && text.back().isHighSurrogate())
                box.setText(text.chopped(1));
        });
}
