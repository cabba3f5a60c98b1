#include "platform/controls/connectionpool.h"

#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"

namespace tarvello::controls {

ConnectionPool::~ConnectionPool() = default;

void ConnectionPool::add(db::Connection& connection)
{
    if (!m_known.contains(&connection))
        m_known.append(&connection);
}

db::Connection& ConnectionPool::connectionFor(const QString& connectionString)
{
    const QString wanted = connectionString.trimmed();
    if (wanted.isEmpty()) {
        if (m_known.isEmpty())
            throw db::RuntimeError(db::RuntimeError::ObjectRequired,
                                   QStringLiteral("No connection for an empty connection string"),
                                   QStringLiteral("ConnectionPool"));
        return *m_known.first();
    }
    for (db::Connection* known : std::as_const(m_known)) {
        if (known->connectionString().trimmed() == wanted)
            return *known;
    }
    auto opened = std::make_unique<db::Connection>();
    opened->open(wanted);
    m_known.append(opened.get());
    m_owned.push_back(std::move(opened));
    return *m_owned.back();
}

} // namespace tarvello::controls
