#include "platform/dao/Error.h"

#include <QStringBuilder>

namespace dao {

Error::Error(ErrorKind kind, const QString &purpose, const QString &file, const QString &detail)
    : kind_(kind),
      text_(QString(purpose % QStringLiteral(" (") % file % QStringLiteral("): ") % detail).simplified()),
      utf8_(text_.toUtf8())
{
}

} // namespace dao
