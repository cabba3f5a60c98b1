#pragma once

#include "platform/db/engine.h"

namespace tarvello::db {

// What a person is told about a provider error that is not about the statement but about the
// database: locked by someone else, read-only, damaged, out of reach, full. They can act on
// it (wait, ask for write access, restore a copy), so it is said in plain words. Empty for any
// other error, which the provider's own text describes best.
QString databaseCondition(const ProviderError& error, Dialect dialect);

} // namespace tarvello::db
