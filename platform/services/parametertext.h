#pragma once

#include <QList>
#include <QString>
#include <utility>

namespace tarvello::services {

// The parameter text handed to a host program: one "NAME=value" line per named parameter,
// with '\' and line breaks inside a value escaped, so any text survives the trip.
QString appendParameter(const QString& parameters, const QString& name, const QString& value);
QList<std::pair<QString, QString>> readParameters(const QString& parameters);

} // namespace tarvello::services
