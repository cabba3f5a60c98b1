#include "databasesetup.h"

#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "shellarguments.h"

#include <QDir>
#include <QStandardPaths>

namespace tarvello::app {

namespace {

bool hasRows(db::Connection& connection)
{
    return connection.run(QStringLiteral("SELECT COUNT(*) FROM CG18_DITTE"))
               .rows.first()
               .first()
               .toInt64() > 0;
}

} // namespace

QString defaultDatabasePath()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("tarvello.db"));
}

QString prepareDatabase(const ShellArguments& arguments)
{
    if (!arguments.connectionString.isEmpty())
        return arguments.connectionString;
    const bool embedded = arguments.databasePath.isEmpty();
    const QString path = embedded ? defaultDatabasePath() : arguments.databasePath;
    if (embedded)
        QDir().mkpath(QFileInfo(path).absolutePath());
    const QString connectionString = QStringLiteral("Data Source=%1").arg(path);
    db::Connection connection;
    connection.open(connectionString);
    db::ensureSchema(connection);
    if ((embedded || arguments.demo) && !hasRows(connection))
        db::populateDemoData(connection);
    return connectionString;
}

} // namespace tarvello::app
