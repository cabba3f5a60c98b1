#pragma once

#include "platform/controls/connectionsource.h"

#include <QList>
#include <memory>
#include <vector>

namespace tarvello::controls {

// Hands out the screen's own connection for its own connection string (handlers answer
// with the string the connection was opened with), and opens, keeps and reuses a new
// connection for any other string. An empty string means the first connection added.
class ConnectionPool : public ConnectionSource {
public:
    ConnectionPool() = default;
    ~ConnectionPool() override;
    ConnectionPool(const ConnectionPool&) = delete;
    ConnectionPool& operator=(const ConnectionPool&) = delete;

    // The connection must outlive the pool.
    void add(db::Connection& connection);
    db::Connection& connectionFor(const QString& connectionString) override;

private:
    QList<db::Connection*> m_known; // Not owned (those added), or owned below.
    std::vector<std::unique_ptr<db::Connection>> m_owned; // Owned: opened here.
};

} // namespace tarvello::controls
