#pragma once

#include <QString>

namespace tarvello::db {
class Connection;
}

namespace tarvello::controls {

// Where a field runs the statements its handlers answer with: the connection for a
// connection string. The host gives one to each form.
class ConnectionSource {
public:
    virtual ~ConnectionSource() = default;
    // Raises db::RuntimeError when no connection can be had for the string.
    virtual db::Connection& connectionFor(const QString& connectionString) = 0;
};

} // namespace tarvello::controls
