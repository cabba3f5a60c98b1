#pragma once

#include "platform/db/value.h"

#include <QString>
#include <functional>

namespace tarvello::services {

// What a named parameter of a host statement holds.
enum class ParameterKind { Text, Number };

// The SQL literal of a parameter's value: a text quoted with every ' doubled; a number
// written plain after checking that it is one (a type mismatch, 13, otherwise).
QString parameterLiteral(const QString& name, ParameterKind kind, const db::Value& value);

// Replaces every @NAME outside quoted texts of a statement with literalOf(NAME).
QString bindNamedParameters(const QString& sql,
                            const std::function<QString(const QString& name)>& literalOf);

} // namespace tarvello::services
