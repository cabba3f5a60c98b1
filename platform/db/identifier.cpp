#include "platform/db/identifier.h"

namespace tarvello::db {

QString quoteIdentifier(const QString& name)
{
    QString escaped = name;
    escaped.replace(u'"', QStringLiteral("\"\""));
    return u'"' + escaped + u'"';
}

} // namespace tarvello::db
