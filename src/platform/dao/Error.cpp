#include "platform/dao/Error.h"

#include <QStringBuilder>

#include <utility>

namespace dao {

Error::Error(ErrorKind kind, QString purpose, QString file, QString detail)
    : kind_(kind),
      purpose_(std::move(purpose)),
      file_(std::move(file)),
      detail_(std::move(detail)),
      utf8_(Text().toUtf8())
{
}

QString Error::Text() const
{
    return QString(purpose_ % QStringLiteral(" (") % file_ % QStringLiteral("): ") % detail_).simplified();
}

} // namespace dao
