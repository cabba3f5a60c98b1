#pragma once

#include <QString>

namespace tarvello::controls {
class Field;
}

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::services {

class UserPrompts;

// Opens a management of the host for a field: the first code the person chooses there
// becomes the field's text and is decoded; choosing nothing leaves the field as it was. The
// management's window belongs to a module: opened for none, it fails with "Object required".
void chooseIntoField(UserPrompts& prompts, const host::Cinterface* module, const QString& name,
                     const QString& details, controls::Field* field);

} // namespace tarvello::services
