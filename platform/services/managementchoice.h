#pragma once

#include "platform/db/value.h"
#include "platform/services/promptanswer.h"

#include <QString>

namespace tarvello::controls {
class Field;
}

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::services {

class HostManagements;
struct ManagementDescription;

// The management's window belongs to a module: opened for none, it fails with "Object
// required" (named after the management).
void requireModule(const host::Cinterface* module, const QString& name);

// The codes handed back by the first row chosen in a management's window (trimmed), as the
// answer its prompt takes; nothing when none was chosen.
PromptAnswer codesAnswer(const QList<db::ValueList>& chosen);

// Opens a management of the host for a field, on the code given: the first code the person
// chooses there becomes the field's text and is decoded; choosing nothing leaves the field
// as it was.
void chooseIntoField(const HostManagements& managements, const QString& name, const QString& code,
                     const ManagementDescription& description, controls::Field* field);

} // namespace tarvello::services
