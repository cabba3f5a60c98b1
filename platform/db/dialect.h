#pragma once

namespace tarvello::db {

// The SQL texts an engine understands: SQL Server takes the module's T-SQL unchanged,
// SQLite gets it rewritten.
enum class Dialect { SqlServer, Sqlite };

} // namespace tarvello::db
