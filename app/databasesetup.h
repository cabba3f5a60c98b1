#pragma once

#include <QString>

namespace tarvello::app {

struct ShellArguments;

// Makes the database the shell opens ready and returns its connection string: a SQL
// Server through ODBC as given; a SQLite file as given (the schema created when it has
// none, the demo data added with --demo when it has no rows); without either, the embedded
// default database in the user's data folder, created with the schema and the demo data on
// first use. Raises db::RuntimeError when the database cannot be opened or prepared.
QString prepareDatabase(const ShellArguments& arguments);

// Where the embedded default database lives.
QString defaultDatabasePath();

} // namespace tarvello::app
