#pragma once

#include <QString>

namespace tarvello::db {

// A table, column or index name as both engines read it whatever it holds: in double quotes,
// each double quote inside doubled.
QString quoteIdentifier(const QString& name);

} // namespace tarvello::db
