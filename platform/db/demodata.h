#pragma once

#include "platform/db/connection.h"

namespace tarvello::db {

struct DemoOptions {
    // 0 loads the small hand-made set; N > 0 generates N agents in the first company, with
    // registry entries, customers, routes and detail rows in proportion.
    int agents = 0;
};

// The companies of the demo data.
struct DemoCompanies {
    static constexpr int divisional = 1; // keeps divisional data
    static constexpr int plain = 2;      // keeps none
};

// Creates the host tables with the DDL of the connection's dialect.
void createSchema(Connection& connection);
// Gives a database without the host tables the whole schema, and one created before an index
// was declared that index.
void ensureSchema(Connection& connection);

// Fills an empty schema with the demo rows in one transaction. The same options always give
// the same rows.
void populateDemoData(Connection& connection, const DemoOptions& options = {});

} // namespace tarvello::db
