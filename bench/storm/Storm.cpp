#include "bench/storm/Storm.h"

#include <QStringBuilder>
#include <QtGlobal>

#include <stdexcept>

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <csignal>
#include <unistd.h>
#endif

using namespace Qt::Literals::StringLiterals;

QString Storm::NameOf(int copy)
{
    static const QStringList awkward{u"O'NEIL"_s, u"ÅSE ÆBLERØD"_s, u"SELECT"_s, u"A.B"_s, u"SAY \"HI\""_s, u"%_?1"_s};
    return awkward.value(copy, u"PERSON %1"_s.arg(copy));
}

#ifdef Q_OS_WIN

namespace {

constexpr UINT death = 0xC0000D1E; // such codes count as a crash

} // namespace

void Storm::Die()
{
    TerminateProcess(GetCurrentProcess(), death);
    for (;;)
        Sleep(INFINITE);
}

bool Storm::HasDied(int exitCode)
{
    return exitCode == static_cast<int>(death);
}

qint64 Storm::StartedBy()
{
    return 0; // nobody knows here
}

#else

void Storm::Die()
{
    ::kill(::getpid(), SIGKILL);
    for (;;)
        ::pause();
}

bool Storm::HasDied(int exitCode)
{
    return exitCode == SIGKILL;
}

qint64 Storm::StartedBy()
{
    return ::getppid();
}

#endif

Storm::Journal::Journal(const QString &folder, int copy) : file_(File(folder, u"%1.journal"_s.arg(copy)))
{
    if (!file_.open(QIODevice::Append | QIODevice::Unbuffered)) // what the system has, a kill does not take
        throw std::runtime_error("the journal can't be written");
}

void Storm::Journal::Write(Kind kind, const QStringList &fields)
{
    const QString line = QChar(static_cast<char16_t>(kind)) % u'\t' % fields.join(u'\t') % u'\n';
    const QByteArray bytes = line.toUtf8();
    if (file_.write(bytes) != bytes.size())
        throw std::runtime_error("the journal can't be written");
}

QList<Storm::Journal::Line> Storm::Journal::Read(const QString &folder, int copy)
{
    QFile file(File(folder, u"%1.journal"_s.arg(copy)));
    QList<Line> lines;
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    while (!file.atEnd()) {
        QStringList fields = QString::fromUtf8(file.readLine().chopped(1)).split(u'\t');
        lines.append({static_cast<Kind>(fields.takeFirst().at(0).unicode()), fields});
    }
    return lines;
}
