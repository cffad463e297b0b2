#include "texts/Danish.h"

#include <QTranslator>

namespace {

struct DanishTexts : QTranslator
{
    DanishTexts()
    {
        if (!load(QStringLiteral(":/translations/stemp_da.qm")))
            qFatal("the Danish texts are missing from this build");
    }
};

} // namespace

QString DanishText(const QString &form, const QString &english)
{
    static const DanishTexts texts;
    return texts.translate(form.toUtf8().constData(), english.toUtf8().constData());
}
