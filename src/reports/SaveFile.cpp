#include "reports/SaveFile.h"

#include <QLoggingCategory>
#include <QSaveFile>

using namespace Qt::Literals::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "stemp.reports")

} // namespace

bool SaveFile(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    // Flushed here, as commit() does not see that the rest of its buffer could not be written.
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() && file.commit())
        return true;
    qCWarning(log).noquote() << path << u"could not be written:"_s << file.errorString();
    return false;
}
