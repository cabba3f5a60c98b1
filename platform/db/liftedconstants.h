#pragma once

#include "platform/db/value.h"

#include <QString>
#include <optional>

namespace tarvello::db {

// A query whose compared constants are bound as parameters: its text is the same whatever the
// values, so one prepared statement serves a walk that asks the same question of many rows.
struct LiftedStatement {
    QString sql; // the constants replaced by '?'
    ValueList parameters;
};

// Lifts the integers and texts compared with =, ==, <>, !=, <, >, <= or >= after the FROM of a
// SELECT, where no result column's name depends on them. A parameter has no affinity, as a
// literal has none, so every comparison keeps its meaning. Nothing when there is none to lift,
// when the text has markers of its own, or when it is not a SELECT.
std::optional<LiftedStatement> liftComparedConstants(const QString& sql);

} // namespace tarvello::db
