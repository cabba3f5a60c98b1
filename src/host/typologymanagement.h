#pragma once

#include <QString>

namespace tarvello::controls {
class Field;
}

namespace tarvello::host {

class GlobalContext;

// The host's management of the agent typologies, opened from a typology field: the person
// works on the table and may choose a typology, which goes back into the field.
class TypologyManagement {
public:
    virtual ~TypologyManagement() = default;
    // Opens on the typology typed (trimmed); a typology chosen is written into the field and
    // decoded there.
    virtual void show(GlobalContext& context, controls::Field& field, const QString& typology) = 0;
};

} // namespace tarvello::host
