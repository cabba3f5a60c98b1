#include "platform/db/engine.h"

namespace tarvello::db {

EngineError::EngineError(ProviderError error)
    : std::runtime_error(error.description.toStdString())
    , m_error(std::move(error))
{}

qint64 Engine::schemaVersion()
{
    static const QString main = QStringLiteral("PRAGMA main.schema_version");
    static const QString temp = QStringLiteral("PRAGMA temp.schema_version");
    return (pragmaNumber(main) << 32) ^ pragmaNumber(temp);
}

qint64 Engine::pragmaNumber(const QString& pragma)
{
    return run(pragma).rows.value(0).value(0).toInt64();
}

} // namespace tarvello::db
