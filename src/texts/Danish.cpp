#include "texts/Danish.h"

#include <QCoreApplication>
#include <QTranslator>

#include <memory>

namespace {

struct DanishTexts : QTranslator
{
    DanishTexts()
    {
        if (!load(QStringLiteral(":/translations/stemp_da.qm")))
            qFatal("the Danish texts are missing from this build");
    }
};

// What the program says, and Qt on the buttons of its boxes.
struct DanishMessages : DanishTexts
{
    QString translate(const char *context, const char *english, const char *disambiguation, int n) const override
    {
        const bool isSaid = qstrcmp(context, "Messages") == 0 || qstrcmp(context, "QPlatformTheme") == 0;
        return isSaid ? DanishTexts::translate(context, english, disambiguation, n) : QString();
    }
};

} // namespace

QString DanishText(const QString &form, const QString &english)
{
    static const DanishTexts texts;
    return texts.translate(form.toUtf8().constData(), english.toUtf8().constData());
}

void SayInDanish(bool danish)
{
    static std::unique_ptr<DanishMessages> messages; // one that goes takes itself out of the application
    if (danish == (messages != nullptr))
        return;
    messages = danish ? std::make_unique<DanishMessages>() : nullptr;
    if (messages)
        QCoreApplication::installTranslator(messages.get());
}
