#pragma once

#include "platform/db/value.h"

#include <QString>

namespace tarvello::host {

// Runs the host's own programs by number. Parameters travel in a parameter text built one
// named parameter at a time. Released by destroying it.
class ManagementLauncher {
public:
    virtual ~ManagementLauncher() = default;
    // The parameter text with one more named parameter.
    virtual QString addParameter(const QString& parameters, const QString& name,
                                 const db::Value& value) const = 0;
    // Runs a program and returns the array of values it hands back.
    virtual db::Value runProgram(int program, const QString& parameters, bool modal) = 0;
};

} // namespace tarvello::host
